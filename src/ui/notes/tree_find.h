#pragma once

#include "notes/tree_search.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class QLabel;
class QLineEdit;

namespace paneda {

class ucTree;
struct TreeDesk;

// The line above a tree that finds nodes by name and description in all its branches. The tree is read on
// another thread whenever the line is opened, and again when it has changed.
class TreeFind : public QWidget {
    Q_OBJECT

public:
    TreeFind(TreeDesk& desk, ucTree& tree);

    // Shows the line and puts the cursor into it.
    void Open();
    // Puts it at the top of the tree, which has got another size.
    void Place();
    // What it takes of the tree's height, in pixels.
    int TakenHeight() const { return isHidden() ? 0 : height(); }
    // Shows the next hit, or with -1 the one before, around the ends. Opens a line that is closed.
    void Walk(int step);
    // The next search reads the tree again.
    void TreeHasChanged();
    // Opens or closes branches, which changes nothing that can be found.
    void WithSameNodes(const std::function<void()>& change);

Q_SIGNALS:
    void HeightChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void UseColours();
    void Close();
    void ReadIndex();
    void TakeIndex(const std::shared_ptr<const TreeIndex>& index);
    void Search();
    void ShowHit();
    void TellHit();
    void Tell(const QString& text);

    TreeDesk& desk_;
    ucTree& tree_;
    QLineEdit* line_;
    QLabel* count_;
    std::shared_ptr<const TreeIndex> index_; // null until the tree has been read
    int reading_ = 0;                        // number of the reading whose result counts
    bool isReading_ = false;
    std::vector<TreeHit> hits_;
    int current_ = -1;         // among the hits
    bool isSameNodes_ = false; // what changes in the list is not in the index
};

} // namespace paneda
