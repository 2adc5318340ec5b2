#include "core/store/names.h"

#include "core/prompts.h"
#include "core/text/text_rules.h"

#include <algorithm>
#include <array>

namespace paneda {

namespace {

constexpr QStringView kForbiddenInFiles = u"\\/:*?\"<>|";
constexpr QStringView kForbiddenInTitles = u"\\/:*?\"<>|[]";
constexpr int kMaxExtension = 999;

// Windows drops points and blanks at the end of a name, and then does not find what another system made.
QString WithoutLooseEnd(QString name) {
    while (name.endsWith(u'.') || name.endsWith(u' '))
        name.chop(1);
    return name;
}

// Names that Windows keeps for devices, whatever extension they have.
bool IsDeviceName(QStringView base) {
    static constexpr std::array<QStringView, 6> kDevices{u"CON", u"PRN",    u"AUX",
                                                         u"NUL", u"CONIN$", u"CONOUT$"};
    for (const QStringView device : kDevices) {
        if (SameName(base, device))
            return true;
    }
    // The superscript digits count as well.
    return base.size() == 4 && (SameName(base.first(3), u"COM") || SameName(base.first(3), u"LPT")) &&
           QStringView(u"123456789\u00B9\u00B2\u00B3").contains(base[3]);
}

} // namespace

QString StripOrderPrefix(const QString& text) {
    QString result = text;
    if (text.startsWith(u'['))
        result = TitleBehindPrefix(text);
    const qsizetype tag = result.indexOf(u'[');
    if (tag < 0)
        return result;
    return TrimBlanks(QStringView(result).first(tag)) + u'.' + ExtensionOf(text);
}

QString TagOf(const QString& name) {
    const qsizetype end = name.lastIndexOf(QStringLiteral("]."));
    if (end < 0)
        return {};
    const QStringView head = QStringView(name).first(end);
    return TrimBlanks(head.sliced(head.lastIndexOf(u'[') + 1));
}

QString ExtensionOf(const QString& name) {
    return name.mid(name.lastIndexOf(u'.') + 1, kMaxExtension);
}

QString WithoutExtension(const QString& name) {
    const qsizetype point = name.lastIndexOf(u'.');
    return point < 0 ? name : name.first(point);
}

QString WithoutLnk(const QString& name) {
    return SameName(ExtensionOf(name), u"lnk") ? WithoutExtension(name) : name;
}

QString SafeFileName(const QString& text) {
    QString result = text;
    for (QChar& c : result) {
        if (kForbiddenInFiles.contains(c) || c < u' ')
            c = u'-';
    }
    result = WithoutLooseEnd(result);
    // A name of nothing else would stand for the folder that it is to lie in.
    if (result.isEmpty() && !text.isEmpty())
        return QStringLiteral("-");
    const qsizetype point = result.indexOf(u'.');
    const QString base = WithoutLooseEnd(point < 0 ? result : result.first(point));
    return IsDeviceName(base) ? result.insert(base.size(), u'-') : result;
}

QString TitleBehindPrefix(const QString& folderName) {
    return TrimBlanks(QStringView(folderName).sliced(folderName.indexOf(u']') + 1));
}

QString ButtonCaption(const QString& fileName) {
    return WithoutExtension(StripOrderPrefix(fileName));
}

QString OrderPrefix(int position) {
    return QStringLiteral("[%1] ").arg(position, 3, 10, QLatin1Char('0'));
}

QString NumberedName(int position, const QString& title) {
    return WithoutLooseEnd(OrderPrefix(position) + title);
}

QString NumberedFileName(int position, const QString& title, const QString& tag, const QString& extension) {
    return OrderPrefix(position) + TrimBlanks(title) + QStringLiteral(" [") + tag + QStringLiteral("].") +
           extension;
}

bool IsImageExtension(const QString& extension) {
    return std::any_of(kPictureExtensions.begin(), kPictureExtensions.end(),
                       [&extension](QStringView picture) { return SameName(extension, picture); });
}

QString NameProblem(const QString& name, const QStringList& titles, int exceptIndex) {
    for (const QChar c : name) {
        if (kForbiddenInTitles.contains(c))
            return QStringLiteral("A name cannot contain any of the following characters:\r"
                                  "\\ / : * ? \" < > | [ ]");
    }
    for (qsizetype i = 0; i < titles.size(); ++i) {
        if (i != exceptIndex && name.toUpper() == titles[i].toUpper())
            return QStringLiteral("Duplicate Name");
    }
    return {};
}

bool ValidateName(const QString& name, const QStringList& titles, int exceptIndex, Prompts& prompts) {
    const QString problem = NameProblem(name, titles, exceptIndex);
    if (problem.isEmpty())
        return false;
    prompts.Notice(problem);
    return true;
}

} // namespace paneda
