#include "ui/organiser/source_lines.h"

#include "organiser/source_browser.h"

#include <QApplication>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace paneda {

SourceLines::SourceLines(QWidget* parent) : QListWidget(parent) {
    setDragDropMode(DragOnly);
    setSelectionMode(ExtendedSelection);
    setUniformItemSizes(true);
    setSpacing(1);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void SourceLines::keyboardSearch(const QString& typed) {
    const bool goesOn =
        searchedAt_.isValid() && !searchedAt_.hasExpired(QApplication::keyboardInputInterval());
    search_ = goesOn ? search_ + typed : typed;
    searchedAt_.start();
    // A single letter finds the next name, more of them stay with one that fits.
    const int first = currentRow() + (search_.size() > 1 ? 0 : 1);
    for (int i = 0; i < count() && !search_.isEmpty(); ++i) {
        const int row = (std::max(first, 0) + i) % count();
        const QString text = item(row)->text();
        const bool isFolder = text.startsWith(kFolderMarker);
        if (text.sliced(isFolder ? kFolderMarker.size() : 0).startsWith(search_, Qt::CaseInsensitive)) {
            setCurrentRow(row);
            return;
        }
    }
}

// After a move the list would remove the lines by itself.
void SourceLines::startDrag(Qt::DropActions) {
    QListWidget::startDrag(Qt::CopyAction);
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
