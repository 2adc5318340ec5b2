#include "desktop/desktop.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QSet>

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
    ToolOutput(kXdotool, words);
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
    QPoint place(-1, -1);
    const QStringList words{u"getwindowgeometry"_s, u"--shell"_s, window};
    for (const QString& line : ToolOutput(kXdotool, words).split(u'\n')) {
        if (line.startsWith(u"X="))
            place.setX(line.sliced(2).toInt());
        else if (line.startsWith(u"Y="))
            place.setY(line.sliced(2).toInt());
    }
    return place;
}

QImage WindowPicture(const QString& window) {
    return QGuiApplication::primaryScreen()->grabWindow(WId(window.toULongLong())).toImage();
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
    const QString text = u"cd '%1' && find . -mindepth 1 '(' -type f -exec md5sum '{}' ';' ')' -o "
                         "-printf '%y  %p\\n'"_s.arg(folder);
    TreePicture picture;
    for (const QString& line : ToolOutput(u"sh"_s, {u"-c"_s, text}).split(u'\n', Qt::SkipEmptyParts))
        picture[line.section(u"./"_s, 1)] = line.section(u"./"_s, 0, 0);
    return picture;
}

QString Difference(const TreePicture& before, const TreePicture& after) {
    TreePicture both = before;
    both.insert(after);
    // Installed files are no part of the store, and pictures of categories are made and dropped at any start.
    static const QRegularExpression leftOut(u"^(skin|Sound|Icons|help)/|^Cache/category[0-9]+a?\\.png$"_s);
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
