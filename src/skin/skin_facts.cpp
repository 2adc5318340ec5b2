#include "skin/skin_facts.h"

#include "core/files/file_io.h"
#include "skin/picture_loader.h"
#include "skin/skin_list.h"
#include "skin/skin_option.h"
#include "skin/skin_pictures.h"

namespace paneda {

namespace {

constexpr quint32 kScreenshotTime = 500;   // milliseconds of the processor
constexpr qint64 kMaxReadme = 1024 * 1024; // bytes
constexpr QStringView kScreenshot = u"screenshot";

DensePicture ReadScreenshot(const DiskPath& folder, double ratio, int pixels) {
    std::vector<DenserFile> files = DenserNames(kScreenshot.toString(), ratio);
    files.push_back({kScreenshot.toString(), 1});
    for (const DenserFile& file : files) {
        const DiskPath path = FindEntry(folder, file.Name + QStringLiteral(".jpg"));
        if (LookAt(path).Kind != EntryKind::File)
            continue;
        DecodingTime time{kScreenshotTime};
        if (auto picture = ReadPicture(path, {.Width = pixels, .Small = true}, time))
            return {std::move(*picture), double(file.Density)};
    }
    return {};
}

bool IsText(const QByteArray& bytes) {
    return !bytes.startsWith("#!") && !bytes.startsWith("\x7F"
                                                        "ELF");
}

} // namespace

QString FindReadme(const DiskPath& skin) {
    const DiskPath file = FindEntry(skin, QStringLiteral("readme.txt"));
    if (LookAt(file).Kind != EntryKind::File)
        return {};
    const auto bytes = ReadFileBytes(file, kMaxReadme);
    return bytes && IsText(*bytes) ? file.Text() : QString();
}

SkinFacts ReadSkinFacts(const DiskPath& skin, const QString& option, double ratio, int pixels) {
    SkinFacts facts;
    facts.Options = ListSkinOptions(skin);
    facts.HasReadme = !FindReadme(skin).isEmpty();
    facts.HasOriginal = HasOriginal(skin);
    if (!option.isEmpty())
        facts.Screenshot = ReadScreenshot(skin / option, ratio, pixels);
    if (facts.Screenshot.IsNull())
        facts.Screenshot = ReadScreenshot(skin, ratio, pixels);
    return facts;
}

} // namespace paneda
