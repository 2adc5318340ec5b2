#include "platform/windows/shell_source_places.h"

#include "platform/windows/quiet_errors.h"
#include "platform/windows/windows_volume_space.h"

#include <QFileInfo>

#include <windows.h>

#include <shlobj.h>

#include <array>

namespace paneda {

namespace {

// Of the shell's folders, those of all users and of this one. The folders for favorites of all users have no
// newer name than this kind of number.
struct Halves {
    int Public;
    int User;
};

Halves HalvesOf(Source source) {
    switch (source) {
    case Source::StartMenu:
        return {CSIDL_COMMON_PROGRAMS, CSIDL_PROGRAMS};
    case Source::Favorites:
        return {CSIDL_COMMON_FAVORITES, CSIDL_FAVORITES};
    case Source::Desktop:
    case Source::MyComputer:
        break;
    }
    return {CSIDL_COMMON_DESKTOPDIRECTORY, CSIDL_DESKTOPDIRECTORY};
}

// Empty if the system has no such folder.
QString ShellFolder(int number) {
    std::array<wchar_t, MAX_PATH> path{};
    if (FAILED(SHGetFolderPathW(nullptr, number, nullptr, SHGFP_TYPE_CURRENT, path.data())))
        return {};
    return QString::fromWCharArray(path.data()).replace(u'\\', u'/');
}

// The problem is that of the last folder that exists and cannot be read.
std::vector<SourceItem> ItemsIn(const QString& folder, QString& problem) {
    const auto items = ListItems(folder);
    if (!items && QFileInfo::exists(folder))
        problem = items.error().Text();
    return items.value_or(std::vector<SourceItem>());
}

} // namespace

SourceListing ShellSourcePlaces::List(Source source, const QString& folder) const {
    const QuietErrors quiet;
    SourceListing listing;
    if (source == Source::MyComputer) {
        listing.User = ItemsIn(folder, listing.Problem);
        listing.Folder = folder;
        return listing;
    }
    QString names = folder;
    names.replace(u'\\', u'/');
    const Halves halves = HalvesOf(source);
    if (const QString root = ShellFolder(halves.Public); !root.isEmpty())
        listing.Public = ItemsIn(root + u'/' + names, listing.Problem);
    if (const QString root = ShellFolder(halves.User); !root.isEmpty())
        listing.User = ItemsIn(root + u'/' + names, listing.Problem);
    return listing;
}

bool ShellSourcePlaces::HasMedium(const QString& root) const {
    return AskVolumeSpace(root).TotalBytes > 0;
}

SourceItem ShellSourcePlaces::ItemOf(const QString& path) const {
    const QFileInfo file(path);
    return {file.fileName(), file.isDir(), path};
}

} // namespace paneda
