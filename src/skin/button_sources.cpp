#include "skin/button_sources.h"

#include "core/files/ini_file.h"
#include "core/files/path_conversion.h"
#include "core/store/names.h"
#include "core/text/text_rules.h"

namespace paneda {

namespace {

// What the icon is asked of: the target of a record, else the file itself.
QString IconPath(const QString& target, const ButtonSources& sources) {
    if (!SameName(ExtensionOf(target), u"PND"))
        return target;
    const QString wanted = ReadIni(QStringLiteral("Properties"), QStringLiteral("Target"),
                                   sources.Drives.ToHost(target, sources.AppPath));
    if (wanted.startsWith(u'\\') && wanted.mid(1, 1) != u"\\")
        return sources.AppPath.left(2) + wanted;
    return ResolveRelativePath(wanted, sources.AppPath);
}

} // namespace

ButtonPicture ButtonSources::PictureOf(const QString& target, const IconSize& size) {
    if (target.isEmpty())
        return {};
    const QString picture = Finder.Find(PictureStem(Drives.ToHost(target, AppPath)));
    if (!picture.isEmpty()) {
        const auto image = ReadPicture(picture, {.Width = size.OnScreen(), .Small = true}, Time);
        if (!image)
            LeftOut.push_back(image.error());
        return {image.value_or(QImage()), true};
    }
    const QString path = IconPath(target, *this);
    return {path.isEmpty() ? QImage() : Icons.Icon(path, size), false};
}

} // namespace paneda
