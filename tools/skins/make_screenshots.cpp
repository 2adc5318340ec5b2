// Makes screenshot.jpg, and screenshot@2x.jpg for screens of twice the dots, for each skin and each of its
// options, by the painters of the program over one made-up panel.
//
// usage: make_screenshots ASSETS              writes them into ASSETS/skin
//        make_screenshots --check ASSETS      exit status 1 when one shows something else than the skin, or
//        when
//                                             what the options change cannot be taken back
//        make_screenshots --sheets DIR ASSETS panels of several widths side by side, for judging a skin by
//        eye

#include "core/files/file_io.h"
#include "core/text/checksum.h"
#include "sample_panel.h"
#include "skin/skin_option.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>

using namespace paneda;

namespace {

constexpr int kQuality = 88;
constexpr qint64 kMaxFile = 16 * 1024 * 1024;
const QString kStamp = QStringLiteral("Comment"); // of the picture file: which skin.ini it was made from

// Fonts differ from one machine to another. So what is compared are the places without letters, and pixels
// of the layout around them: letters may be wider, and a JPEG blurs what is near.
constexpr int kBesideLetters = 44;
constexpr int kAboveLetters = 9;
constexpr int kBlur = 8; // pixels
// Of a colour, from 0 to 255: what versions of the JPEG library differ by.
constexpr int kTolerance = 12;
// So much of each picture has to be compared.
constexpr double kLeastCompared = 0.25;

struct State {
    QString Skin;
    QString Option; // empty for the skin as it is

    QString Folder() const { return Option.isEmpty() ? Skin : Skin + u'/' + Option; }
};

struct Density {
    int Ratio;
    const char* File;
};
constexpr Density kDensities[] = {{1, "screenshot.jpg"}, {2, "screenshot@2x.jpg"}};

QStringList Folders(const QString& path) {
    return QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

std::vector<State> StatesIn(const QString& skins) {
    std::vector<State> states;
    for (const QString& skin : Folders(skins)) {
        states.push_back({skin, {}});
        for (const QString& option : Folders(skins + u'/' + skin))
            states.push_back({skin, option});
    }
    return states;
}

// Without the flush of every file that QFile::copy() makes.
void CopyFile(const QString& from, const QString& to) {
    const auto bytes = ReadFileBytes(from, kMaxFile);
    QFile file(to);
    if (!bytes || !file.open(QIODevice::WriteOnly) || file.write(*bytes) != bytes->size())
        qFatal("Cannot copy %s", qPrintable(from));
}

void CopyFolder(const QString& from, const QString& to) {
    QDir().mkpath(to);
    for (const QString& file : QDir(from).entryList(QDir::Files))
        CopyFile(from + u'/' + file, to + u'/' + file);
    for (const QString& folder : Folders(from))
        CopyFolder(from + u'/' + folder, to + u'/' + folder);
}

// A folder of the program with one skin in it.
class ProgramFolder {
public:
    ProgramFolder(const QString& skins, const QString& skin) : skin_(skin) {
        CopyFolder(skins + u'/' + skin, SkinPath());
    }

    QString Path() const { return folder_.path(); }
    QString SkinPath() const { return folder_.filePath(QStringLiteral("skin/") + skin_); }

    void Apply(const QString& option) const { Require(ApplyOption(Path(), skin_, option)); }
    void Restore() const { Require(RestoreOriginal(Path(), skin_)); }

private:
    static void Require(const OptionResult& result) {
        if (!result)
            qFatal("%s", qPrintable(result.error()));
    }

    QTemporaryDir folder_;
    QString skin_;
};

struct Shot {
    QByteArray Bytes;
    QImage Picture; // as these bytes give it
    QImage Letters; // of the same size, white where there are none
};

QImage LettersOf(const QImage& withWords, const QImage& without, int ratio) {
    const QPoint around(kBesideLetters * ratio, kAboveLetters * ratio + kBlur);
    QImage letters(withWords.size(), QImage::Format_RGB32);
    letters.fill(Qt::white);
    QPainter painter(&letters);
    for (int y = 0; y < letters.height(); ++y) {
        for (int x = 0; x < letters.width(); ++x) {
            if (withWords.pixel(x, y) != without.pixel(x, y))
                painter.fillRect(QRect(QPoint(x, y) - around, QPoint(x, y) + around), Qt::black);
        }
    }
    return letters;
}

Shot TakeShot(const QString& assets, const ProgramFolder& program, const State& state, int ratio) {
    SamplePanel sample{program.Path(), state.Skin, assets, double(ratio)};
    QImage picture = OnDesktop(PaintSamplePanel(sample), ratio);
    const QByteArray ini =
        ReadFileBytes(program.SkinPath() + QStringLiteral("/skin.ini"), kMaxFile).value_or(QByteArray());
    picture.setText(kStamp, QString::number(Fnv1a64OfWords(ini), 16));
    Shot shot;
    QBuffer buffer(&shot.Bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, "JPG", kQuality))
        qFatal("The picture cannot be written as a JPEG");
    shot.Picture = QImage::fromData(shot.Bytes);
    sample.Words = false;
    shot.Letters = LettersOf(picture, OnDesktop(PaintSamplePanel(sample), ratio), ratio);
    return shot;
}

bool Differs(QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) > kTolerance || std::abs(qGreen(a) - qGreen(b)) > kTolerance ||
           std::abs(qBlue(a) - qBlue(b)) > kTolerance;
}

// Why a screenshot that was made earlier does not show what the skin looks like now; empty if it does.
QString Fault(const QImage& earlier, const Shot& now) {
    if (earlier.size() != now.Picture.size())
        return QStringLiteral("is missing or of another size");
    if (earlier.text(kStamp) != now.Picture.text(kStamp))
        return QStringLiteral("was made from another skin.ini");
    int compared = 0;
    for (int y = 0; y < earlier.height(); ++y) {
        for (int x = 0; x < earlier.width(); ++x) {
            if ((now.Letters.pixel(x, y) & 0xFFFFFF) == 0)
                continue;
            ++compared;
            if (Differs(earlier.pixel(x, y), now.Picture.pixel(x, y)))
                return QStringLiteral("shows something else at %1, %2").arg(x).arg(y);
        }
    }
    const double share = double(compared) / double(earlier.width()) / double(earlier.height());
    return share < kLeastCompared ? QStringLiteral("is covered by letters") : QString();
}

// What differs between two folders, whatever lies in only one of them included; empty for nothing.
QStringList Differences(const QString& one, const QString& other) {
    const QDir::Filters files = QDir::Files | QDir::Hidden;
    QStringList names = QDir(one).entryList(files) + QDir(other).entryList(files);
    names.removeDuplicates();
    names.removeIf([&](const QString& name) {
        const auto a = ReadFileBytes(one + u'/' + name, kMaxFile);
        const auto b = ReadFileBytes(other + u'/' + name, kMaxFile);
        return a && b && *a == *b;
    });
    return names;
}

using Visit = std::function<void(const State& state, const ProgramFolder& program)>;

void VisitStates(const QString& skins, const Visit& visit) {
    for (const State& state : StatesIn(skins)) {
        const ProgramFolder program(skins, state.Skin);
        if (!state.Option.isEmpty())
            program.Apply(state.Option);
        visit(state, program);
    }
}

int Write(const QString& assets, const QString& skins) {
    int status = 0;
    VisitStates(skins, [&](const State& state, const ProgramFolder& program) {
        for (const Density& density : kDensities) {
            const QString path = skins + u'/' + state.Folder() + u'/' + QLatin1String(density.File);
            const Shot shot = TakeShot(assets, program, state, density.Ratio);
            // One that shows the same stays as it is: fonts of another machine are no reason to change it.
            if (Fault(QImage(path), shot).isEmpty())
                continue;
            if (const FileResult written = ReplaceFile(path, shot.Bytes); !written) {
                std::fprintf(stderr, "%s\n", qPrintable(written.error().Text()));
                status = 1;
            }
        }
    });
    return status;
}

int Check(const QString& assets, const QString& skins) {
    int faults = 0;
    const auto tell = [&faults](const QString& fault) {
        std::fprintf(stderr, "%s\n", qPrintable(fault));
        ++faults;
    };
    VisitStates(skins, [&](const State& state, const ProgramFolder& program) {
        for (const Density& density : kDensities) {
            const QString name = state.Folder() + u'/' + QLatin1String(density.File);
            const QString fault =
                Fault(QImage(skins + u'/' + name), TakeShot(assets, program, state, density.Ratio));
            if (!fault.isEmpty())
                tell(name + u' ' + fault);
        }
    });
    for (const QString& skin : Folders(skins)) {
        const ProgramFolder program(skins, skin);
        for (const QString& option : Folders(skins + u'/' + skin))
            program.Apply(option);
        program.Restore();
        for (const QString& file : Differences(skins + u'/' + skin, program.SkinPath()))
            tell(QStringLiteral("%1: the options cannot be taken back in %2").arg(skin, file));
    }
    return faults == 0 ? 0 : 1;
}

int WriteSheets(const QString& assets, const QString& skins, const QString& to) {
    QDir().mkpath(to);
    VisitStates(skins, [&](const State& state, const ProgramFolder& program) {
        QList<QImage> panels;
        for (const double perRow : {3.0, 4.0, 5.0, 9.0, 12.0})
            panels.append(OnDesktop(PaintSamplePanel({program.Path(), state.Skin, assets, 1, perRow}), 1));
        panels.append(OnDesktop(PaintSamplePanel({program.Path(), state.Skin, assets, 3}), 3));
        QSize size;
        for (const QImage& panel : panels)
            size = {size.width() + panel.width(), std::max(size.height(), panel.height())};
        QImage sheet(size, QImage::Format_RGB32);
        sheet.fill(Qt::gray);
        QPainter painter(&sheet);
        int left = 0;
        for (const QImage& panel : panels) {
            painter.drawImage(left, 0, panel);
            left += panel.width();
        }
        sheet.save(to + u'/' + state.Folder().replace(u'/', QStringLiteral(", ")) + QStringLiteral(".png"));
    });
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    // Whatever desktop there is, the pictures are the same.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    const QString assets = arguments.last();
    const QString skins = assets + QStringLiteral("/skin");
    if (arguments.size() < 2 || Folders(skins).isEmpty()) {
        std::fprintf(stderr, "usage: make_screenshots [--check | --sheets DIR] ASSETS\n");
        return 2;
    }
    if (arguments[1] == u"--check")
        return Check(assets, skins);
    if (arguments[1] == u"--sheets")
        return WriteSheets(assets, skins, arguments.value(2));
    return Write(assets, skins);
}
