#include "core/files/path_conversion.h"

#include "core/text/text_rules.h"

namespace paneda {

namespace {

constexpr QStringView kUp = u"..\\";

} // namespace

QString ResolveRelativePath(const QString& path, const QString& app) {
    const int levels = CountOccurrences(path, kUp);
    if (levels == 0)
        return path;
    const QString rest = path.sliced(path.lastIndexOf(kUp) + kUp.size());
    return app.first(FindFromEnd(app, u"\\", levels)) + rest;
}

QString ToAbsolutePath(const QString& path, const QString& app) {
    if (CountOccurrences(path, kUp) > 0)
        return ResolveRelativePath(path, app);
    if (path.startsWith(u'\\'))
        return app.left(2) + path;
    if (path.size() > 1 && path[1] == u':')
        return path;
    if (TrimBlanks(path).isEmpty())
        return {};
    return app + u'\\' + path;
}

QString ToRelativePath(const QString& path, const QString& app) {
    QString rest = path;
    QString base = app + u'\\';
    if (rest.left(3) != base.left(3))
        return path;
    // The program in a drive's root: the base reads "E:\\".
    if (base.size() == 4)
        return path.mid(2);
    for (qsizetype length = rest.indexOf(u'\\') + 1; length > 0; length = rest.indexOf(u'\\') + 1) {
        if (rest.first(length) != base.left(length))
            break;
        rest.remove(0, length);
        base.remove(0, length);
    }
    return QStringLiteral("..\\").repeated(base.count(u'\\')) + rest;
}

QString ToPathWithoutDrive(const QString& path, const QString& app) {
    return ToAbsolutePath(path, app).mid(2);
}

} // namespace paneda
