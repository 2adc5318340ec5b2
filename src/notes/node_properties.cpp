#include "notes/node_properties.h"

#include "core/files/file_batch.h"
#include "core/files/file_guard.h"
#include "core/files/ini_file.h"
#include "core/text/text_rules.h"
#include "notes/tree_store.h"

#include <utility>

namespace paneda {

namespace {

const QString kIniName = QStringLiteral("Properties.ini");

QString KeepQuotes(const QString& text) {
    const QString trimmed = text.trimmed();
    const bool quoted = trimmed.size() >= 2 && trimmed.front() == trimmed.back() &&
                        (trimmed.front() == u'"' || trimmed.front() == u'\'');
    return quoted ? u'"' + trimmed + u'"' : text;
}

FileGuard GuardNode(const DiskPath& nodeFolder) {
    return FileGuard(LevelGuardFile(nodeFolder.Parent()));
}

struct KeyValue {
    QStringView Section;
    QStringView Key;
    QString Value;
};

void AddLinkKeys(const IniText& properties, const PendingNode& pending, std::vector<KeyValue>& keys) {
    const bool hadLink = !properties.Value(node_key::kLink, node_key::kType).isEmpty();
    if (pending.Type.isEmpty() && !hadLink)
        return;
    const NodeLink& link = pending.LinkData;
    keys.push_back({node_key::kLink, node_key::kType, pending.Type});
    keys.push_back({node_key::kLink, node_key::kTarget, link.Target});
    if (pending.Type == kUrlNode && !hadLink)
        return;
    keys.push_back({node_key::kLink, node_key::kParameter, KeepQuotes(link.Parameter)});
    keys.push_back({node_key::kLink, node_key::kStartIn, link.StartIn});
    keys.push_back({node_key::kLink, node_key::kWindowState, link.WindowState});
}

} // namespace

DiskPath NodeIniFile(const DiskPath& nodeFolder) {
    return FindEntry(nodeFolder, kIniName);
}

DiskPath LevelGuardFile(const DiskPath& levelFolder) {
    return levelFolder / QStringLiteral("nodes");
}

IniText ReadNodeIni(const DiskPath& nodeFolder) {
    // The usual spelling first: a search lists the folder.
    if (auto bytes = ReadFileBytes(nodeFolder / kIniName, kMaxIniFile))
        return IniText(std::move(*bytes));
    return ReadIniFile(NodeIniFile(nodeFolder));
}

tl::expected<IniText, FileError> LoadNodeIni(const DiskPath& nodeFolder) {
    auto bytes = ReadFileBytes(NodeIniFile(nodeFolder), kMaxIniFile);
    if (!bytes)
        return tl::make_unexpected(bytes.error());
    return IniText(std::move(*bytes));
}

QString ReadSort(const IniText& properties) {
    return properties.Value(node_key::kProperties, node_key::kSort);
}

void ReadNodeKeys(const IniText& properties, const QString& appPath, TreeNode& node) {
    const auto link = [&properties](QStringView key) { return properties.Value(node_key::kLink, key); };
    node.Name = properties.Value(node_key::kProperties, node_key::kName);
    if (node.Name.isEmpty())
        return;
    node.Sort = ReadSort(properties);
    node.Description = properties.Value(node_key::kProperties, node_key::kDescription);
    node.Type = link(node_key::kType);
    node.LinkData = {};
    if (node.Type == kUrlNode)
        node.LinkData.Target = link(node_key::kTarget);
    if (node.Type == kFileNode)
        node.LinkData = {ResolveStoredPath(link(node_key::kTarget), appPath), link(node_key::kParameter),
                         link(node_key::kStartIn), link(node_key::kWindowState)};
}

NodeLink ReadTypedLink(const IniText& properties) {
    const auto link = [&properties](QStringView key) { return properties.Value(node_key::kLink, key); };
    return {link(node_key::kTarget), link(node_key::kParameter), link(node_key::kStartIn),
            link(node_key::kWindowState)};
}

QString EntryProblem(const PendingNode& entered) {
    const QString noName = QStringLiteral("Name cannot be empty");
    if (TrimBlanks(entered.Name).isEmpty())
        return noName;
    // By the name that the user sees; the key has another.
    if (entered.Type == kUrlNode && entered.LinkData.Target.size() > kMaxIniValue)
        return QStringLiteral("\"Address\" has %1 characters; at most %2 can be kept.")
            .arg(entered.LinkData.Target.size())
            .arg(kMaxIniValue);
    IniText scratch;
    if (const IniResult set = SetNodeKeys(scratch, entered, true); !set)
        return set.error();
    // Reading drops more than blanks.
    return scratch.Value(node_key::kProperties, node_key::kName).isEmpty() ? noName : QString();
}

IniResult SetNodeKeys(IniText& properties, const PendingNode& pending, bool setsLink) {
    std::vector<KeyValue> keys{
        {node_key::kProperties, node_key::kName, KeepQuotes(pending.Name)},
        {node_key::kProperties, node_key::kDescription, KeepQuotes(pending.Description)}};
    if (setsLink)
        AddLinkKeys(properties, pending, keys);
    for (const KeyValue& key : keys) {
        if (const IniResult set = properties.SetValue(key.Section, key.Key, key.Value); !set)
            return set;
    }
    return {};
}

IniResult SetSort(IniText& properties, const QString& sort) {
    return properties.SetValue(node_key::kProperties, node_key::kSort, sort);
}

FileResult WriteNodeIni(const DiskPath& nodeFolder, const IniText& properties) {
    return ReplaceFile(NodeIniFile(nodeFolder), properties.Bytes());
}

tl::expected<IniText, FileError> ChangeNodeKeys(const DiskPath& nodeFolder, const PendingNode& pending,
                                                bool changesLink) {
    const FileGuard guard = GuardNode(nodeFolder);
    auto properties = LoadNodeIni(nodeFolder);
    if (!properties)
        return properties;
    if (const IniResult set = SetNodeKeys(*properties, pending, changesLink); !set)
        return Failure(NodeIniFile(nodeFolder).Text(), set.error());
    if (const FileResult written = WriteNodeIni(nodeFolder, *properties); !written)
        return tl::make_unexpected(written.error());
    return properties;
}

FileResult WriteSort(const DiskPath& nodeFolder, const QString& sort) {
    const FileGuard guard = GuardNode(nodeFolder);
    return WriteIni(node_key::kProperties.toString(), node_key::kSort.toString(), sort,
                    NodeIniFile(nodeFolder));
}

FileResult WriteSorts(const DiskPath& levelFolder, const QStringList& folders, const QStringList& sorts) {
    const FileGuard guard(LevelGuardFile(levelFolder));
    std::vector<DiskPath> files;
    for (const QString& folder : folders)
        files.push_back(NodeIniFile(levelFolder / folder));
    const auto bytesOf = [&](std::size_t index) -> tl::expected<QByteArray, FileError> {
        auto bytes = ReadFileBytes(files[index], kMaxIniFile);
        if (!bytes)
            return bytes;
        IniText properties(std::move(*bytes));
        if (const IniResult set = SetSort(properties, sorts[qsizetype(index)]); !set)
            return Failure(files[index].Text(), set.error());
        return properties.Bytes();
    };
    return ReplaceFiles(files, bytesOf);
}

} // namespace paneda
