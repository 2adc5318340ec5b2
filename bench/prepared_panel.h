#pragma once

#include <QList>
#include <QPoint>
#include <QProcess>
#include <QRgb>
#include <QSize>
#include <QString>

#include <vector>

namespace paneda::bench {

// What calls the panel besides its tray icon.
struct CallSettings {
    bool Hotkey = false; // Ctrl+Alt+K
    bool Mouse = false;  // the middle button
    bool HideOnStartup = false;
};

// Writes these settings, and no others, into the store that the program lies in. False if that failed.
bool PreparePanel(const QString& program, const CallSettings& settings);

// What the opened panel shows at places in its frame, where every call of it shows the same.
struct PanelPixels {
    QSize Size; // of the panel; empty when the store holds no picture yet
    QList<QPoint> Places;
    QList<QRgb> Colours; // without alpha
};
PanelPixels ReadPanelPixels(const QString& picture);

// The picture of the first category in the store that the program lies in, for screens of a ratio ("1.25").
QString PanelPicture(const QString& program, const QString& ratio = QStringLiteral("1"));

// Runs the program as long as the object lives, and ends it as a session does.
class RunningPanel {
public:
    explicit RunningPanel(const QString& program, const QStringList& arguments = {});
    ~RunningPanel();
    Q_DISABLE_COPY_MOVE(RunningPanel)

    qint64 ProcessId() const { return process_.processId(); }

private:
    QProcess process_;
};

// What the threads of a process have cost since its start, as the kernel counts it. All 0 for a process that
// is gone.
struct ProcessCost {
    qint64 Wakeups = 0;  // voluntary context switches
    double RanMs = 0;    // on a processor
    double WaitedMs = 0; // able to run, but every processor was taken
};
ProcessCost CostOf(qint64 processId);

// The middle one of the values; 0 for none.
double Median(std::vector<double> values);

} // namespace paneda::bench
