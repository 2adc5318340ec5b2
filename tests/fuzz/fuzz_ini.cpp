// Input: section, key and value of one write on a line each, a line of "--", then the file.

#include "core/files/ini_text.h"

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace paneda;

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

// What a file can express: not what a reader drops (blanks and a byte order mark at the ends, quotes, NULs)
// or takes for another kind of line.
bool IsText(const QString& text) {
    return text == text.trimmed() && !text.startsWith(QChar::ByteOrderMark) && !text.contains(u'\0') &&
           !text.contains(u'\r');
}

bool IsName(const QString& name) {
    return IsText(name) && !name.contains(u'=') && !name.contains(u']') && !name.startsWith(u'[') &&
           !name.startsWith(u';');
}

bool IsValue(const QString& value) {
    return IsText(value) && !value.startsWith(u'"') && !value.startsWith(u'\'') &&
           value.size() <= kMaxIniValue;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray input(reinterpret_cast<const char*>(data), qsizetype(size));
    const qsizetype cut = input.indexOf("\n--\n");
    if (cut < 0)
        return 0;
    const QByteArrayList names = input.first(cut).split('\n');
    if (names.size() != 3)
        return 0;
    const QString section = QString::fromUtf8(names[0]);
    const QString key = QString::fromUtf8(names[1]);
    const QString value = QString::fromUtf8(names[2]);
    const QByteArray before = input.sliced(cut + 4);

    IniText text(before);
    Require(text.Value(section, key).size() <= kMaxIniValue);
    Require(text.Value(section, key) == FindIniValue(before, section, key));
    text.SetValue(section, key, value);
    if (!IsName(section) || !IsName(key) || !IsValue(value))
        return 0;
    Require(text.Value(section, key) == value);
    Require(IniText(text.Bytes()).Value(section, key) == value);
    // The bytes in front of the first heading are no section's, and stay unless the encoding changes.
    if (before.isValidUtf8()) {
        const qsizetype heading = before.indexOf('[');
        const QByteArray front = heading < 0 ? before : before.first(heading);
        Require(text.Bytes().startsWith(front));
    }
    const QByteArray once = text.Bytes();
    text.SetValue(section, key, value);
    Require(text.Bytes() == once);
    return 0;
}
