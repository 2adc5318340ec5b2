#include "core/settings/app_state.h"

namespace paneda {

namespace {

// The product has no address of its own yet. Names that end in ".example" are reserved for such cases.
constexpr QStringView kHomepage = u"https://paneda.example";
constexpr QStringView kOtherHomepage = u"https://corvalin.example";

} // namespace

void FillEdition(AppState& state) {
    state.ProductName = state.CoBrand ? QStringLiteral("Corvalin Launcher and Communicator")
                                      : QStringLiteral("Paneda Launcher");
    state.ProductVersion = state.CoBrand ? QStringLiteral("1.2") : QStringLiteral("2.0");
    state.BuildDate = state.CoBrand ? QDate(2007, 8, 20) : QDate(2011, 2, 26);
    state.HomepageAddress = (state.CoBrand ? kOtherHomepage : kHomepage).toString();
}

ScanOptions ScanOptionsOf(const AppState& state) {
    return {state.AppPath, state.AppFolder, state.DriveTable, state.DriveOfProgram};
}

} // namespace paneda
