#include "platform/windows/shell_icons.h"

#include "core/files/web_addresses.h"
#include "platform/icon_sizing.h"
#include "platform/windows/com_scope.h"
#include "platform/windows/quiet_errors.h"
#include "platform/windows/target_path.h"
#include "platform/windows/wide_text.h"

#include <QFileInfo>

#include <windows.h>

#include <commctrl.h>
#include <commoncontrols.h>
#include <shellapi.h>

#include <array>
#include <memory>
#include <optional>

namespace paneda {

namespace {

// From small to large. Their sizes follow the display's scale.
constexpr std::array<int, 4> kLists{SHIL_SMALL, SHIL_LARGE, SHIL_EXTRALARGE, SHIL_JUMBO};

// IID_IImageList, which the import library lacks.
constexpr GUID kImageList{0x46EB5926, 0x582E, 0x4017, {0x9F, 0xDF, 0xE8, 0x99, 0x8D, 0xAA, 0x09, 0x50}};

struct Release {
    void operator()(IImageList* list) const { list->Release(); }
};

using ImageListPointer = std::unique_ptr<IImageList, Release>;

bool IsDriveRoot(const QString& path) {
    return path.size() == 3 && path.endsWith(QStringLiteral(":\\"));
}

bool HasDrive(QChar letter) {
    const int index = letter.toUpper().unicode() - u'A';
    return index >= 0 && index < 26 && ((GetLogicalDrives() >> index) & 1) != 0;
}

std::optional<int> IndexOf(const QString& path, DWORD attributes, UINT how) {
    SHFILEINFOW info{};
    if (SHGetFileInfoW(Wide(path), attributes, &info, sizeof info, SHGFI_SYSICONINDEX | how) == 0)
        return std::nullopt;
    return info.iIcon;
}

// The icon of a kind of file; no file is read.
std::optional<int> IndexOfKind(const QString& path, bool isFolder) {
    return IndexOf(path, isFolder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL,
                   SHGFI_USEFILEATTRIBUTES);
}

std::optional<int> IndexOfExisting(const QString& path, bool isFolder) {
    const std::optional<int> own = IndexOf(path, 0, 0);
    return own ? own : IndexOfKind(path, isFolder);
}

std::optional<int> IconIndex(const QString& text, const LaunchPaths& paths) {
    if (IsAddress(text))
        return IndexOfKind(QStringLiteral("address.url"), false);
    QString target = HostTarget(text, paths);
    // By its letter alone: an empty drive has an icon too.
    if (IsDriveRoot(target))
        return HasDrive(target[0]) ? IndexOfExisting(target, true) : std::nullopt;
    if (!target.contains(u'\\'))
        target = FindProgram(target);
    const QFileInfo file(target);
    if (target.isEmpty() || !file.exists())
        return std::nullopt;
    return IndexOfExisting(target, file.isDir());
}

ImageListPointer OpenList(int which) {
    void* list = nullptr;
    if (FAILED(SHGetImageList(which, kImageList, &list)))
        return nullptr;
    return ImageListPointer(static_cast<IImageList*>(list));
}

QImage PictureIn(IImageList& list, int index) {
    HICON icon = nullptr;
    if (FAILED(list.GetIcon(index, ILD_TRANSPARENT, &icon)) || !icon)
        return {};
    const QImage picture = QImage::fromHICON(icon);
    DestroyIcon(icon);
    return picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// Whether the picture is empty outside the top left corner of this size. For a file without a large icon, the
// largest list gives an empty picture with the small icon in that corner.
bool FitsInCorner(const QImage& picture, int corner) {
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = y < corner ? corner : 0; x < picture.width(); ++x) {
            if (qAlpha(line[x]) != 0)
                return false;
        }
    }
    return true;
}

QImage PictureOf(int index, int pixels) {
    QImage smaller;
    for (const int which : kLists) {
        const ImageListPointer list = OpenList(which);
        const QImage picture = list ? PictureIn(*list, index) : QImage();
        if (picture.isNull() || (which == SHIL_JUMBO && FitsInCorner(picture, smaller.width())))
            continue;
        if (picture.width() >= pixels)
            return picture;
        smaller = picture;
    }
    return smaller;
}

} // namespace

QImage ShellIcons::IconOf(const QString& target, const LaunchPaths& paths, const IconSize& size) {
    if (target.isEmpty())
        return {};
    const ComScope com;
    const QuietErrors quiet;
    const std::optional<int> index = IconIndex(target, paths);
    return index ? SizedIcon(PictureOf(*index, size.OnScreen()), size) : QImage();
}

QString ShellIcons::TypeNameOf(const QString& fileName) {
    SHFILEINFOW info{};
    const DWORD_PTR known = SHGetFileInfoW(Wide(fileName), FILE_ATTRIBUTE_NORMAL, &info, sizeof info,
                                           SHGFI_TYPENAME | SHGFI_USEFILEATTRIBUTES);
    return known == 0 ? QString() : QString::fromWCharArray(info.szTypeName);
}

} // namespace paneda
