// How long the organiser takes from a press to the painted list, against the bare renames, and to open on a
// large store, against a bare dialog with as many lists. Prints tables; judges nothing.
//
// usage: bench_organiser [FOLDER]   the stores are made below FOLDER, else in the folder for temporary files

#include "core/settings/startup.h"
#include "core/store/store_layout.h"
#include "ui/organiser/frmButton.h"
#include "ui/organiser/store_list.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHBoxLayout>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <vector>

using namespace paneda;

namespace {

constexpr int kRuns = 9;

class YesPrompts : public Prompts {
public:
    void Notice(const QString& text, const QString&) override { qFatal("%s", qPrintable(text)); }
    bool Confirm(const QString&, const QString&) override { return true; }
    QString ChooseFile(const QString&, const QString&) override { return {}; }
};

class NoOpener : public Opener {
public:
    void Open(const LaunchRequest&, const LaunchPaths&) override {}
};

class NoIcons : public FileIcons {
public:
    QImage IconOf(const QString&, const LaunchPaths&, const IconSize&) override { return {}; }
    QString TypeNameOf(const QString&) override { return {}; }
};

class NoVolumes : public Volumes {
public:
    void Refresh(DriveMap&) override {}
    void Watch(std::function<void()>) override {}
};

// A desktop of two hundred files.
class ManyFiles : public SourcePlaces {
public:
    SourceListing List(Source, const QString&) const override {
        SourceListing listing;
        for (int i = 0; i < 200; ++i) {
            const QString name = QStringLiteral("File %1.txt").arg(i);
            listing.User.push_back({name, false, u'/' + name});
        }
        return listing;
    }
    bool HasMedium(const QString&) const override { return true; }
    SourceItem ItemOf(const QString&) const override { return {}; }
};

// Counts how often a widget was painted.
class Paints : public QObject {
public:
    int Count = 0;

    bool eventFilter(QObject*, QEvent* event) override {
        Count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

QString GroupPath(const QString& folder, int group) {
    return QStringLiteral("%1/Setting/[%2] Category %2/[%3] Group %3")
        .arg(folder)
        .arg(group / 10 + 1, 3, 10, QLatin1Char('0'))
        .arg(group % 10 + 1, 3, 10, QLatin1Char('0'));
}

void MakeStore(const QString& folder, int buttons, int buttonsPerGroup) {
    for (int i = 0; i < buttons; ++i) {
        const QString group = GroupPath(folder, i / buttonsPerGroup);
        QDir().mkpath(group);
        QFile file(QStringLiteral("%1/[%2] Program %3 [11113001100].pnd")
                       .arg(group)
                       .arg(i % buttonsPerGroup + 1, 3, 10, QLatin1Char('0'))
                       .arg(QString::number(i * 7919 % 10007)));
        if (!file.open(QIODevice::WriteOnly) || file.write("[Properties]\r\nTarget=C:\\x.exe\r\n") < 0)
            qFatal("Cannot write %s", qPrintable(file.fileName()));
    }
}

struct Window {
    AppState State;
    YesPrompts Prompts;
    NoOpener Opener;
    NoIcons Icons;
    NoVolumes Volumes;
    std::shared_ptr<ManyFiles> Places = std::make_shared<ManyFiles>();
    std::unique_ptr<frmButton> Dialog;

    explicit Window(const QString& folder) {
        State.AppFolder = folder;
        State.AppPath = QStringLiteral("E:\\Paneda");
        LoadPanelState(State);
    }
    void Open() {
        Dialog = std::make_unique<frmButton>(
            State, OrganiserServices{.Prompts = Prompts,
                                     .Opener = Opener,
                                     .FileIcons = Icons,
                                     .ReloadPanel = [] {},
                                     .Scene =
                                         [] {
                                             return PlaceScene{{}, {20'000, 15'000}, 15'000};
                                         },
                                     .OpenHelp = [] {},
                                     .Sources = {Places, Icons, Opener, Volumes},
                                     .Dialogs = {}});
        Dialog->Form_Load();
        Dialog->show();
    }
    StoreList* List() const { return Dialog->findChild<StoreList*>(QStringLiteral("lstButtons")); }
};

// Milliseconds from a call to the end of the first painting of a widget.
template <class Act, class Painted>
double TimeToPaint(const Act& act, const Painted& widget) {
    QElapsedTimer clock;
    Paints paints;
    clock.start();
    act();
    widget()->installEventFilter(&paints);
    widget()->update();
    while (paints.Count == 0)
        QCoreApplication::processEvents();
    return double(clock.nsecsElapsed()) / 1e6;
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// The same number of renames in the same folder, there and back, by halves.
double BareRenames(const QString& group) {
    const QStringList names = QDir(group).entryList(QDir::Files);
    QElapsedTimer clock;
    clock.start();
    for (const QString& name : names) {
        if (!QFile::rename(group + u'/' + name, group + QStringLiteral("/x") + name))
            qFatal("Cannot rename %s", qPrintable(name));
    }
    const double time = double(clock.nsecsElapsed()) / 1e6;
    for (const QString& name : names)
        QFile::rename(group + QStringLiteral("/x") + name, group + u'/' + name);
    return time;
}

void MeasureCommands(const QString& below) {
    const QTemporaryDir folder(below + QStringLiteral("/bench-organiser-XXXXXX"));
    MakeStore(folder.path(), 1'000, 1'000);
    Window window(folder.path());
    window.Open();
    const auto list = [&window] { return window.List()->viewport(); };
    const auto press = [&window](const char* name) {
        window.Dialog->findChild<QAbstractButton*>(QLatin1StringView(name))->click();
    };
    std::vector<double> moves;
    std::vector<double> sorts;
    std::vector<double> bare;
    for (int run = 0; run < kRuns; ++run) {
        window.List()->setCurrentRow(999);
        moves.push_back(TimeToPaint([&] { Q_EMIT window.List()->Moved(999, 0); }, list));
        while (window.List()->currentRow() != 0)
            QCoreApplication::processEvents();
        sorts.push_back(TimeToPaint([&] { press("cmdButtonSort"); }, list));
        bare.push_back(BareRenames(GroupPath(folder.path(), 0)));
    }
    const double floor = Median(bare);
    std::printf("%-36s %9s %9s %7s\n", "1,000 buttons in a group", "ms", "bare ms", "ratio");
    std::printf("%-36s %9.1f %9.1f %7.2f\n", "last one to the top", Median(moves), floor,
                Median(moves) / floor);
    std::printf("%-36s %9.1f %9.1f %7.2f\n", "sort", Median(sorts), floor, Median(sorts) / floor);
}

void MeasureOpening(const QString& below) {
    const QTemporaryDir folder(below + QStringLiteral("/bench-organiser-XXXXXX"));
    MakeStore(folder.path(), 10'000, 100);
    Window window(folder.path());
    std::vector<double> times;
    std::vector<double> bare;
    for (int run = 0; run < kRuns; ++run) {
        times.push_back(TimeToPaint([&] { window.Open(); }, [&] { return window.List()->viewport(); }));
        window.Dialog.reset();
        std::optional<QDialog> dialog;
        const auto show = [&dialog] {
            dialog.emplace();
            auto* layout = new QHBoxLayout(&*dialog);
            for (int i = 0; i < 3; ++i)
                layout->addWidget(new QListWidget(&*dialog));
            dialog->show();
        };
        bare.push_back(TimeToPaint(show, [&dialog] { return &*dialog; }));
    }
    std::printf("\n%-36s %9s %9s %7s\n", "a store of 10,000 buttons", "ms", "bare ms", "ratio");
    std::printf("%-36s %9.1f %9.1f %7.2f\n", "open the window", Median(times), Median(bare),
                Median(times) / Median(bare));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QString below = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath();
    std::printf("Medians of %d runs, from the press to the painted list\n", kRuns);
    MeasureCommands(below);
    MeasureOpening(below);
    return 0;
}
