#pragma once

#include <QListWidget>
#include <QStringList>

namespace paneda {

// A list of the organiser. Its entries are dragged to another place, and files of other windows are dropped
// onto it; both are only reported, and the list changes when ShowTitles is called.
class StoreList : public QListWidget {
    Q_OBJECT

public:
    explicit StoreList(QWidget* parent = nullptr);

    // Shows these lines and selects one (-1: none). The list keeps its scroll place as far as the selected
    // line stays in view. Reports no selection.
    void ShowTitles(const QStringList& titles, int selected);

    void TakeFiles(bool on) { takesFiles_ = on; }

Q_SIGNALS:
    void Moved(int from, int to);
    void FilesDropped(const QStringList& hostPaths);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    bool Takes(const QDropEvent& event) const;
    void Accept(QDropEvent& event) const;

    bool takesFiles_ = false;
};

} // namespace paneda
