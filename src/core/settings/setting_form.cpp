#include "core/settings/setting_form.h"

#include "core/files/ini_file.h"
#include "core/settings/config_settings.h"
#include "core/settings/settings.h"
#include "core/store/store_layout.h"
#include "core/text/ranges.h"
#include "core/text/text_rules.h"

namespace paneda {

namespace {

// Element 0 of a record; `fallback` if the record is missing or of another type. Does not change the file.
template <class Value>
Value RecordOr(const ConfigFile& file, int record, const Value& fallback) {
    const auto values = file.Read(record);
    const Value* value = values && !values->empty() ? std::get_if<Value>(&values->front()) : nullptr;
    return value ? *value : fallback;
}

DriveTableFlags ReadDrives(const ConfigFile& config, const AppState& state) {
    const auto values = config.Read(kRecordDriveTable);
    if (!values)
        return state.DriveTable;
    DriveTableFlags drives{};
    for (std::size_t i = 1; i < drives.size() && i < values->size(); ++i)
        drives[i] = (*values)[i] == ConfigValue(qint16(1));
    return drives;
}

// Whether the number is not 0; a missing key counts as 1.
bool NumberIsSet(const IniText& settings, QStringView key) {
    return LeadingInt(IfEmpty(settings.Value(setting::kProperties, key), QStringLiteral("1"))) != 0;
}

// A number of `config` as it is shown. 15 digits are as many as a double keeps of a typed number.
QString NumberText(const ConfigFile& config, int record, double fallback, const Range<double>& range) {
    return QString::number(HeldNumber(RecordOr(config, record, fallback), range, fallback), 'g', 15);
}

KeyWrite FlagKey(QStringView key, bool on) {
    return {key.toString(), on ? QStringLiteral("1") : QStringLiteral("0")};
}

ConfigArray DriveValues(const DriveTableFlags& drives) {
    ConfigArray values{ConfigValue(qint16(0))};
    for (std::size_t i = 1; i < drives.size(); ++i)
        values.emplace_back(qint16(drives[i] ? 1 : 0));
    return values;
}

RecordWrite AutostartRecord(bool on) {
    return {kRecordAutostart, {qint16(on ? 1 : 0)}};
}

std::vector<RecordWrite> RecordsOf(const SettingForm& form) {
    return {
        {kRecordDriveTable, DriveValues(form.DriveTable)},
        AutostartRecord(form.Autostart),
        {kRecordButtonsPerRow, {LeadingNumber(form.ButtonsPerRow)}},
        {kRecordHideAfterLaunch, {form.HideAfterLaunch}},
        {kRecordMouseTriggerEnabled, {form.MouseTriggerEnabled}},
        {kRecordMouseTriggerMode, {qint16(form.MouseClick ? 1 : 2)}},
        {kRecordHotkeyEnabled, {form.HotkeyEnabled}},
        {kRecordHotkeyCtrl, {form.HotkeyCtrl}},
        {kRecordHotkeyAlt, {form.HotkeyAlt}},
        {kRecordHotkeyShift, {form.HotkeyShift}},
        {kRecordHotkeyWin, {form.HotkeyWin}},
        {kRecordHotkeyKey, {qint16(form.HotkeyKey)}},
        {kRecordUserName, {TrimBlanks(form.UserName)}},
        {kRecordShowFeed, {form.ShowFeed}},
        {kRecordFeedHeight, {LeadingNumber(form.FeedHeight)}},
        {kRecordUserId, {TrimBlanks(form.UserId)}},
    };
}

void ReadHotkey(const ConfigFile& config, const AppState& state, SettingForm& form) {
    form.HotkeyEnabled = RecordOr(config, kRecordHotkeyEnabled, state.HotkeyEnabled);
    form.HotkeyCtrl = RecordOr(config, kRecordHotkeyCtrl, state.HotkeyCtrl);
    form.HotkeyAlt = RecordOr(config, kRecordHotkeyAlt, state.HotkeyAlt);
    form.HotkeyShift = RecordOr(config, kRecordHotkeyShift, state.HotkeyShift);
    form.HotkeyWin = RecordOr(config, kRecordHotkeyWin, state.HotkeyWin);
    form.HotkeyKey = range::kVirtualKey.Or(RecordOr(config, kRecordHotkeyKey, qint16(state.HotkeyKey)), 0);
}

FileResult WriteRecords(const std::vector<RecordWrite>& records, const QString& path) {
    auto config = ConfigFile::Load(path);
    if (!config)
        return tl::make_unexpected(config.error());
    for (const RecordWrite& write : records) {
        if (!config->Write(write.Record, write.Values))
            return Failure(path, QStringLiteral("Record %1 does not fit; at most %2 bytes can be kept.")
                                     .arg(write.Record)
                                     .arg(kConfigRecordSize));
    }
    return config->Save(path);
}

} // namespace

SettingForm ReadSettingForm(const ConfigFile& config, const IniText& settings, const AppState& state) {
    SettingForm form;
    form.DriveTable = ReadDrives(config, state);
    form.DriveOfProgram = settings.Value(setting::kProperties, setting::kDriveOfProgram) == u'1';
    form.ButtonsPerRow = NumberText(config, kRecordButtonsPerRow, state.ButtonsPerRow, range::kButtonsPerRow);
    form.HideAfterLaunch = RecordOr(config, kRecordHideAfterLaunch, state.HideAfterLaunch);
    form.MouseTriggerEnabled = RecordOr(config, kRecordMouseTriggerEnabled, state.MouseTriggerEnabled);
    form.MouseClick = RecordOr(config, kRecordMouseTriggerMode, qint16(state.MouseTriggerMode)) == 1;
    form.MouseShowCenter = NumberIsSet(settings, setting::kMouseShowCenter);
    ReadHotkey(config, state, form);
    form.HotkeyShowCenter = NumberIsSet(settings, setting::kHotkeyShowCenter);
    form.Autostart = RecordOr(config, kRecordAutostart, qint16(state.Autostart)) == 1;
    form.UserName = state.UserName;
    form.UserId = state.UserId;
    form.ShowFeed = state.ShowFeed;
    const double stateHeight = TwipsToPixels(state.FeedHeight);
    form.FeedHeight = NumberText(config, kRecordFeedHeight, stateHeight, range::kFeedHeight);
    return form;
}

SettingPlan PlanSettings(const SettingForm& form, bool autostartAtLoad) {
    SettingPlan plan;
    plan.First = FlagKey(setting::kDriveOfProgram, form.DriveOfProgram);
    plan.Records = RecordsOf(form);
    if (form.Autostart != autostartAtLoad)
        plan.Autostart = form.Autostart;
    plan.Last = {FlagKey(setting::kMouseShowCenter, form.MouseShowCenter),
                 FlagKey(setting::kHotkeyShowCenter, form.HotkeyShowCenter)};
    return plan;
}

SettingOutcome WriteSettings(const SettingPlan& plan, const QString& appFolder,
                             const AutostartSwitch& setAutostart) {
    SettingOutcome outcome;
    const auto note = [&outcome](const FileResult& result) {
        if (!result)
            outcome.Failures.push_back(result.error());
        return result.has_value();
    };
    const auto writeKey = [&](const KeyWrite& write) {
        return note(WriteSetting(appFolder, setting::kProperties, write.Key, write.Value));
    };
    const QString config = ConfigFilePath(appFolder);
    const QString before =
        ReadIni(setting::kProperties.toString(), plan.First.Key, SettingIniFile(appFolder));
    const bool changed = writeKey(plan.First);
    outcome.Written = note(WriteRecords(plan.Records, config));
    if (!outcome.Written) {
        // The user is told that nothing was saved; so this key is not to be the exception. A missing key
        // means 0.
        if (changed)
            writeKey({plan.First.Key, IfEmpty(before, QStringLiteral("0"))});
        return outcome;
    }
    const FileResult switched = plan.Autostart ? setAutostart(*plan.Autostart) : FileResult();
    if (!switched) {
        outcome.Autostart = switched.error();
        note(WriteRecords({AutostartRecord(!*plan.Autostart)}, config));
    }
    for (const KeyWrite& write : plan.Last)
        writeKey(write);
    return outcome;
}

} // namespace paneda
