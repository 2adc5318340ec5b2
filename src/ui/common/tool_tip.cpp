#include "ui/common/tool_tip.h"

#include <QStringList>

namespace paneda {

QString RichTip(const QString& tip) {
    constexpr int kLongTipLine = 60; // characters
    QStringList lines;
    for (const QString& line : tip.split(u'\n', Qt::SkipEmptyParts)) {
        const QString text = line.toHtmlEscaped();
        lines.append(line.size() > kLongTipLine ? text : QStringLiteral("<nobr>%1</nobr>").arg(text));
    }
    return lines.isEmpty()
               ? QString()
               : QStringLiteral("<p>") + lines.join(QStringLiteral("<br>")) + QStringLiteral("</p>");
}

} // namespace paneda
