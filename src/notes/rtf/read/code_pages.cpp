#include "notes/rtf/read/code_pages.h"

#include "core/text/windows_1252.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace paneda {

namespace {

constexpr int kUtf8CodePage = 65001;

struct Pair {
    int Charset;
    int CodePage;
};

constexpr std::array kCharsets{Pair{0, 1252},   Pair{2, kRtfSymbolCodePage},
                               Pair{77, 10000}, Pair{128, 932},
                               Pair{129, 949},  Pair{130, 1361},
                               Pair{134, 936},  Pair{136, 950},
                               Pair{161, 1253}, Pair{162, 1254},
                               Pair{163, 1258}, Pair{177, 1255},
                               Pair{178, 1256}, Pair{186, 1257},
                               Pair{204, 1251}, Pair{222, 874},
                               Pair{238, 1250}, Pair{254, 437},
                               Pair{255, 850}};

QString DecodeSingleByte(QByteArrayView bytes, const RtfHighHalf& high) {
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [&high](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return QChar(byte < 0x80 ? char16_t(byte) : high[byte - 0x80]);
    });
    return text;
}

QString DecodeSymbols(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return QChar(byte < 0x20 ? char16_t(byte) : char16_t(0xF000 + byte));
    });
    return text;
}

// Nothing where Qt was built without the tables, and where the bytes are no text in that code page.
std::optional<QString> DecodeByName(QByteArrayView bytes, const char* name) {
    QStringDecoder decoder(name, QStringConverter::Flag::Stateless);
    if (!decoder.isValid())
        return std::nullopt;
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

std::optional<QString> DecodeEastAsian(QByteArrayView bytes, int codePage) {
    switch (codePage) {
    case 932:
        return DecodeByName(bytes, "windows-932");
    case 936:
        return DecodeByName(bytes, "windows-936");
    case 949:
        return DecodeByName(bytes, "windows-949");
    case 950:
        return DecodeByName(bytes, "windows-950");
    default:
        return std::nullopt;
    }
}

} // namespace

int CodePageOfCharset(int charset, int fallback) {
    const auto* found = std::find_if(kCharsets.begin(), kCharsets.end(),
                                     [charset](const Pair& pair) { return pair.Charset == charset; });
    return found == kCharsets.end() ? fallback : found->CodePage;
}

std::optional<QString> DecodeBytes(QByteArrayView bytes, const RtfEncoding& encoding) {
    switch (encoding.CodePage) {
    case kRtfAnsiCodePage:
        return DecodeWindows1252(bytes);
    case kRtfSymbolCodePage:
        return DecodeSymbols(bytes);
    case kUtf8CodePage:
        return DecodeByName(bytes, "UTF-8");
    default:
        break;
    }
    if (const RtfHighHalf* high = FindCodePageTable(encoding.CodePage))
        return DecodeSingleByte(bytes, *high);
    if (encoding.System && *encoding.System) {
        if (const std::optional<QString> text = (*encoding.System)(bytes, encoding.CodePage))
            return text;
    }
    return DecodeEastAsian(bytes, encoding.CodePage);
}

} // namespace paneda
