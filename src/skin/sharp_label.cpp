#include "skin/sharp_label.h"

namespace paneda {

QStringList WrapLabel(const QString& text, double maxWidth, int maxLines,
                      const std::function<double(const QString&)>& measure) {
    QStringList closed;
    QString line;
    bool first = true;
    const QStringList words = text.split(u' ');
    for (const QString& word : words) {
        const QString tried = first ? word : line + u' ' + word;
        if (first || closed.size() + 1 >= maxLines || measure(tried) < maxWidth) {
            line = tried;
            first = false;
        } else {
            closed.append(line);
            line = word;
        }
    }
    closed.append(line);
    return closed;
}

} // namespace paneda
