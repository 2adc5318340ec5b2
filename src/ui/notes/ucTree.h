#pragma once

#include "notes/tree_geometry.h"
#include "notes/tree_input.h"
#include "notes/tree_model.h"
#include "ui/notes/row_facts.h"
#include "ui/notes/tree_services.h"

#include <QElapsedTimer>
#include <QHash>
#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

namespace paneda {

class dtVisualScrollBar;
class TreeActions;
class TreeFind;

// Shows one tree. Its rows are painted when they are seen, each into a picture of its own that is kept while
// it is seen. All that a user does to the nodes is in TreeActions.
class ucTree : public QWidget, private TreeListener {
    Q_OBJECT

public:
    // `desk` has to outlive it.
    ucTree(TreeDesk& desk, int treeIndex, QWidget* parent = nullptr);
    ~ucTree() override;

    // Reads the settings of a tree and shows its top level.
    void SetTreePath(const QString& treeName);
    const QString& TreePath() const { return model_.TreePath(); }
    int TreeIndex() const { return treeIndex_; }
    QColor BackColor() const { return desk_.Look.Background; }

    TreeModel& Model() { return model_; }
    const TreeModel& Model() const { return model_; }
    TreeActions& Actions() { return *actions_; }

    // The hourglass, or the pointer that the state of things asks for.
    void ChangeMousePointer(bool isBusy);
    // The skin has been read again.
    void LookChanged();

    // Paints the row selected, scrolled into view; -1 selects none.
    void SelectRow(int row);
    // Puts a row where it is seen.
    void ScrollTo(int row);

    // Pixels of this widget. Empty for a row that is not in the list.
    QRect RowRect(int position) const;
    // What lies at a place: the part of a row, and its position; the canvas and -1 elsewhere.
    struct Spot {
        TreePart Part = TreePart::Canvas;
        int Position = -1;
    };
    Spot SpotAt(const QPoint& place) const;
    // A place below a row's name for what is opened by a key; pixels of the desktop.
    QPoint PlaceBelow(int row) const;

    void OpenFindLine();
    // Opens or closes a branch.
    void ToggleNode(int row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Strip {
        QImage Picture;
        int Width = 0; // twips
    };

    void TreeLoaded() override;
    void RowsAdded(int position, int count) override;
    void RowsRemoved(int position, const std::vector<int>& rows) override;
    void RowChanged(int row) override;

    double Ratio() const;
    TreeView View() const;
    int Scrolled() const;
    void ResizeCanvas();
    void RowsChanged();
    void AnnounceSelection();
    void ForgetPictures();

    QImage Compose(double ratio);
    void DrawRow(QPainter& painter, int position, double ratio);
    QString Hint(const QRect& room) const;
    void DrawHint(QPainter& painter) const;
    void DrawDropMark(QPainter& painter) const;
    const Strip& StripOf(int position, double ratio);
    QImage IconOf(const TreeNode& node);
    int StripWidthOf(const TreeNode& node, std::optional<RecentChange> change) const;
    std::optional<RecentChange> ChangeOf(int row);
    TreeRowPlace PlaceOf(int position, int stripWidth) const;
    QRect OnView(const TwipsRect& rect) const;
    void PruneStrips();

    void Press(const QMouseEvent& event);
    bool StepByKey(int key);
    void TypeToFind(const QString& text);
    int SelectedPosition() const { return model_.PositionOf(model_.SelectedRow()); }
    void UpdatePointer(const QPoint& place);
    QString TipAt(const QPoint& place) const;

    TreeDesk& desk_;
    int treeIndex_;
    TreeModel model_;
    RowFacts facts_;
    std::unique_ptr<TreeActions> actions_;
    dtVisualScrollBar* dtVisualScrollBar1_;
    TreeFind* find_;
    QHash<int, Strip> strips_; // by row
    double ratio_ = 0;         // that the pictures are for
    QImage noteSign_;
    QImage shortcutSign_;
    QImage favoriteSign_;
    QImage plus_;
    QImage minus_;
    // By row: its expand box has been there since the tree was loaded.
    std::vector<bool> boxWasLoaded_;
    int lastPosition_ = -1; // of the row that was selected last, where keys go on from
    QString typed_;
    QElapsedTimer sinceTyped_;
    bool isBusy_ = false;
    std::optional<QPoint> dropPlace_;
};

} // namespace paneda
