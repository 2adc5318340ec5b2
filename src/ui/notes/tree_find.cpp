#include "ui/notes/tree_find.h"

#include "core/text/text_rules.h"
#include "ui/common/run_aside.h"
#include "ui/notes/tree_services.h"
#include "ui/notes/ucTree.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>
#include <utility>

namespace paneda {

TreeFind::TreeFind(TreeDesk& desk, ucTree& tree)
    : QWidget(&tree), desk_(desk), tree_(tree), line_(new QLineEdit(this)), count_(new QLabel(this)) {
    setAutoFillBackground(true);
    line_->setObjectName(QStringLiteral("txtFind"));
    line_->setPlaceholderText(QStringLiteral("Find in this tree"));
    line_->setAccessibleName(line_->placeholderText());
    line_->setClearButtonEnabled(true);
    count_->setObjectName(QStringLiteral("lblFound"));
    auto* row = new QHBoxLayout(this);
    constexpr int kRoom = 3;
    row->setContentsMargins(kRoom, kRoom, kRoom, kRoom);
    row->addWidget(line_, 1);
    row->addWidget(count_);
    line_->installEventFilter(this);
    connect(line_, &QLineEdit::textEdited, this, &TreeFind::Search);
    hide();
}

void TreeFind::UseColours() {
    QPalette colours = palette();
    colours.setColor(QPalette::Window, desk_.Look.Background);
    colours.setColor(QPalette::Base, desk_.Look.Background);
    colours.setColor(QPalette::Highlight, desk_.Look.Highlight);
    colours.setColor(QPalette::HighlightedText, desk_.Look.HighlightLabel);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(role, desk_.Look.Label);
    QColor faint = desk_.Look.Label;
    constexpr double kFaint = 0.6;
    faint.setAlphaF(kFaint);
    colours.setColor(QPalette::PlaceholderText, faint);
    setPalette(colours);
}

void TreeFind::Open() {
    const bool wasHidden = isHidden();
    UseColours();
    show();
    // The keys may have come by way of the panel.
    window()->activateWindow();
    Place();
    line_->setFocus(Qt::ShortcutFocusReason);
    line_->selectAll();
    // Others may have changed the tree since it was read; until it has been, the old index answers.
    if (wasHidden || !index_)
        ReadIndex();
    if (wasHidden)
        Q_EMIT HeightChanged();
}

void TreeFind::Close() {
    hide();
    tree_.setFocus(Qt::OtherFocusReason);
    Q_EMIT HeightChanged();
}

void TreeFind::Place() {
    setGeometry(0, 0, tree_.width(), sizeHint().height());
}

void TreeFind::TreeHasChanged() {
    if (isSameNodes_)
        return;
    index_.reset();
    if (isReading_)
        ReadIndex();
}

void TreeFind::WithSameNodes(const std::function<void()>& change) {
    const bool before = std::exchange(isSameNodes_, true);
    change();
    isSameNodes_ = before;
}

void TreeFind::ReadIndex() {
    isReading_ = true;
    if (!index_)
        Tell(QStringLiteral("reading"));
    const QString appPath = desk_.State.AppPath;
    RunAside<std::shared_ptr<const TreeIndex>>(
        *this,
        [content = tree_.TreePath(), appPath] {
            return std::make_shared<const TreeIndex>(ReadTreeIndex(content, appPath));
        },
        [this, number = ++reading_](const std::shared_ptr<const TreeIndex>& index) {
            if (number == reading_)
                TakeIndex(index);
        });
}

void TreeFind::TakeIndex(const std::shared_ptr<const TreeIndex>& index) {
    isReading_ = false;
    index_ = index;
    if (current_ < 0) {
        if (!isHidden())
            Search();
        return;
    }
    // The user has walked on from this hit, or stays at it.
    const TreeHit shown = hits_[std::size_t(current_)];
    hits_ = FindInTree(*index_, line_->text());
    const auto found = std::find(hits_.begin(), hits_.end(), shown);
    current_ = found == hits_.end() ? std::min(current_, int(hits_.size()) - 1) : int(found - hits_.begin());
    TellHit();
}

void TreeFind::Search() {
    hits_.clear();
    current_ = -1;
    if (!index_) {
        if (!isReading_)
            ReadIndex();
        return;
    }
    hits_ = FindInTree(*index_, line_->text());
    current_ = hits_.empty() ? -1 : 0;
    ShowHit();
}

void TreeFind::TellHit() {
    if (current_ >= 0)
        Tell(QStringLiteral("%1 of %2").arg(current_ + 1).arg(hits_.size()));
    else
        Tell(TrimBlanks(line_->text()).isEmpty() ? QString() : QStringLiteral("none"));
}

void TreeFind::ShowHit() {
    TellHit();
    if (current_ < 0 || desk_.Busy > 0)
        return;
    const BusyMark mark(desk_);
    const TreeHit hit = hits_[std::size_t(current_)];
    int row = -1;
    WithSameNodes([&] { row = tree_.Model().Reveal(hit.RelativePath, hit.Folder); });
    if (row < 0) {
        Tell(QStringLiteral("gone"));
        return;
    }
    tree_.SelectRow(row);
    tree_.ScrollTo(row);
}

void TreeFind::Walk(int step) {
    if (isHidden() || TrimBlanks(line_->text()).isEmpty()) {
        Open();
        return;
    }
    if (!index_ && !isReading_)
        ReadIndex();
    const int count = int(hits_.size());
    if (count == 0)
        return;
    current_ = (current_ + step + count) % count;
    ShowHit();
}

void TreeFind::Tell(const QString& text) {
    count_->setText(text);
    count_->setVisible(!text.isEmpty());
}

bool TreeFind::eventFilter(QObject* watched, QEvent* event) {
    if (watched != line_ || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isBack = key->modifiers() & Qt::ShiftModifier;
    switch (key->key()) {
    case Qt::Key_Escape:
        Close();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F3:
        Walk(isBack ? -1 : 1);
        return true;
    case Qt::Key_Down:
        tree_.setFocus(Qt::OtherFocusReason);
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

} // namespace paneda
