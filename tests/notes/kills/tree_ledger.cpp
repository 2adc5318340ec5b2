#include "notes/kills/tree_ledger.h"

#include "core/files/ini_file.h"
#include "notes/kills/note_texts.h"
#include "notes/kills/tree_worker.h"
#include "notes/note_files.h"

#include <QDir>
#include <QFile>

namespace paneda::test {

using namespace Qt::StringLiterals;

namespace {

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int SaveIn(const QString& node, const QString& file) {
    const QByteArray bytes = Contents(file);
    const QByteArray text = file.endsWith(u".zip"_s) ? ReadZippedNote(bytes).Rtf : bytes;
    return FindSave(node, text).Save;
}

QList<int> TextsIn(const QString& node, const QDir& folder) {
    QList<int> texts;
    const QString zip = folder.filePath(u"content.zip"_s);
    texts.append(SaveIn(node, QFile::exists(zip) ? zip : folder.filePath(u"content.rtf"_s)));
    for (const QString& kept : folder.entryList({u"content (*"_s}, QDir::Files))
        texts.append(SaveIn(node, folder.filePath(kept)));
    return texts;
}

void ReadLevel(const QDir& level, QList<NodeOnDisk>& nodes) {
    for (const QString& name : level.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDir folder(level.filePath(name));
        const QString properties = folder.filePath(u"Properties.ini"_s);
        const QString node = NodeOfName(ReadIni(u"Properties"_s, u"Name"_s, properties));
        if (!node.isEmpty()) {
            nodes.append({node, folder.path(), TextsIn(node, folder),
                          ReadIni(u"Properties"_s, u"Editing"_s, properties)});
        }
        ReadLevel(folder, nodes);
    }
}

} // namespace

QList<NodeOnDisk> ReadNodes(const QString& content) {
    QList<NodeOnDisk> nodes;
    ReadLevel(QDir(content), nodes);
    return nodes;
}

void TreeLedger::Read(const QString& journal) {
    const QStringList lines = QString::fromUtf8(Contents(journal)).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines)
        ReadLine(line.split(u' '));
}

void TreeLedger::ReadLine(const QStringList& words) {
    const QString& what = words[0];
    const QString& node = words[1];
    if (what == u"add"_s)
        may_[node] = {0};
    else if (what == u"added"_s)
        must_[node] = may_.take(node);
    else if (what == u"delete"_s || what == u"deleted"_s)
        ReadDelete(words.mid(1), what == u"deleted"_s);
    else if (what == u"save"_s && must_.contains(node))
        must_[node].append(words[2].toInt());
    else if (what == u"saved"_s)
        saves_.append({node, words[2].toInt(), words[3].toInt()});
    if (what == u"saved"_s && must_.contains(node))
        must_[node] = {words[2].toInt()};
}

void TreeLedger::ReadDelete(const QStringList& nodes, bool done) {
    for (const QString& node : nodes) {
        if (must_.contains(node))
            may_[node] = must_.take(node);
        if (done)
            may_.remove(node);
    }
}

QString TreeLedger::NodeObjection(const QList<NodeOnDisk>& nodes) const {
    QStringList found;
    for (const NodeOnDisk& node : nodes) {
        if (found.contains(node.Node))
            return node.Node + u" stands twice"_s;
        if (!must_.contains(node.Node) && !may_.contains(node.Node))
            return node.Node + u" should not be there"_s;
        found.append(node.Node);
    }
    for (auto it = must_.cbegin(); it != must_.cend(); ++it) {
        if (!found.contains(it.key()))
            return it.key() + u" is lost"_s;
    }
    return {};
}

QString TreeLedger::Objection(const QList<NodeOnDisk>& nodes) const {
    for (const NodeOnDisk& node : nodes) {
        const QList<int> allowed = must_.value(node.Node) + may_.value(node.Node);
        if (!allowed.contains(node.Texts.first()))
            return u"%1 holds save %2"_s.arg(node.Node).arg(node.Texts.first());
    }
    return NodeObjection(nodes);
}

QString TreeLedger::LostSave(const QList<NodeOnDisk>& nodes) const {
    QHash<QString, QList<int>> kept;
    for (const NodeOnDisk& node : nodes)
        kept[node.Node] = node.Texts;
    for (const DoneSave& save : saves_)
        kept[save.Node].append(save.Base);
    for (const DoneSave& save : saves_) {
        if (must_.contains(save.Node) && !kept[save.Node].contains(save.Save))
            return u"%1 has lost save %2"_s.arg(save.Node).arg(save.Save);
    }
    return {};
}

void TreeLedger::Restart(const QList<NodeOnDisk>& nodes) {
    *this = TreeLedger();
    for (const NodeOnDisk& node : nodes)
        must_[node.Node] = {node.Texts.first()};
}

} // namespace paneda::test
