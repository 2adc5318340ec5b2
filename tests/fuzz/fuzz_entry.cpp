// Input: a desktop entry, a file of bookmarks or both; it is read as each of them.

#include "platform/linux/application_menu.h"
#include "platform/linux/bookmarks.h"
#include "platform/linux/desktop_entry.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace paneda;

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

bool IsName(const QString& name) {
    return !name.contains(u'/') && !name.contains(u'\\') && !name.contains(u'[') && !name.contains(u':');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray input(reinterpret_cast<const char*>(data), qsizetype(size));
    const QString file = QStringLiteral("/a file");
    const DesktopEntry entry =
        ParseDesktopEntry(input, {QStringLiteral("de_AT"), QStringLiteral("de"), QStringLiteral("x")});
    Require(entry.Name.isEmpty() || !entry.Title.isEmpty());
    Require(IsName(TitleAsName(entry.Title)));
    Require(!MenuCategory(entry.Categories).isEmpty());
    // A file is an argument of its own, whatever the line says.
    const QStringList command = ExpandExec(entry, {}, {file});
    Require(command.isEmpty() || command.contains(file));
    for (const auto& bookmarks : {ParseLineBookmarks(input), ParseXbelBookmarks(input)}) {
        for (const Bookmark& bookmark : bookmarks) {
            Require(IsName(bookmark.Title) && !bookmark.Title.isEmpty());
            Require(bookmark.Folder.startsWith(u'/') && !bookmark.Folder.contains(u'\\'));
        }
    }
    return 0;
}
