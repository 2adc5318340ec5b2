#include "ui/notes/dropped_nodes.h"

#include "core/files/web_addresses.h"
#include "core/text/text_rules.h"
#include "organiser/new_link.h"

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace paneda {

namespace {

// What browsers give beside the addresses: an address and the page's title in two lines of UTF-16.
QString TitleOf(const QMimeData& data) {
    const QByteArray bytes = data.data(QStringLiteral("text/x-moz-url"));
    const QString text(reinterpret_cast<const QChar*>(bytes.constData()), bytes.size() / 2);
    return text.section(u'\n', 1, 1).section(QChar(0), 0, 0).simplified();
}

} // namespace

std::vector<DroppedAddress> DroppedAddresses(const QMimeData& data) {
    std::vector<DroppedAddress> found;
    QStringList addresses;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            found.push_back({url.toLocalFile(), {}, {}});
        else
            addresses.append(url.toString(QUrl::FullyEncoded));
    }
    if (!data.hasUrls() && IsAddress(data.text().trimmed()))
        addresses.append(data.text().trimmed());
    for (const QString& address : std::as_const(addresses)) {
        if (const auto safe = BrowserAddress(address))
            found.push_back({{}, *safe, addresses.size() == 1 ? TitleOf(data) : QString()});
    }
    return found;
}

std::optional<PendingNode> DroppedNode(const DroppedAddress& dropped, NodePosition position,
                                       const AppState& state) {
    PendingNode node;
    node.Position = position;
    if (dropped.HostPath.isEmpty()) {
        const QUrl url(dropped.Address);
        node.Type = kUrlNode;
        node.Name = IfEmpty(dropped.Title, IfEmpty(url.host(), dropped.Address));
        node.LinkData.Target = dropped.Address;
    } else {
        const bool isFolder = QFileInfo(dropped.HostPath).isDir();
        QString stored = state.Drives.ToStored(dropped.HostPath);
        if (isFolder && !stored.endsWith(u'\\'))
            stored += u'\\';
        const LinkResult link = NewLink(stored, isFolder, {state.Drives, state.AppPath});
        node.Type = kFileNode;
        node.Name = link.Name;
        node.LinkData = {link.Target, {}, {}, link.WindowState};
    }
    if (TrimBlanks(node.Name).isEmpty())
        return std::nullopt;
    return node;
}

} // namespace paneda
