#include "ui/organiser/source_lines.h"

#include <QMimeData>
#include <QUrl>

namespace paneda {

SourceLines::SourceLines(QWidget* parent) : QListWidget(parent) {
    setDragDropMode(DragOnly);
    setSelectionMode(ExtendedSelection);
    setUniformItemSizes(true);
    setSpacing(1);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QMimeData* SourceLines::mimeData(const QList<QListWidgetItem*>& lines) const {
    QList<QUrl> urls;
    for (const QListWidgetItem* line : lines) {
        const QString path = line->data(kHostPath).toString();
        if (!path.isEmpty())
            urls.append(QUrl::fromLocalFile(path));
    }
    // Without data there is no drag.
    if (urls.isEmpty())
        return nullptr;
    auto* files = new QMimeData;
    files->setUrls(urls);
    return files;
}

} // namespace paneda
