#include "ui/notes/ucTree.h"

#include "core/text/device_pixels.h"
#include "notes/tree_store.h"
#include "ui/common/dtVisualScrollBar.h"
#include "ui/notes/tree_accessible.h"
#include "ui/notes/tree_actions.h"
#include "ui/notes/tree_find.h"

#include <QPainter>
#include <QWindow>

#include <algorithm>

namespace paneda {

namespace {

constexpr int kMostStrips = 300;

} // namespace

ucTree::ucTree(TreeDesk& desk, int treeIndex, QWidget* parent)
    : QWidget(parent)
    , desk_(desk)
    , treeIndex_(treeIndex)
    , model_(desk.State.AppPath)
    , facts_(desk.State, desk.Services.FileIcons, model_)
    , actions_(std::make_unique<TreeActions>(desk, *this))
    , dtVisualScrollBar1_(new dtVisualScrollBar(this))
    , find_(new TreeFind(desk, *this)) {
    setObjectName(QStringLiteral("ucTree%1").arg(treeIndex));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAcceptDrops(true);
    model_.SetListener(this);
    model_.SetDiskWork(actions_->ShownWork());
    facts_.Changed = [this](int row) {
        strips_.remove(row);
        update();
    };
    dtVisualScrollBar1_->setObjectName(QStringLiteral("dtVisualScrollBar1"));
    dtVisualScrollBar1_->setFocusPolicy(Qt::NoFocus);
    dtVisualScrollBar1_->SetAutoSize(true);
    dtVisualScrollBar1_->hide();
    connect(dtVisualScrollBar1_, &dtVisualScrollBar::Change, this, qOverload<>(&QWidget::update));
    connect(find_, &TreeFind::HeightChanged, this, &ucTree::ResizeCanvas);
    LookChanged();
}

ucTree::~ucTree() {
    model_.SetListener(nullptr);
}

void ucTree::SetTreePath(const QString& treeName) {
    setAccessibleName(treeName);
    TreeSettings settings;
    // The content folder may lie on a slow disk. A copy, since the drives are read again meanwhile.
    actions_->ShownWork()(
        [&settings, &treeName, state = desk_.State] { settings = ReadTreeSettings(state, treeName); });
    model_.Open(treeName, settings, treeIndex_);
}

void ucTree::LookChanged() {
    dtVisualScrollBar1_->SetPictures(desk_.Look.ScrollBar);
    dtVisualScrollBar1_->SetBackColor(desk_.Look.Background);
    ratio_ = 0;
    ResizeCanvas();
}

// Of the screen that the window is on; a widget's own ratio is rounded.
double ucTree::Ratio() const {
    const QWindow* handle = window()->windowHandle();
    return PictureRatio(handle ? handle->devicePixelRatio() : devicePixelRatioF());
}

TreeView ucTree::View() const {
    return {int(model_.Nodes().size()), PixelsToTwips(height() - find_->TakenHeight())};
}

int ucTree::Scrolled() const {
    return dtVisualScrollBar1_->isHidden() ? 0 : dtVisualScrollBar1_->Value();
}

void ucTree::ResizeCanvas() {
    const TreeView view = View();
    const int top = find_->TakenHeight();
    const int most = view.MostScrolled();
    dtVisualScrollBar1_->setGeometry(width() - dtVisualScrollBar1_->width(), top,
                                     dtVisualScrollBar1_->width(), height() - top);
    if (most > 0) {
        constexpr int kLargest = 32767;
        dtVisualScrollBar1_->SetMax(most);
        dtVisualScrollBar1_->SetSmallChange(TreeModel::RowHeight);
        dtVisualScrollBar1_->SetLargeChange(std::clamp(view.Height, 1, kLargest));
    } else {
        dtVisualScrollBar1_->SetValue(0);
    }
    dtVisualScrollBar1_->setVisible(most > 0);
    update();
}

void ucTree::RowsChanged() {
    find_->TreeHasChanged();
    ResizeCanvas();
}

void ucTree::TreeLoaded() {
    boxWasLoaded_.assign(model_.Nodes().size() + 1, false);
    for (const TreeNode& node : model_.Nodes())
        boxWasLoaded_[std::size_t(node.RowIndex)] = node.ExpandState != BranchState::Leaf;
    facts_.Clear();
    strips_.clear();
    lastPosition_ = -1;
    setToolTip({});
    dtVisualScrollBar1_->SetValue(0);
    RowsChanged();
}

void ucTree::RowsAdded(int position, int count) {
    for (int i = position; i < position + count; ++i) {
        const std::size_t row = std::size_t(model_.Nodes()[std::size_t(i)].RowIndex);
        if (row >= boxWasLoaded_.size())
            boxWasLoaded_.resize(row + 1, false);
        boxWasLoaded_[row] = false;
    }
    RowsChanged();
}

void ucTree::RowsRemoved(int, const std::vector<int>& rows) {
    facts_.Drop(rows);
    for (const int row : rows)
        strips_.remove(row);
    RowsChanged();
}

void ucTree::RowChanged(int row) {
    const TreeNode* node = model_.Find(row);
    if (node && node->ExpandState == BranchState::Leaf && std::size_t(row) < boxWasLoaded_.size())
        boxWasLoaded_[std::size_t(row)] = false;
    facts_.MarkOld(row);
    strips_.remove(row);
    find_->TreeHasChanged();
    update();
}

void ucTree::SelectRow(int row) {
    strips_.remove(model_.SelectedRow());
    strips_.remove(row);
    model_.SelectRow(row);
    lastPosition_ = SelectedPosition();
    update();
    AnnounceSelection();
}

void ucTree::AnnounceSelection() {
    AnnounceTreeRow(*this, SelectedPosition());
}

void ucTree::ScrollTo(int row) {
    const int position = model_.PositionOf(row);
    if (position >= 0 && !dtVisualScrollBar1_->isHidden())
        dtVisualScrollBar1_->SetValue(View().ScrolledTo(position, Scrolled()));
}

int ucTree::StripWidthOf(const TreeNode& node, std::optional<RecentChange> change) const {
    return StripWidth(RowTextWidth(node.Name, desk_.Look, Ratio()), change.has_value());
}

std::optional<RecentChange> ucTree::ChangeOf(int row) {
    const RowFacts::Facts* facts = facts_.Want(row);
    return facts ? RecentChangeOf(facts->LastEdit, QDateTime::currentDateTime(),
                                  desk_.State.RecentChangeIndicator)
                 : std::nullopt;
}

TreeRowPlace ucTree::PlaceOf(int position, int stripWidth) const {
    const TreeNode& node = model_.Nodes()[std::size_t(position)];
    const std::size_t row = std::size_t(node.RowIndex);
    return PlaceOfRow(position, node.Level, row < boxWasLoaded_.size() && boxWasLoaded_[row], stripWidth);
}

QRect ucTree::OnView(const TwipsRect& rect) const {
    return ToPixels(rect).translated(0, find_->TakenHeight() - TwipsToPixels(Scrolled()));
}

QRect ucTree::RowRect(int position) const {
    if (position < 0 || position >= int(model_.Nodes().size()))
        return {};
    const auto strip = strips_.constFind(model_.Nodes()[std::size_t(position)].RowIndex);
    const int width = strip != strips_.constEnd()
                          ? strip->Width
                          : StripWidthOf(model_.Nodes()[std::size_t(position)], std::nullopt);
    const TreeRowPlace place = PlaceOf(position, width);
    return OnView(place.Icon).united(OnView(place.Strip));
}

ucTree::Spot ucTree::SpotAt(const QPoint& place) const {
    const int canvasTop = PixelsToTwips(place.y() - find_->TakenHeight()) + Scrolled();
    const int position = View().PositionAt(canvasTop);
    if (position < 0)
        return {};
    const TreeNode& node = model_.Nodes()[std::size_t(position)];
    const auto strip = strips_.constFind(node.RowIndex);
    const TreeRowPlace row =
        PlaceOf(position, strip == strips_.constEnd() ? StripWidthOf(node, std::nullopt) : strip->Width);
    // Where the strips of rows and their icons share a line of pixels, the row's own strip counts.
    const auto spans = [x = PixelsToTwips(place.x())](const TwipsRect& rect) {
        return x >= rect.Left && x < rect.Right();
    };
    if (spans(row.Strip))
        return {TreePart::Strip, position};
    if (spans(row.Icon))
        return {TreePart::Icon, position};
    if (node.ExpandState != BranchState::Leaf && spans(row.Box))
        return {TreePart::Box, position};
    return {};
}

QPoint ucTree::PlaceBelow(int row) const {
    const QRect rect = RowRect(model_.PositionOf(row));
    return mapToGlobal(rect.isEmpty() ? QPoint()
                                      : QPoint(std::min(rect.center().x(), width() / 2), rect.bottom()));
}

void ucTree::ForgetPictures() {
    strips_.clear();
    facts_.SetRatio(ratio_);
    noteSign_ = PaintNodeSign(NodeSign::Note, ratio_);
    shortcutSign_ = PaintNodeSign(NodeSign::Shortcut, ratio_);
    favoriteSign_ = PaintNodeSign(NodeSign::Favorite, ratio_);
    plus_ = PaintBranchBox(false, desk_.Look, ratio_);
    minus_ = PaintBranchBox(true, desk_.Look, ratio_);
}

QImage ucTree::IconOf(const TreeNode& node) {
    const RowFacts::Facts* facts = facts_.Want(node.RowIndex);
    if (facts && !facts->Icon.isNull())
        return facts->Icon;
    if (node.Type == kUrlNode)
        return favoriteSign_;
    return node.Type == kFileNode ? shortcutSign_ : noteSign_;
}

const ucTree::Strip& ucTree::StripOf(int position, double ratio) {
    const TreeNode& node = model_.Nodes()[std::size_t(position)];
    const auto known = strips_.constFind(node.RowIndex);
    if (known != strips_.constEnd())
        return *known;
    const auto change = ChangeOf(node.RowIndex);
    const int strip = StripWidthOf(node, change);
    const int viewWidth = PixelsToTwips(width() - dtVisualScrollBar1_->width());
    const int indicator = IndicatorLeft(strip, PlaceOf(position, strip).Strip.Left, viewWidth);
    const StripWish wish{node, strip, node.RowIndex == model_.SelectedRow(), change, indicator};
    return *strips_.insert(node.RowIndex, {PaintStrip(wish, desk_.Look, ratio), strip});
}

void ucTree::DrawRow(QPainter& painter, int position, double ratio) {
    const TreeNode& node = model_.Nodes()[std::size_t(position)];
    const Strip& strip = StripOf(position, ratio);
    const TreeRowPlace place = PlaceOf(position, strip.Width);
    const QRect target = DeviceRect(OnView(place.Strip), ratio);
    // Between two rows a line of pixels more or less is left by the rounding of their places.
    painter.drawImage(target.topLeft(), strip.Picture, QRect(QPoint(), target.size()));
    const auto draw = [&](const TwipsRect& rect, const QImage& picture) {
        painter.drawImage(DeviceRect(OnView(rect), ratio).topLeft(), picture);
    };
    draw(place.Icon, IconOf(node));
    if (node.ExpandState != BranchState::Leaf)
        draw(place.Box, node.ExpandState == BranchState::Expanded ? minus_ : plus_);
}

QImage ucTree::Compose(double ratio) {
    QImage picture(DeviceSize(size(), ratio), QImage::Format_ARGB32_Premultiplied);
    picture.fill(desk_.Look.Background);
    if (ratio != ratio_) {
        ratio_ = ratio;
        ForgetPictures();
    }
    QPainter painter(&picture);
    const auto [first, last] = View().SeenRows(Scrolled());
    for (int position = first; position <= last; ++position)
        DrawRow(painter, position, ratio);
    return picture;
}

void ucTree::paintEvent(QPaintEvent*) {
    const double ratio = Ratio();
    QImage picture = Compose(ratio);
    PruneStrips();
    QPainter painter(this);
    // By the ratio that the painter has, each pixel becomes one.
    picture.setDevicePixelRatio(devicePixelRatioF());
    if (DeviceSize(size(), devicePixelRatioF()) == picture.size())
        painter.drawImage(0, 0, picture);
    else
        painter.drawImage(rect(), picture);
    DrawHint(painter);
    DrawDropMark(painter);
}

// An empty tree says how to begin; a tool tip alone would have to be found.
QString ucTree::Hint(const QRect& room) const {
    if (treeIndex_ == 0)
        return QStringLiteral("Click here to choose a tree");
    const QString tip = model_.CanvasTip();
    const QRect taken = fontMetrics().boundingRect(room, Qt::TextWordWrap, tip);
    // In a small panel the first step has to do.
    return taken.height() <= room.height() ? tip : tip.section(u',', 0, 0);
}

void ucTree::DrawHint(QPainter& painter) const {
    constexpr int kRoom = 12;
    constexpr double kQuiet = 0.75;
    const QRect room = rect().adjusted(kRoom, kRoom + find_->TakenHeight(), -kRoom, -kRoom);
    painter.setOpacity(kQuiet);
    painter.setPen(desk_.Look.Label);
    painter.drawText(room, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, Hint(room));
    painter.setOpacity(1);
}

void ucTree::DrawDropMark(QPainter& painter) const {
    if (!dropPlace_)
        return;
    const int canvasTop = PixelsToTwips(dropPlace_->y() - find_->TakenHeight()) + Scrolled();
    const DropGoal goal = DropGoalAt(model_.Nodes(), canvasTop);
    const QRect row = RowRect(goal.Position);
    if (row.isEmpty())
        return;
    constexpr int kLine = 2;
    painter.setPen(QPen(desk_.Look.Label, 1));
    if (goal.Where == NodePosition::Child)
        painter.drawRect(row.adjusted(-1, 0, 0, -1));
    else
        painter.fillRect(row.left(), goal.Where == NodePosition::Above ? row.top() : row.bottom(),
                         width() - row.left() - dtVisualScrollBar1_->width(), kLine, desk_.Look.Label);
}

void ucTree::PruneStrips() {
    if (strips_.size() <= kMostStrips)
        return;
    const auto [first, last] = View().SeenRows(Scrolled());
    QHash<int, Strip> seen;
    for (int position = first; position <= last; ++position) {
        const int row = model_.Nodes()[std::size_t(position)].RowIndex;
        seen.insert(row, strips_.take(row));
    }
    strips_ = std::move(seen);
}

} // namespace paneda
