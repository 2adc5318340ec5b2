#include "core/settings/settings.h"

#include "core/files/ini_file.h"
#include "core/store/store_layout.h"
#include "core/text/text_rules.h"

#include <algorithm>
#include <climits>

namespace paneda {

namespace {

constexpr int kMinNoteSide = 500; // pixels
constexpr double kDefaultNoteOpacity = 0.8;

// Reads the keys of one section.
class SectionReader {
public:
    SectionReader(const IniText& text, QStringView section) : text_(text), section_(section) {}

    QString Text(QStringView key, QStringView fallback = {}) const {
        const QString value = text_.Value(section_, key);
        return value.isEmpty() ? fallback.toString() : value;
    }
    int Number(QStringView key, int fallback) const {
        const QString value = text_.Value(section_, key);
        return value.isEmpty() ? fallback : LeadingInt(value);
    }
    bool IsOne(QStringView key) const { return text_.Value(section_, key) == u'1'; }
    // Reads a percentage as a fraction, at most 1; `fallback` if it is missing or not above 0.
    double Fraction(QStringView key, double fallback) const {
        const double value = std::min(LeadingNumber(text_.Value(section_, key)) / 100, 1.0);
        return value > 0 ? value : fallback;
    }

private:
    const IniText& text_;
    QStringView section_;
};

void ReadProperties(const IniText& settings, AppState& state) {
    const SectionReader section(settings, setting::kProperties);
    state.SelectedCategory = std::clamp(section.Number(setting::kCategory, 0), 1, SHRT_MAX) - 1;
    state.Browser = section.Text(u"browser", u"default");
    state.DriveOfProgram = section.IsOne(setting::kDriveOfProgram);
    state.HideOnStartup = section.IsOne(setting::kHideOnStartup);
    state.SystemTrayIcon = section.Number(setting::kSystemTrayIcon, 1);
    state.MouseShowCenter = section.Number(setting::kMouseShowCenter, 1);
    state.HotkeyShowCenter = section.Number(setting::kHotkeyShowCenter, 1);
}

void ReadNote(const IniText& settings, AppState& state) {
    const SectionReader section(settings, setting::kNote);
    state.NoteOpacity = section.Fraction(setting::kOpacityPercent, kDefaultNoteOpacity);
    state.NoteMaximized = SameName(section.Text(setting::kWindowState), u"maximize");
    state.Note.Width = std::max(section.Number(u"width", kMinNoteSide), kMinNoteSide);
    state.Note.Height = std::max(section.Number(u"height", kMinNoteSide), kMinNoteSide);
    state.Note.CompressSize = section.Number(u"compress size", 0);
    state.Note.FontName = section.Text(u"font name", u"Verdana");
    const double size = LeadingNumber(section.Text(u"font size"));
    state.Note.FontSize = size == 0 ? 10 : size;
}

void ReadSystray(const IniText& settings, CountdownSettings& countdown) {
    const SectionReader section(settings, setting::kSystray);
    countdown.IconType = section.Number(u"countdown icon type", 2);
    countdown.MessageIcon = section.Number(u"message icon", 3);
    countdown.MessageStyle = section.Number(u"message style", 3);
    countdown.NoMessageIconAfterStop = section.Number(u"no message icon after countdown stop", 1);
    countdown.PopupWindow = section.Text(u"countdown popup window");
    countdown.LaunchFile = section.Text(u"countdown launch file");
    countdown.LaunchFileName = section.Text(u"countdown launch file name");
    countdown.Sound = section.Text(u"countdown sound");
    countdown.DateTime = section.Text(u"date time");
    countdown.Message = section.Text(u"message");
}

QString Percent(double fraction) {
    return QString::number(RoundHalfEven(fraction * 100));
}

} // namespace

void ReadSettings(const IniText& settings, AppState& state) {
    ReadProperties(settings, state);
    const SectionReader tree(settings, setting::kTree);
    state.TreeOpacity = tree.Fraction(setting::kOpacityPercent, 1);
    state.RecentChangeIndicator = tree.Number(u"recent change indicator", 0);
    ReadNote(settings, state);
    ReadSystray(settings, state.Countdown);
    state.TreeOpacityAtLoad = state.TreeOpacity;
    state.NoteOpacityAtLoad = state.NoteOpacity;
    state.NoteMaximizedAtLoad = state.NoteMaximized;
}

FileResult WriteSetting(const QString& appFolder, QStringView section, QStringView key,
                        const QString& value) {
    return WriteIni(section.toString(), key.toString(), value, SettingIniFile(appFolder));
}

void SaveSettingsAtExit(const AppState& state) {
    const auto write = [&state](QStringView section, QStringView key, const QString& value) {
        // Ignored: the program ends even if its settings cannot be written.
        (void)WriteSetting(state.AppFolder, section, key, value);
    };
    if (state.TreeOpacity != state.TreeOpacityAtLoad)
        write(setting::kTree, setting::kOpacityPercent, Percent(state.TreeOpacity));
    if (state.NoteOpacity != state.NoteOpacityAtLoad)
        write(setting::kNote, setting::kOpacityPercent, Percent(state.NoteOpacity));
    if (state.NoteMaximized != state.NoteMaximizedAtLoad)
        write(setting::kNote, setting::kWindowState,
              state.NoteMaximized ? QStringLiteral("maximize") : QStringLiteral("normal"));
    write(setting::kProperties, setting::kCategory, QString::number(state.SelectedCategory + 1));
    for (const CategoryEntry& category : state.Catalogue) {
        // Ignored, as above.
        if (category.IsTree())
            (void)WriteIni(QStringLiteral("Properties"), QStringLiteral("Category"), category.TreeName,
                           CategoryIniFile(state.AppFolder, category.FolderName));
    }
}

} // namespace paneda
