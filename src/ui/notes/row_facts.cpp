#include "ui/notes/row_facts.h"

#include "notes/node_icon.h"
#include "notes/node_properties.h"
#include "skin/picture_loader.h"
#include "ui/common/run_aside.h"

#include <QTimer>

#include <algorithm>
#include <functional>
#include <utility>

namespace paneda {

namespace {

constexpr int kIcon = 16;            // layout pixels
constexpr std::size_t kAtOnce = 150; // more than a screen holds
constexpr quint32 kIconTime = 200;   // milliseconds for decoding one icon

// Fitted into a square, in its middle.
QImage SquareOf(const QImage& picture, int side) {
    if (picture.isNull() || picture.size() == QSize(side, side))
        return picture;
    const QImage scaled = picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return scaled.copy((scaled.width() - side) / 2, (scaled.height() - side) / 2, side, side);
}

} // namespace

void RowFacts::SetRatio(double ratio) {
    if (ratio == ratio_)
        return;
    ratio_ = ratio;
    Clear();
}

const RowFacts::Facts* RowFacts::Want(int row) {
    Entry& entry = facts_[row];
    entry.Wanted = ++clock_;
    if (!entry.IsFresh && entry.Asked == 0) {
        entry.Asked = clock_;
        waiting_.push_back(row);
        AskLater();
    }
    return entry.Folder.isNull() ? nullptr : &entry.Known;
}

void RowFacts::MarkOld(int row) {
    const auto entry = facts_.find(row);
    if (entry == facts_.end())
        return;
    // An answer that is on its way may be older than the change.
    entry->IsFresh = false;
    entry->Asked = 0;
}

void RowFacts::Drop(const std::vector<int>& rows) {
    for (const int row : rows)
        facts_.remove(row);
}

void RowFacts::Clear() {
    facts_.clear();
    waiting_.clear();
}

void RowFacts::AskLater() {
    if (std::exchange(isAsking_, true))
        return;
    QTimer::singleShot(0, this, &RowFacts::Ask);
}

void RowFacts::Ask() {
    Prune();
    std::vector<Question> questions;
    // Those that were wanted last are seen now.
    while (!waiting_.empty() && questions.size() < kAtOnce) {
        const int row = waiting_.back();
        waiting_.pop_back();
        const TreeNode* node = model_.Find(row);
        const auto entry = facts_.constFind(row);
        if (node && entry != facts_.constEnd() && entry->Asked != 0)
            questions.push_back({row, entry->Asked, model_.TreePath(), model_.NodeFolder(*node).Text()});
    }
    // The others have been scrolled away. They are asked for when they are seen again.
    for (const int row : std::exchange(waiting_, {})) {
        if (const auto entry = facts_.find(row); entry != facts_.end())
            entry->Asked = 0;
    }
    isAsking_ = !questions.empty();
    if (questions.empty())
        return;
    const double ratio = ratio_;
    const int pixels = IconSize(kIcon, ratio).OnScreen();
    RunAside<std::vector<Answer>>(
        *this,
        [questions, pixels, times = state_.RecentChangeIndicator > 0] {
            return Read(questions, pixels, times);
        },
        [this, ratio](const std::vector<Answer>& answers) {
            Take(answers, ratio);
            isAsking_ = false;
            if (!waiting_.empty())
                AskLater();
        });
}

std::vector<RowFacts::Answer> RowFacts::Read(const std::vector<Question>& questions, int pixels,
                                             bool withTimes) {
    std::vector<Answer> answers;
    for (const Question& question : questions) {
        const DiskPath folder = DiskPath::Below(question.Content, question.Folder);
        Answer answer{question, {}, {}};
        if (withTimes)
            answer.LastEdit =
                ReadNodeIni(folder).Value(node_key::kProperties, node_key::kLastAllLevelEditTime);
        if (const QString file = FindNodeIcon(folder); !file.isEmpty()) {
            DecodingTime time{kIconTime};
            if (const auto picture = ReadPicture(file, {.Width = pixels, .Small = true}, time))
                answer.Icon = SquareOf(*picture, pixels);
        }
        answers.push_back(answer);
    }
    return answers;
}

void RowFacts::Take(const std::vector<Answer>& answers, double ratio) {
    if (ratio != ratio_)
        return;
    for (const Answer& answer : answers) {
        const TreeNode* node = model_.Find(answer.Asked.Row);
        const auto entry = facts_.find(answer.Asked.Row);
        // The row may have become that of another node, or the node have changed.
        if (!node || entry == facts_.end() || entry->Asked != answer.Asked.Number ||
            model_.NodeFolder(*node).Text() != answer.Asked.Folder)
            continue;
        entry->Folder = answer.Asked.Folder;
        entry->Known.LastEdit = answer.LastEdit;
        entry->Known.Icon = answer.Icon;
        if (DecideNodeIcon(node->Type, !answer.Icon.isNull()) == NodeIconKind::Target)
            entry->Known.Icon = TargetIcon(*node);
        entry->IsFresh = true;
        entry->Asked = 0;
        if (Changed)
            Changed(answer.Asked.Row);
    }
}

// The desktop's icons may be asked for on the thread of the windows alone.
QImage RowFacts::TargetIcon(const TreeNode& node) const {
    return icons_.IconOf(node.LinkData.Target, {state_.Drives, state_.AppPath}, IconSize(kIcon, ratio_));
}

void RowFacts::Prune() {
    if (facts_.size() <= 2 * kMostKept)
        return;
    std::vector<quint64> times;
    for (const Entry& entry : std::as_const(facts_))
        times.push_back(entry.Wanted);
    std::nth_element(times.begin(), times.begin() + kMostKept, times.end(), std::greater<>());
    const quint64 oldest = times[kMostKept];
    facts_.removeIf([oldest](const auto& entry) { return entry.value().Wanted <= oldest; });
}

} // namespace paneda
