#include "notes/kills/tree_worker.h"

#include "core/prompts.h"
#include "notes/edit_lock.h"
#include "notes/kills/note_texts.h"
#include "notes/node_operations.h"
#include "notes/note_load.h"
#include "notes/note_save.h"
#include "notes/tree_model.h"

#include <QFile>
#include <QRandomGenerator>

namespace paneda::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostNodes = 30;
constexpr int kMostLevels = 4;

// Says yes to everything.
class Agreeing : public Prompts {
public:
    void Notice(const QString& text, const QString&) override { LastNotice = text; }
    bool Confirm(const QString&, const QString&) override { return true; }
    QString ChooseFile(const QString&, const QString&) override { return {}; }
    QString LastNotice;
};

class TreeWorker {
public:
    explicit TreeWorker(const TreeWork& work)
        : work_(work)
        , journal_(work.Journal)
        , random_(work.Seed)
        , number_(work.FirstNumber)
        , tree_(u"C:"_s)
        , operations_(tree_, transfer_, Services()) {}

    int Run();

private:
    NodeServices Services() {
        return {prompts_, [this](int) { return &tree_; }, {}, {}};
    }
    void Tell(const QString& line) { journal_.write(line.toUtf8() + '\n'); }
    int Below(int limit) { return random_.bounded(limit); }
    void ReadTree();
    const TreeNode& RandomNode() { return tree_.Nodes()[std::size_t(Below(int(tree_.Nodes().size())))]; }
    // Nodes that a worker on a shared tree deletes; nobody puts anything below them.
    static bool IsShortLived(const TreeNode& node) { return node.Name.endsWith(u" short"_s); }
    bool IsOwn(const TreeNode& node) const { return node.Name.startsWith(work_.Who + u'-'); }

    void Work();
    void Add();
    void Move();
    void Rename();
    void Delete();
    void Save();

    TreeWork work_;
    QFile journal_;
    QRandomGenerator random_;
    int number_;
    Agreeing prompts_;
    TreeModel tree_;
    NodeTransfer transfer_;
    NodeOperations operations_;
};

void TreeWorker::ReadTree() {
    tree_.LoadTree();
    for (std::size_t i = 0; i < tree_.Nodes().size(); ++i) {
        if (tree_.Nodes()[i].ExpandState == BranchState::Collapsed)
            tree_.ExpandNode(tree_.Nodes()[i].RowIndex);
    }
}

int TreeWorker::Run() {
    if (!journal_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return 3;
    TreeSettings settings;
    settings.ContentFolder = work_.Content;
    settings.MultiUser = work_.Shared;
    tree_.Open(u"Tree"_s, settings, 1);
    for (int i = 0; i < work_.Operations; ++i) {
        ReadTree();
        Work();
    }
    return 0;
}

void TreeWorker::Work() {
    const int nodes = int(tree_.Nodes().size());
    const int dice = Below(100);
    if (nodes < 3 || (dice < 30 && nodes < kMostNodes))
        Add();
    else if (dice < 65)
        Save();
    else if (dice < 80)
        Move();
    else if (dice < 85)
        Rename();
    else
        Delete();
}

void TreeWorker::Add() {
    const bool shortLived = work_.Shared && Below(3) == 0;
    const QString node = work_.Who + u'-' + QString::number(number_++);
    PendingNode pending;
    pending.Name = node + (shortLived ? u" short"_s : u" long"_s);
    int target = -1;
    if (!tree_.Nodes().empty()) {
        // Above the first one of all, the room between two texts of the order is soon used up.
        const TreeNode& place = Below(2) == 0 ? tree_.Nodes().front() : RandomNode();
        target = place.RowIndex;
        pending.Position = NodePosition(1 + Below(3));
        if (pending.Position == NodePosition::Child && (IsShortLived(place) || place.Level >= kMostLevels))
            pending.Position = NodePosition::Above;
    }
    transfer_.Pending = pending;
    Tell(u"add "_s + node);
    if (operations_.AddOrMoveNode(target, NodeMode::Add) >= 0)
        Tell(u"added "_s + node);
}

void TreeWorker::Move() {
    const TreeNode moving = RandomNode();
    const TreeNode target = RandomNode();
    if ((work_.Shared && !IsOwn(moving)) || IsShortLived(target))
        return;
    const auto choice = MoveChoice(1 + Below(3));
    Tell(u"move "_s + NodeOfName(moving.Name));
    operations_.StartMove(moving.RowIndex);
    prompts_.LastNotice.clear();
    if (operations_.FinishMove(target.RowIndex, choice) >= 0 && prompts_.LastNotice.isEmpty())
        Tell(u"moved "_s + NodeOfName(moving.Name));
}

void TreeWorker::Rename() {
    const TreeNode node = RandomNode();
    PendingNode pending;
    const QString end = IsShortLived(node) ? u" short"_s : u" long"_s;
    pending.Name = NodeOfName(node.Name) + u" name "_s + QString::number(Below(100)) + end;
    pending.IconSource = kKeepIcon;
    transfer_.Pending = pending;
    operations_.EditNode(node.RowIndex);
}

void TreeWorker::Delete() {
    const TreeNode node = RandomNode();
    if (work_.Shared && (!IsOwn(node) || !IsShortLived(node)))
        return;
    QStringList gone;
    const int first = tree_.PositionOf(node.RowIndex);
    for (int i = first; i < int(tree_.Nodes().size()); ++i) {
        const TreeNode& below = tree_.Nodes()[std::size_t(i)];
        if (i > first && below.Level <= node.Level)
            break;
        gone.append(NodeOfName(below.Name));
    }
    Tell(u"delete "_s + gone.join(u' '));
    if (operations_.DeleteNode(node.RowIndex, DeleteMode::AskAndDelete))
        Tell(u"deleted "_s + gone.join(u' '));
}

void TreeWorker::Save() {
    const TreeNode node = RandomNode();
    const NotePlace place{tree_.NodeFolder(node).Text(), work_.Content, work_.Shared};
    NoteSession session;
    session.UserName = work_.Who;
    session.Now = QDateTime::currentDateTime();
    session.Settings.CompressSize = kCompressAbove;
    NoteDisk disk;
    const LoadedNote note = LoadNote(place, session, {}, disk);
    if (note.State != NoteState::Shown || note.Lock.LockedByOther)
        return;
    if (!BeginEdit(place, session, disk).MayEdit)
        return;
    const QString id = NodeOfName(node.Name);
    const int save = number_++;
    const int base = FindSave(id, note.Rtf).Save;
    const QString line = id + u' ' + QString::number(save) + u' ' + QString::number(base);
    Tell(u"save "_s + line);
    if (SaveNote(place, session, {TextOfSave(id, save, base), note.OnDisk, false}, disk))
        Tell(u"saved "_s + line);
}

} // namespace

QString NodeOfName(const QString& name) {
    return name.section(u' ', 0, 0);
}

int RunTreeWork(const TreeWork& work) {
    return TreeWorker(work).Run();
}

} // namespace paneda::test
