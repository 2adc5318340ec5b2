// Input: a Windows shortcut file.

#include "core/panel/shell_link.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paneda;
    const auto link = ParseShellLink(QByteArrayView(data, qsizetype(size)));
    if (!link) {
        if (link.error().isEmpty())
            __builtin_trap();
        return 0;
    }
    for (const QString& text :
         {link->LocalPath, link->NetworkPath, link->EnvironmentPath, link->RelativePath, link->Description,
          link->WorkingFolder, link->Arguments, link->IconLocation}) {
        // A path may be made of two texts and a separator.
        if (text.contains(QChar(0)) || std::size_t(text.size()) > 2 * size + 1)
            __builtin_trap();
    }
    // Bytes behind the end change nothing but what they themselves say.
    const QByteArray longer = QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)) + '\0';
    const auto again = ParseShellLink(longer);
    if (!again || again->LocalPath != link->LocalPath || again->Arguments != link->Arguments)
        __builtin_trap();
    return 0;
}
