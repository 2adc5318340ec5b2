#include "core/settings/app_state.h"

#include <utility>

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

QString WindowsNameOf(int platformId, int major, int minor) {
    static constexpr std::pair<QStringView, QStringView> kNames[] = {
        {u"1.4.0", u"Win 95"},    {u"1.4.10", u"Win 98"},   {u"1.4.98", u"Win ME"},
        {u"2.3.51", u"Win NT 3"}, {u"2.4.0", u"Win NT 4"},  {u"2.5.0", u"Win 2000"},
        {u"2.5.1", u"Win XP"},    {u"2.6.0", u"Win Vista"}, {u"2.6.1", u"Win Seven"},
    };
    const QString key = QStringLiteral("%1.%2.%3").arg(platformId).arg(major).arg(minor);
    for (const auto& [number, name] : kNames) {
        if (key == number)
            return name.toString();
    }
    return QStringLiteral("Unknown");
}

} // namespace paneda
