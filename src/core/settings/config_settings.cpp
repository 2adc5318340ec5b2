#include "core/settings/config_settings.h"

#include "core/files/ini_text.h"
#include "core/store/store_layout.h"
#include "core/text/ranges.h"

#include <QFileInfo>

#include <cmath>

namespace paneda {

namespace {

constexpr double kFeedHeight = 70; // pixels

ConfigArray DefaultDriveTable() {
    ConfigArray values(27, ConfigValue(qint16(0)));
    values[3] = qint16(1); // C
    return values;
}

void WriteFirstRecords(ConfigFile& file) {
    file.Write(kRecordDriveTable, DefaultDriveTable());
    file.Write(kRecordPanelPlace, {0.0, 0.0});
    file.Write(kRecordAutostart, {qint16(0)});
}

void ReadDriveTable(const ConfigFile& file, AppState& state) {
    const ConfigArray values = file.Read(kRecordDriveTable).value_or(DefaultDriveTable());
    state.DriveTable.fill(false);
    for (std::size_t i = 1; i < state.DriveTable.size() && i < values.size(); ++i) {
        const auto* flag = std::get_if<qint16>(&values[i]);
        state.DriveTable[i] = flag && *flag == 1;
    }
}

int PlaceOf(const ConfigArray& values, std::size_t index) {
    const auto* twips = index < values.size() ? std::get_if<double>(&values[index]) : nullptr;
    return twips ? int(HeldNumber(*twips, {double(range::kPlace.Lowest), double(range::kPlace.Highest)}, 0))
                 : 0;
}

void ReadFirstRecords(const ConfigFile& file, AppState& state) {
    ReadDriveTable(file, state);
    const ConfigArray place = file.Read(kRecordPanelPlace).value_or(ConfigArray());
    state.PanelTop = PlaceOf(place, 0);
    state.PanelLeft = PlaceOf(place, 1);
    const ConfigArray autostart = file.Read(kRecordAutostart).value_or(ConfigArray());
    const auto* flag = autostart.empty() ? nullptr : std::get_if<qint16>(&autostart.front());
    state.Autostart = flag && *flag == 1;
}

double ReadReal(ConfigFile& file, int record, double fallback, const Range<double>& range) {
    return HeldNumber(GetConfigRecord(file, record, fallback), range, fallback);
}

int ReadChoice(ConfigFile& file, int record, int usual, const Range<int>& range) {
    return range.Or(GetConfigRecord(file, record, qint16(usual)), usual);
}

// Names are written into INI files and shown in messages.
QString ReadName(ConfigFile& file, int record, const QString& fallback) {
    return CutToIniValue(GetConfigRecord(file, record, fallback));
}

FileResult SaveRecord(const QString& appFolder, int record, const ConfigArray& values) {
    const QString path = ConfigFilePath(appFolder);
    auto file = ConfigFile::Load(path);
    if (!file)
        return tl::make_unexpected(file.error());
    if (!file->Write(record, values))
        return Failure(path, QStringLiteral("The value is too long."));
    return file->Save(path);
}

} // namespace

double HeldNumber(double number, const Range<double>& range, double fallback) {
    return std::isfinite(number) ? range.Nearest(number) : fallback;
}

void ReadConfigRecords(ConfigFile& file, AppState& state) {
    if (file.Bytes().isEmpty())
        WriteFirstRecords(file);
    ReadFirstRecords(file, state);
    state.ButtonsPerRow = ReadReal(file, kRecordButtonsPerRow, 5, range::kButtonsPerRow);
    state.SkinName = ReadName(file, kRecordSkinName, QStringLiteral("Paneda Black Glass"));
    state.HideAfterLaunch = GetConfigRecord(file, kRecordHideAfterLaunch, false);
    state.MouseTriggerEnabled = GetConfigRecord(file, kRecordMouseTriggerEnabled, false);
    state.HotkeyEnabled = GetConfigRecord(file, kRecordHotkeyEnabled, false);
    state.HotkeyCtrl = GetConfigRecord(file, kRecordHotkeyCtrl, false);
    state.HotkeyAlt = GetConfigRecord(file, kRecordHotkeyAlt, false);
    state.HotkeyShift = GetConfigRecord(file, kRecordHotkeyShift, false);
    state.HotkeyWin = GetConfigRecord(file, kRecordHotkeyWin, false);
    state.HotkeyKey = ReadChoice(file, kRecordHotkeyKey, 0, range::kVirtualKey);
    state.UserName = ReadName(file, kRecordUserName, QStringLiteral("Master"));
    state.MouseTriggerMode = ReadChoice(file, kRecordMouseTriggerMode, 2, range::kMouseTriggerMode);
    state.ShowFeed = GetConfigRecord(file, kRecordShowFeed, true);
    const double feedHeight = ReadReal(file, kRecordFeedHeight, kFeedHeight, range::kFeedHeight);
    state.FeedHeight = state.ShowFeed ? PixelsToTwips(int(feedHeight)) : 0;
    state.UserId = ReadName(file, kRecordUserId, QStringLiteral("default"));
}

std::vector<FileError> LoadConfig(AppState& state) {
    const QString path = ConfigFilePath(state.AppFolder);
    auto file = ConfigFile::Load(path);
    if (!file) {
        ConfigFile defaults;
        ReadConfigRecords(defaults, state);
        return {file.error()};
    }
    ReadConfigRecords(*file, state);
    const FileResult saved = file->Save(path);
    return saved ? std::vector<FileError>() : std::vector<FileError>{saved.error()};
}

FileResult SavePanelPlace(const AppState& state) {
    return SaveRecord(state.AppFolder, kRecordPanelPlace, {double(state.PanelTop), double(state.PanelLeft)});
}

FileResult SaveSkinName(const QString& appFolder, const QString& skinName) {
    return SaveRecord(appFolder, kRecordSkinName, {skinName});
}

} // namespace paneda
