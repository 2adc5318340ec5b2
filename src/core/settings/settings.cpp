#include "core/settings/settings.h"

#include "core/files/ini_file.h"
#include "core/store/store_layout.h"
#include "core/text/ranges.h"
#include "core/text/text_rules.h"

namespace paneda {

namespace {

constexpr double kDefaultNoteOpacity = 0.8;
constexpr double kUsualFontSize = 10; // points

// Reads the keys of one section.
class SectionReader {
public:
    SectionReader(const IniText& text, QStringView section) : text_(text), section_(section) {}

    QString Text(QStringView key, QStringView fallback = {}) const {
        const QString value = text_.Value(section_, key);
        return value.isEmpty() ? fallback.toString() : value;
    }
    // Held to its range; `fallback` if it is missing.
    int Number(QStringView key, const Range<int>& range, int fallback) const {
        const QString value = text_.Value(section_, key);
        return value.isEmpty() ? fallback : range.Nearest(LeadingInt(value));
    }
    // `usual` for every number outside of the range too.
    int Choice(QStringView key, const Range<int>& range, int usual) const {
        return range.Or(LeadingInt(text_.Value(section_, key)), usual);
    }
    // 1 or, for the number 0, 0; a missing number counts as 1.
    int Switch(QStringView key) const { return LeadingInt(Text(key, u"1")) != 0 ? 1 : 0; }
    bool IsOne(QStringView key) const { return text_.Value(section_, key) == u'1'; }
    // Reads a percentage as a fraction; `fallback` if it is missing or not above 0.
    double Opacity(QStringView key, double fallback) const {
        const double value = LeadingNumber(text_.Value(section_, key)) / 100;
        return value > 0 ? range::kOpacity.Nearest(value) : fallback;
    }

private:
    const IniText& text_;
    QStringView section_;
};

void ReadProperties(const IniText& settings, AppState& state) {
    const SectionReader section(settings, setting::kProperties);
    state.SelectedCategory = section.Number(setting::kCategory, range::kCategoryNumber, 1) - 1;
    state.Browser = section.Text(u"browser", u"default");
    state.DriveOfProgram = section.IsOne(setting::kDriveOfProgram);
    state.HideOnStartup = section.IsOne(setting::kHideOnStartup);
    state.SystemTrayIcon = section.Number(setting::kSystemTrayIcon, range::kTrayIcon, 1);
    state.MouseShowCenter = section.Switch(setting::kMouseShowCenter);
    state.HotkeyShowCenter = section.Switch(setting::kHotkeyShowCenter);
}

void ReadNote(const IniText& settings, AppState& state) {
    const SectionReader section(settings, setting::kNote);
    state.NoteOpacity = section.Opacity(setting::kOpacityPercent, kDefaultNoteOpacity);
    state.NoteMaximized = SameName(section.Text(setting::kWindowState), u"maximize");
    state.Note.Width = section.Number(u"width", range::kNoteSide, range::kNoteSide.Lowest);
    state.Note.Height = section.Number(u"height", range::kNoteSide, range::kNoteSide.Lowest);
    state.Note.CompressSize = section.Number(u"compress size", range::kCompressSize, 0);
    state.Note.FontName = section.Text(u"font name", u"Verdana");
    const double size = LeadingNumber(section.Text(u"font size"));
    state.Note.FontSize = size > 0 ? range::kFontSize.Nearest(size) : kUsualFontSize;
}

void ReadSystray(const IniText& settings, CountdownSettings& countdown) {
    const SectionReader section(settings, setting::kSystray);
    countdown.IconType = section.Choice(u"countdown icon type", range::kCountdownIcons, 2);
    countdown.MessageIcon = section.Number(u"message icon", range::kMessageIcons, 3);
    countdown.MessageStyle = section.Choice(u"message style", range::kMessageStyle, 3);
    countdown.NoMessageIconAfterStop =
        section.Number(u"no message icon after countdown stop", range::kSwitch, 1);
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
    state.TreeOpacity = tree.Opacity(setting::kOpacityPercent, 1);
    state.RecentChangeIndicator = tree.Number(u"recent change indicator", range::kRecentDays, 0);
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
