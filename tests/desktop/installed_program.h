#pragma once

#include "core/files/config_file.h"
#include "core/panel/panel_geometry.h"
#include "core/settings/app_state.h"
#include "skin/frame_geometry.h"
#include "support/store_builder.h"

#include <QMap>
#include <QPoint>
#include <QProcess>
#include <QRect>

#include <utility>
#include <vector>

namespace paneda::test {

// The program, laid out by the build's install step in the folder "Launcher" of a temporary folder, with
// scripts beside it that tell how they were started. "@" in a text stands for the temporary folder. Functions
// that return false or an empty text have waited for 10 s.
class InstalledProgram {
public:
    // The panel's own title, and that of its message boxes.
    static constexpr QStringView kPanelTitle = u"AhPanel";
    static constexpr QStringView kBoxTitle = u"Paneda Launcher";

    InstalledProgram();
    ~InstalledProgram();
    Q_DISABLE_COPY_MOVE(InstalledProgram)

    QString Folder() const { return files_.Path(QStringLiteral("Launcher")); }
    // Adds a file below "@".
    void AddFile(const QString& name, const QByteArray& bytes = {}) const { files_.AddFile(name, bytes); }
    QString Expand(QString text) const { return text.replace(u'@', files_.AppFolder()); }
    // The stored form of a host path that begins with "@"; any other text as it is.
    QString Stored(const QString& text) const;

    // Adds a script below "@" that tells its start.
    void AddMark(const QString& name) const;
    // How the next of those scripts was started: "script in folder: argument|argument". Removes the record.
    QString NextStart() const;
    int UnreadStarts() const;

    // Writes one record of the file `config`, the others as on a first start.
    void SetConfig(int record, bool value) const;
    // Writes records of the file `config` as it is, each of one value.
    void SetRecords(const std::vector<std::pair<int, ConfigValue>>& records) const;
    // Switches the hotkey on: Ctrl, Alt and K.
    void UseHotkey() const;
    // Saves the panel's place, in pixels.
    void SetPlace(const QPoint& place) const;
    ConfigArray Record(int number) const;
    // Makes the store complete, cache included, as a start and an end of the program leave it.
    void CompleteStore() const;

    // A variable of the environment of later starts.
    void SetVariable(const QString& name, const QString& value) { variables_.insert(name, value); }

    // Starts the program, as another user who owns nothing here if asked to. True once its panel is there,
    // as a window that is shown or minimized.
    bool Start(bool asStranger = false);
    // Ends the panel as the window manager does, with a confirmation of each box on the way. True for the
    // exit status 0.
    bool Close();
    bool HasEnded();
    int ExitCode() const { return process_.exitCode(); }
    qint64 ProcessId() const { return process_.processId(); }
    QProcessEnvironment Environment(bool asStranger) const;

    const QString& Panel() const { return panel_; }
    // Looks for the panel's window anew, which a reload has replaced.
    bool FindPanel();
    bool PanelBecomes(const QString& state) const;
    // Brings a minimized panel back and gives it the focus.
    bool ShowPanel() const;

    // Places on the screen by the layout of the store as it is now: the centre of a button by its file name,
    // or "Drive C"; of a bar by its number; of the hot spots that hide the panel
    // and open its menu; of the frame's upper edge.
    QPoint Button(const QString& name) const;
    QPoint Bar(int category) const;
    // The same bar in the window, in pixels of the layout.
    QRect BarRect(int category) const;
    QPoint HideSpot() const;
    QPoint Menu() const;
    QPoint Grip() const;

    // What the program's start makes of the store as it is now.
    AppState State() const;

private:
    QPoint Spot(TwipsRect (*area)(const FrameGeometry& frame, const ThemeState& theme)) const;
    PanelGeometry Geometry(const AppState& state) const;

    StoreBuilder files_;
    QMap<QString, QString> variables_;
    QProcess process_;
    QString panel_;
};

} // namespace paneda::test
