#include "notes/node_properties.h"

#include "core/files/file_guard.h"
#include "core/files/ini_file.h"
#include "notes/tree_store.h"

#include <utility>

namespace paneda {

namespace {

constexpr QStringView kProperties = u"Properties";
constexpr QStringView kLink = u"Link";
const QString kIniName = QStringLiteral("Properties.ini");

QString KeepQuotes(const QString& text) {
    const QString trimmed = text.trimmed();
    const bool quoted = trimmed.size() >= 2 && trimmed.front() == trimmed.back() &&
                        (trimmed.front() == u'"' || trimmed.front() == u'\'');
    return quoted ? u'"' + trimmed + u'"' : text;
}

} // namespace

QString NodeIniFile(const QString& nodeFolder) {
    return FindEntry(nodeFolder, kIniName);
}

IniText ReadNodeIni(const QString& nodeFolder) {
    // The usual spelling first: a search lists the folder.
    if (auto bytes = ReadFileBytes(nodeFolder + u'/' + kIniName, kMaxIniFile))
        return IniText(std::move(*bytes));
    return ReadIniFile(NodeIniFile(nodeFolder));
}

tl::expected<IniText, FileError> LoadNodeIni(const QString& nodeFolder) {
    auto bytes = ReadFileBytes(NodeIniFile(nodeFolder), kMaxIniFile);
    if (!bytes)
        return tl::make_unexpected(bytes.error());
    return IniText(std::move(*bytes));
}

QString ReadSort(const IniText& properties) {
    return properties.Value(kProperties, u"Sort");
}

void ReadNodeKeys(const IniText& properties, const QString& appPath, TreeNode& node) {
    node.Name = properties.Value(kProperties, u"Name");
    if (node.Name.isEmpty())
        return;
    node.Sort = ReadSort(properties);
    node.Description = properties.Value(kProperties, u"Description");
    node.Type = properties.Value(kLink, u"Type");
    node.LinkData = {};
    if (node.Type == kUrlNode)
        node.LinkData.Target = properties.Value(kLink, u"Target");
    if (node.Type != kFileNode)
        return;
    node.LinkData.Target = ResolveStoredPath(properties.Value(kLink, u"Target"), appPath);
    node.LinkData.Parameter = properties.Value(kLink, u"Parameter");
    node.LinkData.StartIn = properties.Value(kLink, u"Start In");
    node.LinkData.WindowState = properties.Value(kLink, u"Window State");
}

void SetNodeTitle(IniText& properties, const PendingNode& pending) {
    properties.SetValue(kProperties, u"Name", KeepQuotes(pending.Name));
    properties.SetValue(kProperties, u"Description", KeepQuotes(pending.Description));
}

void SetNodeLink(IniText& properties, const PendingNode& pending) {
    const bool hadLink = !properties.Value(kLink, u"Type").isEmpty();
    if (pending.Type.isEmpty() && !hadLink)
        return;
    properties.SetValue(kLink, u"Type", pending.Type);
    properties.SetValue(kLink, u"Target", pending.LinkData.Target);
    if (pending.Type == kUrlNode && !hadLink)
        return;
    properties.SetValue(kLink, u"Parameter", KeepQuotes(pending.LinkData.Parameter));
    properties.SetValue(kLink, u"Start In", pending.LinkData.StartIn);
    properties.SetValue(kLink, u"Window State", pending.LinkData.WindowState);
}

void SetSort(IniText& properties, const QString& sort) {
    properties.SetValue(kProperties, u"Sort", sort);
}

FileResult WriteNodeIni(const QString& nodeFolder, const IniText& properties) {
    return ReplaceFile(NodeIniFile(nodeFolder), properties.Bytes());
}

tl::expected<IniText, FileError> ChangeNodeKeys(const QString& nodeFolder, const PendingNode& pending,
                                                bool changesLink) {
    const FileGuard guard(NodeIniFile(nodeFolder));
    auto properties = LoadNodeIni(nodeFolder);
    if (!properties)
        return properties;
    if (changesLink)
        SetNodeLink(*properties, pending);
    SetNodeTitle(*properties, pending);
    if (const FileResult written = WriteNodeIni(nodeFolder, *properties); !written)
        return tl::make_unexpected(written.error());
    return properties;
}

FileResult WriteSort(const QString& nodeFolder, const QString& sort) {
    const QString file = NodeIniFile(nodeFolder);
    const FileGuard guard(file);
    return WriteIni(kProperties.toString(), QStringLiteral("Sort"), sort, file);
}

} // namespace paneda
