#include "core/settings/advance_form.h"

#include "core/settings/settings.h"
#include "core/text/text_rules.h"

namespace paneda {

namespace {

constexpr QStringView kDefaultBrowser = u"default";
constexpr QStringView kExplorer = u"iexplore.exe";
constexpr QStringView kFirefox = u"firefox.exe";
// Only this text is read as Internet Explorer. A save writes the name above, which is read as "other" and
// starts the same program.
constexpr QStringView kExplorerWhenRead = u"iexplorer.exe";

BrowserChoice ChoiceOf(const QString& browser) {
    if (browser == kDefaultBrowser)
        return BrowserChoice::Default;
    if (browser == kExplorerWhenRead)
        return BrowserChoice::Explorer;
    return browser == kFirefox ? BrowserChoice::Firefox : BrowserChoice::Other;
}

} // namespace

AdvanceForm ReadAdvanceForm(const IniText& settings, const AppState& state, bool runsWindowsPrograms) {
    AdvanceForm form;
    form.Browser = ChoiceOf(state.Browser);
    if (form.Browser == BrowserChoice::Other)
        form.OtherBrowser = state.Browser;
    form.OffersExplorer = runsWindowsPrograms || form.Browser == BrowserChoice::Explorer;
    form.HideOnStartup = settings.Value(setting::kProperties, setting::kHideOnStartup) == u'1';
    const QString icon =
        IfEmpty(settings.Value(setting::kProperties, setting::kSystemTrayIcon), QStringLiteral("1"));
    form.TrayIcon = range::kTrayIcon.Nearest(LeadingInt(icon));
    return form;
}

QString BrowserText(const AdvanceForm& form) {
    switch (form.Browser) {
    case BrowserChoice::Explorer:
        return kExplorer.toString();
    case BrowserChoice::Firefox:
        return kFirefox.toString();
    case BrowserChoice::Other:
        return form.OtherBrowser;
    case BrowserChoice::Default:
        break;
    }
    return kDefaultBrowser.toString();
}

std::vector<FileError> WriteAdvanceForm(const AdvanceForm& form, AppState& state) {
    std::vector<FileError> failures;
    const auto write = [&](QStringView key, const QString& value) {
        const FileResult result = WriteSetting(state.AppFolder, setting::kProperties, key, value);
        if (!result)
            failures.push_back(result.error());
    };
    const QString browser = BrowserText(form);
    // An empty text means the default browser, now and at the next start.
    state.Browser = IfEmpty(browser, kDefaultBrowser.toString());
    write(u"browser", browser);
    write(setting::kHideOnStartup, form.HideOnStartup ? QStringLiteral("1") : QStringLiteral("0"));
    write(setting::kSystemTrayIcon, QString::number(form.TrayIcon));
    return failures;
}

} // namespace paneda
