#include "notes/rtf/links.h"
#include "notes/rtf/properties.h"

#include <QTextCharFormat>

namespace paneda {

namespace {

constexpr QStringView kKeyword = u"HYPERLINK";

// Takes the next part off the front of an instruction: a switch, a quoted text or a bare one.
QString TakePart(QStringView& rest, bool& isSwitch) {
    rest = rest.trimmed();
    isSwitch = rest.startsWith(u'\\') && rest.size() > 1 && rest[1].isLetter();
    const bool quoted = rest.startsWith(u'"');
    QString part;
    qsizetype at = quoted ? 1 : 0;
    for (; at < rest.size(); ++at) {
        const QChar c = rest[at];
        if (quoted ? c == u'"' : c.isSpace())
            break;
        const bool escapes =
            c == u'\\' && at + 1 < rest.size() && (rest[at + 1] == u'\\' || rest[at + 1] == u'"');
        part += escapes ? rest[++at] : c;
    }
    rest = rest.sliced(std::min(at + (quoted ? 1 : 0), rest.size()));
    return part;
}

} // namespace

QString LinkAddress(QStringView instruction) {
    QStringView rest = instruction.trimmed();
    if (!rest.startsWith(kKeyword, Qt::CaseInsensitive))
        return {};
    rest = rest.sliced(kKeyword.size());
    QString address;
    QString bookmark;
    QString lastSwitch;
    while (!rest.trimmed().isEmpty()) {
        bool isSwitch = false;
        const QString part = TakePart(rest, isSwitch);
        if (isSwitch) {
            lastSwitch = part.toLower();
            continue;
        }
        if (lastSwitch == u"\\l")
            bookmark = part;
        else if (lastSwitch.isEmpty() && address.isEmpty())
            address = part;
        lastSwitch.clear();
    }
    return bookmark.isEmpty() ? address : QString(address + u'#' + bookmark);
}

QString LinkInstruction(const QTextCharFormat& format) {
    const QString kept = format.stringProperty(RtfLinkInstruction);
    QString address = format.anchorHref();
    if (!kept.isEmpty() && LinkAddress(kept) == address)
        return kept;
    // Within the quotes of an instruction a backslash stands for itself only when it is doubled.
    const bool isLocal = address.startsWith(u'#');
    address = address.sliced(isLocal ? 1 : 0)
                  .replace(u'\\', QStringLiteral("\\\\"))
                  .replace(u'"', QStringLiteral("%22"));
    return (isLocal ? QStringLiteral("HYPERLINK \\l \"") : QStringLiteral("HYPERLINK \"")) + address + u'"';
}

} // namespace paneda
