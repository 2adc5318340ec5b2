#include "ui/organiser/store_list.h"

#include <QDropEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QUrl>

namespace paneda {

namespace {

QStringList LocalFiles(const QMimeData* data) {
    QStringList files;
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return files;
}

} // namespace

StoreList::StoreList(QWidget* parent) : QListWidget(parent) {
    setEditTriggers(NoEditTriggers);
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setUniformItemSizes(true);
    setSpacing(1);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void StoreList::ShowTitles(const QStringList& titles, int selected) {
    const QSignalBlocker blocker(this);
    const int place = verticalScrollBar()->value();
    while (count() > titles.size())
        delete takeItem(count() - 1);
    for (int i = 0; i < titles.size(); ++i) {
        if (i == count())
            addItem(titles[i]);
        else if (item(i)->text() != titles[i])
            item(i)->setText(titles[i]);
        // A list is narrower than some names.
        item(i)->setToolTip(titles[i]);
    }
    verticalScrollBar()->setValue(place);
    setCurrentRow(selected);
}

bool StoreList::Takes(const QDropEvent& event) const {
    return event.source() == this || (takesFiles_ && !LocalFiles(event.mimeData()).isEmpty());
}

void StoreList::dragEnterEvent(QDragEnterEvent* event) {
    Takes(*event) ? Accept(*event) : event->ignore();
}

// A move would let the giver of the files delete them, while a button may only point at them; and after one
// of its own the list would remove the line by itself.
void StoreList::Accept(QDropEvent& event) const {
    event.setDropAction(event.source() == this && event.type() != QEvent::Drop ? Qt::MoveAction
                                                                               : Qt::CopyAction);
    event.accept();
}

void StoreList::dragMoveEvent(QDragMoveEvent* event) {
    if (!Takes(*event)) {
        event->ignore();
        return;
    }
    // Draws the line between two entries.
    QListWidget::dragMoveEvent(event);
    Accept(*event);
}

void StoreList::dropEvent(QDropEvent* event) {
    if (!Takes(*event)) {
        event->ignore();
        return;
    }
    if (event->source() == this) {
        const int from = currentRow();
        const QModelIndex target = indexAt(event->position().toPoint());
        const bool isBelow = dropIndicatorPosition() == BelowItem;
        const int gap = target.isValid() ? target.row() + (isBelow ? 1 : 0) : count();
        const int to = gap > from ? gap - 1 : gap;
        if (from >= 0 && to != from)
            Q_EMIT Moved(from, to);
    } else {
        Q_EMIT FilesDropped(LocalFiles(event->mimeData()));
    }
    Accept(*event);
    setState(NoState);
    viewport()->update();
}

} // namespace paneda
