#include "core/names.h"

#include "core/prompts.h"
#include "core/text_rules.h"

#include <array>

namespace paneda {

namespace {

constexpr QStringView kForbiddenInFiles = u"\\/:*?\"<>|";
constexpr QStringView kForbiddenInTitles = u"\\/:*?\"<>|[]";
constexpr int kMaxExtension = 999;

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
        if (kForbiddenInFiles.contains(c))
            c = u'-';
    }
    return result;
}

QString TitleBehindPrefix(const QString& folderName) {
    return TrimBlanks(QStringView(folderName).sliced(folderName.indexOf(u']') + 1));
}

QString ButtonCaption(const QString& fileName) {
    return WithoutExtension(StripOrderPrefix(fileName));
}

QString NumberedName(int position, const QString& title) {
    return QStringLiteral("[%1] %2").arg(position, 3, 10, QLatin1Char('0')).arg(title);
}

bool IsImageExtension(const QString& extension) {
    static constexpr std::array<QStringView, 7> kPictures{u"PNG", u"ICO",  u"BMP", u"JPG",
                                                          u"JPE", u"JPEG", u"GIF"};
    for (const QStringView picture : kPictures) {
        if (SameName(extension, picture))
            return true;
    }
    return false;
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
