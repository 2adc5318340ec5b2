#include "notes/rtf/view/view.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <optional>

namespace paneda {

namespace {

// The two kinds of Windows metafile are a head and a row of records. Those below draw; all others that matter
// here only set the ground, the scale, pens and brushes.

constexpr quint32 kPlaceableMark = 0x9AC6CDD7;
constexpr qsizetype kPlaceableSize = 22;
constexpr qsizetype kWmfHeadSize = 18;
constexpr qsizetype kWmfRecordHead = 6;
constexpr qsizetype kEmfRecordHead = 8;
constexpr quint32 kEmfEnd = 14;

struct BitmapRecord {
    quint32 Type;
    // WMF: place of the bitmap in the record. EMF: place of four numbers, where the bitmap's head and its
    // dots begin and how long each is.
    qsizetype At;
};

constexpr std::array kWmfBitmaps{BitmapRecord{0x0F43, 28}, BitmapRecord{0x0B41, 26}, BitmapRecord{0x0940, 22},
                                 BitmapRecord{0x0D33, 24}};
constexpr std::array kEmfBitmaps{BitmapRecord{80, 48}, BitmapRecord{81, 48}, BitmapRecord{76, 84},
                                 BitmapRecord{77, 84}, BitmapRecord{114, 84}};
// Lines, areas, texts.
constexpr std::array<quint32, 21> kWmfDrawing{0x0213, 0x0324, 0x0325, 0x0418, 0x041B, 0x0521, 0x0538,
                                              0x061C, 0x061D, 0x081A, 0x0817, 0x0830, 0x0A32, 0x0922,
                                              0x0B23, 0x0419, 0x041F, 0x0228, 0x012A, 0x012B, 0x0429};
constexpr std::array<quint32, 42> kEmfDrawing{2,  3,  4,  5,  6,  7,  8,  15, 41, 42, 43, 44, 45,  46,
                                              47, 53, 54, 55, 56, 62, 63, 64, 71, 72, 73, 74, 78,  79,
                                              83, 84, 85, 86, 87, 88, 89, 90, 91, 92, 96, 97, 108, 118};

template <typename Number>
Number Read(QByteArrayView bytes, qsizetype at) {
    return at < 0 || bytes.size() - at < qsizetype(sizeof(Number))
               ? Number(0)
               : qFromLittleEndian<Number>(bytes.data() + at);
}

QByteArrayView Part(QByteArrayView bytes, quint32 begin, quint32 size) {
    return qint64(begin) + size <= bytes.size() ? bytes.sliced(begin, size) : QByteArrayView();
}

// Collects the bitmap while records come; more than one, or anything else that is drawn, makes it no picture
// of one bitmap.
class OneBitmap {
public:
    template <typename Bitmaps, typename Drawing>
    std::optional<qsizetype> Place(quint32 type, const Bitmaps& bitmaps, const Drawing& drawing) {
        const auto* found = std::find_if(bitmaps.begin(), bitmaps.end(),
                                         [type](const BitmapRecord& record) { return record.Type == type; });
        isOther_ = isOther_ || std::find(drawing.begin(), drawing.end(), type) != drawing.end();
        return found == bitmaps.end() ? std::nullopt : std::optional(found->At);
    }

    // An empty one is a plain fill.
    void Take(const QByteArray& bitmap) {
        isOther_ = isOther_ || !bitmap_.isEmpty() || bitmap.isEmpty();
        bitmap_ = bitmap;
    }

    QByteArray Result() const { return isOther_ ? QByteArray() : bitmap_; }

private:
    QByteArray bitmap_;
    bool isOther_ = false;
};

QByteArray WmfBitmap(QByteArrayView bytes) {
    OneBitmap bitmap;
    qsizetype at = (Read<quint32>(bytes, 0) == kPlaceableMark ? kPlaceableSize : 0) + kWmfHeadSize;
    while (at + kWmfRecordHead <= bytes.size()) {
        const qint64 size = qint64(Read<quint32>(bytes, at)) * 2;
        const quint32 type = Read<quint16>(bytes, at + 4);
        if (type == 0 || size < kWmfRecordHead || size > bytes.size() - at)
            break;
        const QByteArrayView record = bytes.sliced(at, size);
        if (const auto place = bitmap.Place(type, kWmfBitmaps, kWmfDrawing))
            bitmap.Take(record.sliced(std::min(*place, record.size())).toByteArray());
        at += size;
    }
    return bitmap.Result();
}

QByteArray EmfBitmap(QByteArrayView bytes) {
    OneBitmap bitmap;
    for (qsizetype at = 0; at + kEmfRecordHead <= bytes.size();) {
        const quint32 type = Read<quint32>(bytes, at);
        const quint32 size = Read<quint32>(bytes, at + 4);
        if (type == kEmfEnd || size < kEmfRecordHead || size > bytes.size() - at)
            break;
        const QByteArrayView record = bytes.sliced(at, size);
        if (const auto place = bitmap.Place(type, kEmfBitmaps, kEmfDrawing))
            bitmap.Take(
                Part(record, Read<quint32>(record, *place), Read<quint32>(record, *place + 4)).toByteArray() +
                Part(record, Read<quint32>(record, *place + 8), Read<quint32>(record, *place + 12))
                    .toByteArray());
        at += size;
    }
    return bitmap.Result();
}

} // namespace

QByteArray BitmapOfMetafile(const QByteArray& bytes, const QByteArray& kind) {
    return kind == "emfblip" ? EmfBitmap(bytes) : WmfBitmap(bytes);
}

} // namespace paneda
