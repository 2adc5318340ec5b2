#include "notes/rtf/write/links.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/read/links.h"

#include <QTextCharFormat>

namespace paneda {

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
