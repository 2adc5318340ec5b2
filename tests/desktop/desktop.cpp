#include "desktop/desktop.h"

#include "ui/common/qt_prompts.h"

#include <QGuiApplication>
#include <QMessageBox>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QSet>
#include <QTest>

#include <utility>

namespace paneda::test {

using namespace Qt::StringLiterals;

namespace {

const QString kXdotool = u"xdotool"_s;
const QString kXprop = u"xprop"_s;

QString Property(const QString& window, const QString& name) {
    return ToolOutput(kXprop, {u"-id"_s, window, name});
}

} // namespace

QString ToolOutput(const QString& tool, const QStringList& arguments) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(tool, arguments);
    return process.waitForFinished() ? QString::fromUtf8(process.readAllStandardOutput()) : QString();
}

bool IsPrivateDesktop() {
    const QByteArray scratch = qgetenv("WITH_DESKTOP_SCRATCH");
    return !scratch.isEmpty() && qgetenv("HOME").startsWith(scratch);
}

void ClickAt(const QPoint& place, int button, const QStringList& heldKeys) {
    QStringList words{u"mousemove"_s, QString::number(place.x()), QString::number(place.y())};
    for (const QString& key : heldKeys)
        words << u"keydown"_s << key;
    words << u"click"_s << QString::number(button);
    for (const QString& key : heldKeys)
        words << u"keyup"_s << key;
    Xdotool(words);
}

void Xdotool(const QStringList& words) {
    ToolOutput(kXdotool, words);
}

void MoveMouse(const QPoint& place) {
    Xdotool({u"mousemove"_s, QString::number(place.x()), QString::number(place.y())});
}

void Drag(const QPoint& from, const QPoint& by) {
    constexpr int kSteps = 4;
    MoveMouse(from);
    Xdotool({u"mousedown"_s, u"1"_s});
    for (int i = 1; i <= kSteps; ++i)
        MoveMouse(from + by * i / kSteps);
    Xdotool({u"mouseup"_s, u"1"_s});
}

void PressKey(const QString& key) {
    ToolOutput(kXdotool, {u"key"_s, key});
}

QString FindWindow(const QString& title, qint64 processId) {
    QStringList words{u"search"_s, u"--all"_s};
    if (processId != 0)
        words << u"--pid"_s << QString::number(processId);
    words << u"--name"_s << u"^%1$"_s.arg(title);
    const QStringList windows = ToolOutput(kXdotool, words).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& window : windows) {
        if (!WindowState(window).isEmpty())
            return window;
    }
    return {};
}

QString WindowState(const QString& window) {
    const QString state = Property(window, u"WM_STATE"_s);
    for (const char* name : {"Normal", "Iconic"}) {
        if (state.contains(u"window state: "_s + QLatin1StringView(name)))
            return QString::fromLatin1(name);
    }
    return {};
}

bool IsMaximized(const QString& window) {
    const QString state = Property(window, u"_NET_WM_STATE"_s);
    return state.contains(u"_NET_WM_STATE_MAXIMIZED_HORZ") && state.contains(u"_NET_WM_STATE_MAXIMIZED_VERT");
}

QPoint WindowPlace(const QString& window) {
    return WindowRect(window).topLeft();
}

QRect WindowRect(const QString& window) {
    static const QRegularExpression numbers(
        u"Absolute upper-left X: +(-?\\d+)\\s+Absolute upper-left Y: +(-?\\d+).*"
        "Width: +(\\d+)\\s+Height: +(\\d+)"_s,
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = numbers.match(ToolOutput(u"xwininfo"_s, {u"-id"_s, window}));
    const auto number = [&match](int i) { return match.captured(i).toInt(); };
    return match.hasMatch() ? QRect(number(1), number(2), number(3), number(4)) : QRect(-1, -1, 0, 0);
}

QRect RectOf(const QString& nameAndClass, const QSize& least) {
    const QRegularExpression place(QRegularExpression::escape(nameAndClass) +
                                   u"  (\\d+)x(\\d+)\\S+  \\+(-?\\d+)\\+(-?\\d+)"_s);
    QRect rect;
    for (const QString& line : ToolOutput(u"xwininfo"_s, {u"-root"_s, u"-tree"_s}).split(u'\n')) {
        const QRegularExpressionMatch match = place.match(line);
        const auto number = [&match](int i) { return match.captured(i).toInt(); };
        if (match.hasMatch() && number(1) >= least.width() && number(2) >= least.height())
            rect = QRect(number(3), number(4), number(1), number(2));
    }
    return rect;
}

QImage WindowPicture(const QString& window) {
    return QGuiApplication::primaryScreen()->grabWindow(WId(window.toULongLong())).toImage();
}

QImage PictureOfBox(const QString& title, const QString& text) {
    constexpr int kPainted = 3; // colours; a window that is mapped and not painted has one or two
    const auto box = MakeNotice(title, text, nullptr);
    box->show();
    const QString window = QString::number(box->winId());
    QImage picture;
    const auto settles = [&] {
        const QImage last = std::exchange(picture, WindowPicture(window));
        return box->isActiveWindow() && last == picture && CountColours(picture) >= kPainted;
    };
    return QTest::qWaitFor(settles, 10'000) ? picture : QImage();
}

int CountColours(const QImage& picture) {
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            colours.insert(picture.pixel(x, y));
    }
    return int(colours.size());
}

QString ChildrenOf(qint64 processId) {
    const QString text = u"grep -lsx 'PPid:\t%1' /proc/[0-9]*/status"_s.arg(processId);
    return ToolOutput(u"sh"_s, {u"-c"_s, text});
}

TreePicture PictureOfTree(const QString& folder) {
    const QString text = u"cd '%1' && find . -mindepth 1 '(' -type f -exec md5sum '{}' + ')' -o "
                         "-printf '%y  %p\\n'"_s.arg(folder);
    TreePicture picture;
    for (const QString& line : ToolOutput(u"sh"_s, {u"-c"_s, text}).split(u'\n', Qt::SkipEmptyParts))
        picture[line.section(u"./"_s, 1)] = line.section(u"./"_s, 0, 0);
    return picture;
}

QString Difference(const TreePicture& before, const TreePicture& after) {
    TreePicture both = before;
    both.insert(after);
    // Installed files are no part of the store. Pictures of categories are made and dropped at any start, and
    // the program may just be writing one.
    static const QRegularExpression leftOut(
        u"^(skin|Sound|Icons|help)/|^Cache/(category[0-9]+a?\\.png|\\.paneda-.*)$"_s);
    QStringList result;
    for (const QString& name : both.keys()) {
        if (name.contains(leftOut))
            continue;
        if (!before.contains(name))
            result.append(u'+' + name);
        else if (!after.contains(name))
            result.append(u'-' + name);
        else if (before[name] != after[name])
            result.append(u'~' + name);
    }
    return result.join(u' ');
}

} // namespace paneda::test
