#include "organiser/file_kinds.h"

#include "core/store/names.h"
#include "core/text/text_rules.h"

namespace paneda {

FileKind KindOfFile(const QString& name) {
    const QString extension = name.contains(u'.') ? ExtensionOf(name) : QString();
    if (SameName(extension, u"lnk") || SameName(extension, u"desktop"))
        return FileKind::Shortcut;
    if (SameName(extension, u"url"))
        return FileKind::WebShortcut;
    if (SameName(extension, u"pnd"))
        return FileKind::Record;
    return IsImageExtension(extension) ? FileKind::Picture : FileKind::Plain;
}

} // namespace paneda
