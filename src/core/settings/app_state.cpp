#include "core/settings/app_state.h"

namespace paneda {

namespace {

// The address stands for the product's home until it has one of its own; ".example" is reserved for that.
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
