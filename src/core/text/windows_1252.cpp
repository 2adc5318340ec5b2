#include "core/text/windows_1252.h"

#include <algorithm>
#include <array>

namespace paneda {

namespace {

// Bytes 0x80 to 0x9F, from the published code page table; 81, 8D, 8F, 90 and 9D map to themselves.
constexpr std::array<char16_t, 32> kHighControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsRemapped(unsigned unit) {
    return unit >= 0x80 && unit < 0x80 + kHighControls.size();
}

} // namespace

QString DecodeWindows1252(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        const auto unit = static_cast<unsigned char>(byte);
        return QChar(IsRemapped(unit) ? kHighControls[unit - 0x80] : char16_t(unit));
    });
    return text;
}

std::optional<QByteArray> EncodeWindows1252(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) {
        const char16_t unit = c.unicode();
        const auto* remapped = std::find(kHighControls.begin(), kHighControls.end(), unit);
        if (remapped != kHighControls.end())
            bytes.append(char(0x80 + (remapped - kHighControls.begin())));
        else if (unit <= 0xFF && !IsRemapped(unit))
            bytes.append(char(unit));
        else
            return std::nullopt;
    }
    return bytes;
}

} // namespace paneda
