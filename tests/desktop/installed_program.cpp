#include "desktop/installed_program.h"

#include "core/files/ini_file.h"
#include "core/settings/config_settings.h"
#include "core/settings/settings.h"
#include "core/settings/startup.h"
#include "core/store/catalogue_loader.h"
#include "core/store/store_layout.h"
#include "desktop/desktop.h"
#include "skin/piece_sizes.h"
#include "skin/skin_file.h"
#include "ui/panel/screen_metrics.h"

#include <QDir>
#include <QTest>

#include <algorithm>
#include <csignal>

#include <unistd.h>

namespace paneda::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWait = 10'000; // ms
constexpr uid_t kStranger = 65'534;
constexpr int kLetterK = 75;

// The script's path, folder and arguments; whole as soon as it has its name.
const QByteArray kMarkScript = R"sh(#!/bin/sh
part=$(mktemp "@/started/.XXXXXXXX") || exit 1
{
    printf '%s\0' "$0" "$(pwd -P)" "$HOME $DISPLAY"
    for argument; do printf '%s\0' "$argument"; done
} >"$part"
mv "$part" "@/started/${part##*/.}"
)sh";

ThemeState ThemeOf(const AppState& state) {
    auto theme = ReadSkin(state.AppFolder, state.SkinName);
    if (!theme)
        qFatal("%s", qPrintable(theme.error().Text()));
    return *theme;
}

} // namespace

InstalledProgram::InstalledProgram() {
    files_.AddFolder(u"started"_s);
    files_.AddFolder(u"Launcher"_s);
    QFile::setPermissions(files_.AppFolder(), QFile::Permissions(0x7755));
    QFile::setPermissions(files_.Path(u"started"_s), QFile::Permissions(0x7777));
    const QStringList install{u"--install"_s, QStringLiteral(PANEDA_BUILD_FOLDER), u"--prefix"_s, Folder()};
    if (QProcess::execute(QStringLiteral(PANEDA_CMAKE), install) != 0)
        qFatal("The program cannot be installed.");
    process_.setProcessChannelMode(QProcess::ForwardedChannels);
}

InstalledProgram::~InstalledProgram() {
    process_.kill();
    process_.waitForFinished();
    // Done here, since Qt cannot remove what it cannot name, nor what has been sealed.
    ToolOutput(u"chmod"_s, {u"-R"_s, u"u+w"_s, files_.AppFolder()});
    ToolOutput(u"rm"_s, {u"-rf"_s, u"--"_s, files_.AppFolder()});
}

QString InstalledProgram::Stored(const QString& text) const {
    return text.startsWith(u'@') ? State().Drives.ToStored(Expand(text)) : text;
}

void InstalledProgram::AddMark(const QString& name) const {
    files_.AddFile(name, QByteArray(kMarkScript).replace("@", QFile::encodeName(files_.AppFolder())));
    QFile::setPermissions(files_.Path(name), QFile::Permissions(0x7755));
}

QString InstalledProgram::NextStart() const {
    QDir records(files_.Path(u"started"_s));
    QStringList names;
    const auto some = [&] { return !(names = records.entryList(QDir::Files)).isEmpty(); };
    if (!QTest::qWaitFor(some, kWait))
        return {};
    QStringList fields = QString::fromUtf8(files_.Bytes(u"started/"_s + names[0])).split(QChar(0));
    records.remove(names[0]);
    fields.removeLast();
    const QString environment = QString::fromLocal8Bit(qgetenv("HOME") + ' ' + qgetenv("DISPLAY"));
    if (fields.size() < 3 || fields[2] != environment)
        return u"damaged record or other environment"_s;
    QString text = fields[0] + u" in "_s + fields[1];
    if (fields.size() > 3)
        text += u": "_s + fields.mid(3).join(u'|');
    return text.replace(files_.AppFolder(), u"@"_s);
}

int InstalledProgram::UnreadStarts() const {
    return int(QDir(files_.Path(u"started"_s)).entryList(QDir::Files | QDir::Hidden).size());
}

void InstalledProgram::SetConfig(int record, bool value) const {
    ConfigFile file;
    AppState ignored;
    ReadConfigRecords(file, ignored);
    file.Write(record, {value});
    if (!file.Save(ConfigFilePath(Folder())))
        qFatal("config cannot be written");
}

void InstalledProgram::SetRecords(const std::vector<std::pair<int, ConfigValue>>& records) const {
    const QString path = ConfigFilePath(Folder());
    ConfigFile config = ConfigFile::Load(path).value_or(ConfigFile());
    for (const auto& [record, value] : records)
        config.Write(record, {value});
    if (!config.Save(path))
        qFatal("config cannot be written");
}

void InstalledProgram::UseHotkey() const {
    SetRecords({{kRecordHotkeyEnabled, true},
                {kRecordHotkeyCtrl, true},
                {kRecordHotkeyAlt, true},
                {kRecordHotkeyKey, qint16(kLetterK)}});
}

void InstalledProgram::SetPlace(const QPoint& place) const {
    const QString path = ConfigFilePath(Folder());
    ConfigFile config = ConfigFile::Load(path).value_or(ConfigFile());
    config.Write(kRecordPanelPlace, {double(PixelsToTwips(place.y())), double(PixelsToTwips(place.x()))});
    if (!config.Save(path))
        qFatal("config cannot be written");
}

ConfigArray InstalledProgram::Record(int number) const {
    const ConfigFile config = ConfigFile::Load(ConfigFilePath(Folder())).value_or(ConfigFile());
    return config.Read(number).value_or(ConfigArray());
}

void InstalledProgram::CompleteStore() const {
    AppState state = State();
    if (!LoadPanelState(state).Failures.empty())
        qFatal("The store cannot be made.");
    WriteCache(state, {});
    (void)SaveAtExit(state);
}

QProcessEnvironment InstalledProgram::Environment(bool asStranger) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (asStranger) {
        const QString home = files_.Path(u"stranger"_s);
        files_.AddFolder(u"stranger"_s);
        QFile::setPermissions(home, QFile::Permissions(0x7700));
        // Fails for all but root, whose programs then run as the same user.
        (void)!::chown(QFile::encodeName(home).constData(), kStranger, kStranger);
        environment.insert(u"HOME"_s, home);
        environment.insert(u"XDG_RUNTIME_DIR"_s, home);
        environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
    }
    for (auto variable = variables_.begin(); variable != variables_.end(); ++variable)
        environment.insert(variable.key(), variable.value());
    return environment;
}

bool InstalledProgram::Start(bool asStranger) {
    // One that a failed test has left running.
    process_.kill();
    process_.waitForFinished();
    const QString program = Folder() + u"/paneda"_s;
    process_.setProcessEnvironment(Environment(asStranger));
    // So that a limit of the size of files is an error of the write, as a full disk is.
    process_.setChildProcessModifier([] { ::signal(SIGXFSZ, SIG_IGN); });
    // Root passes over permissions, so that only another user meets them.
    if (asStranger && ::geteuid() == 0)
        process_.start(u"setpriv"_s, {u"--reuid"_s, QString::number(kStranger), u"--regid"_s,
                                      QString::number(kStranger), u"--clear-groups"_s, program});
    else
        process_.start(program, {});
    return FindPanel();
}

bool InstalledProgram::FindPanel() {
    return QTest::qWaitFor(
               [this] {
                   panel_ = FindWindow(kPanelTitle.toString(), process_.processId());
                   return !panel_.isEmpty() || process_.state() == QProcess::NotRunning;
               },
               kWait) &&
           !panel_.isEmpty();
}

bool InstalledProgram::HasEnded() {
    return QTest::qWaitFor([this] { return process_.state() == QProcess::NotRunning; }, kWait);
}

bool InstalledProgram::Close() {
    const auto hasEnded = [this] {
        if (process_.state() == QProcess::NotRunning)
            return true;
        if (!FindWindow(kBoxTitle.toString(), process_.processId()).isEmpty())
            PressKey(u"Return"_s);
        return false;
    };
    // On a busy machine the window manager may give the focus away between the look at it and the key.
    for (int attempt = 0; attempt < 3 && !hasEnded(); ++attempt) {
        if (!ShowPanel())
            return false;
        PressKey(u"alt+F4"_s);
        if (QTest::qWaitFor(hasEnded, kWait / 3))
            break;
    }
    return hasEnded() && process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
}

bool InstalledProgram::PanelBecomes(const QString& state) const {
    return QTest::qWaitFor([&] { return WindowState(panel_) == state; }, kWait);
}

bool InstalledProgram::ShowPanel() const {
    ToolOutput(u"xdotool"_s, {u"windowactivate"_s, panel_});
    const auto hasFocus = [this] {
        return WindowState(panel_) == u"Normal" &&
               ToolOutput(u"xdotool"_s, {u"getwindowfocus"_s}).trimmed() == panel_;
    };
    return QTest::qWaitFor(hasFocus, kWait);
}

// What the program's start makes of the store, without a change to the store.
AppState InstalledProgram::State() const {
    AppState state;
    FillEdition(state);
    state.Drives = DriveMap::FromMountPoints({});
    state.AppFolder = Folder();
    state.AppPath = state.Drives.ToStored(Folder());
    ConfigFile config = ConfigFile::Load(ConfigFilePath(Folder())).value_or(ConfigFile());
    ReadConfigRecords(config, state);
    ReadSettings(ReadIniFile(SettingIniFile(Folder())), state);
    state.Catalogue = LoadCatalogue(ScanOptionsOf(state));
    return state;
}

PanelGeometry InstalledProgram::Geometry(const AppState& state) const {
    return LayoutPanel(state.Catalogue, {state.ButtonsPerRow, PanelMetricsOf(MeasurePieces(ThemeOf(state))),
                                         CurrentScreenMetrics(), 0, 0});
}

QPoint InstalledProgram::Button(const QString& name) const {
    const AppState state = State();
    const PanelGeometry geometry = Geometry(state);
    for (std::size_t i = 0; i < state.Catalogue.size(); ++i) {
        for (std::size_t j = 0; j < state.Catalogue[i].Groups.size(); ++j) {
            const std::vector<ButtonEntry>& buttons = state.Catalogue[i].Groups[j].Buttons;
            for (std::size_t k = 0; k < buttons.size(); ++k) {
                if (buttons[k].Path.section(u'\\', -1) == name)
                    return WindowPlace(panel_) +
                           ToPixels(geometry.Categories[i].Groups[j].Buttons[k].Rect).center();
            }
        }
    }
    qFatal("There is no button %s.", qPrintable(name));
}

QPoint InstalledProgram::Bar(int category) const {
    return WindowPlace(panel_) + BarRect(category).center();
}

QRect InstalledProgram::BarRect(int category) const {
    return ToPixels(Geometry(State()).Categories[std::size_t(category)].Bar);
}

QPoint InstalledProgram::Spot(TwipsRect (*area)(const FrameGeometry&, const ThemeState&)) const {
    const AppState state = State();
    const ThemeState theme = ThemeOf(state);
    const PanelGeometry geometry = Geometry(state);
    const FrameGeometry frame =
        DisplayBorder(MeasurePieces(theme), {geometry.PanelWidth, geometry.PanelHeight});
    return WindowPlace(panel_) + ToPixels(area(frame, theme)).center();
}

QPoint InstalledProgram::HideSpot() const {
    return Spot(HideArea);
}

QPoint InstalledProgram::Menu() const {
    return Spot(MenuArea);
}

QPoint InstalledProgram::Grip() const {
    const QRect panel = WindowRect(panel_);
    return panel.topLeft() + QPoint(std::min(60, panel.width() / 2), 8);
}

} // namespace paneda::test
