#include "notes/rtf/read/parser.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/read/raw.h"
#include "notes/rtf/read/tokens.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>
#include <QSizeF>

#include <algorithm>
#include <array>

namespace paneda {

namespace {

// Pixels. A picture may say that it is larger; it is shown no larger.
constexpr qreal kMaxSide = 20000;
// Hundredths of a millimetre in a pixel of 1/96 inch.
constexpr qreal kHimetricPerPixel = 2540.0 / 96;

constexpr std::array<QByteArrayView, 8> kKinds{"pngblip",  "jpegblip", "emfblip", "wmetafile",
                                               "dibitmap", "wbitmap",  "macpict", "pmmetafile"};

void AppendHex(QByteArray& bytes, QByteArrayView digits, int& pending) {
    bytes.reserve(bytes.size() + digits.size() / 2);
    for (const char c : digits) {
        const int value = HexValue(c);
        if (value < 0)
            continue;
        if (pending < 0) {
            pending = value;
        } else {
            bytes.append(char(pending * 16 + value));
            pending = -1;
        }
    }
}

class PictureReader {
public:
    explicit PictureReader(QByteArrayView source) : tokens_(source) {}

    QTextImageFormat Read() {
        for (RtfToken token = tokens_.Next(); token.Kind != RtfToken::Type::End; token = tokens_.Next())
            Take(token);
        if (goalWidth_ <= 0 && goalHeight_ <= 0 && width_ == 0 && height_ == 0)
            TakeOwnSize();
        const QSizeF shown = ShownSize();
        QTextImageFormat format;
        format.setWidth(shown.width());
        format.setHeight(shown.height());
        format.setProperty(RtfPictureShown, shown);
        format.setProperty(RtfPictureBytes, bytes_);
        format.setProperty(RtfPictureKind, kind_);
        format.setProperty(RtfPictureWords, words_);
        format.setName(QStringLiteral("rtf-picture:") + QString::fromLatin1(Digest()));
        return format;
    }

private:
    void Take(const RtfToken& token) {
        switch (token.Kind) {
        case RtfToken::Type::Open:
            tokens_.SkipGroup();
            words_ += KeptRtf(tokens_.Bytes().sliced(token.Begin, tokens_.Position() - token.Begin));
            break;
        case RtfToken::Type::Word:
            TakeWord(token);
            break;
        case RtfToken::Type::Text:
            AppendHex(bytes_, token.Text, pending_);
            break;
        case RtfToken::Type::Binary:
            bytes_.append(token.Text);
            break;
        default:
            break;
        }
    }

    void TakeWord(const RtfToken& token) {
        if (std::find(kKinds.begin(), kKinds.end(), token.Text) != kKinds.end()) {
            kind_ = SourceOfWord(token).sliced(1);
            return;
        }
        // All words of pictures begin with "pic" or "bli" or are "bm..." or "wbm..."; others are no
        // picture's.
        if (token.Text.size() < 3)
            return;
        words_ += SourceOfWord(token);
        TakeMeasure(token);
    }

    void TakeMeasure(const RtfToken& token) {
        const auto take = [&token](const char* word, int& value) {
            if (token.Text == word)
                value = std::clamp(token.Number, -1000000, 1000000);
        };
        take("picw", width_);
        take("pich", height_);
        take("picwgoal", goalWidth_);
        take("pichgoal", goalHeight_);
        take("picscalex", scaleX_);
        take("picscaley", scaleY_);
        take("piccropl", cropLeft_);
        take("piccropr", cropRight_);
        take("piccropt", cropTop_);
        take("piccropb", cropBottom_);
    }

    // Of a picture that only its own bytes know.
    void TakeOwnSize() {
        QBuffer buffer(&bytes_);
        const QSize own = QImageReader(&buffer).size();
        width_ = std::max(own.width(), 0);
        height_ = std::max(own.height(), 0);
    }

    // Metafiles tell their own size in 1/100 mm, pictures of dots in dots.
    qreal Side(int goal, int own, int cropped, int scale) const {
        const bool isMetafile = kind_.startsWith("wmetafile") || kind_ == "emfblip";
        const qreal full = goal > 0 ? (goal - cropped) / kRtfTwipsPerPixel
                                    : std::abs(own) / (isMetafile ? kHimetricPerPixel : 1.0);
        return std::clamp(full * (scale > 0 ? scale : 100) / 100, 1.0, kMaxSide);
    }

    QSizeF ShownSize() const {
        return {Side(goalWidth_, width_, cropLeft_ + cropRight_, scaleX_),
                Side(goalHeight_, height_, cropTop_ + cropBottom_, scaleY_)};
    }

    QByteArray Digest() const {
        QCryptographicHash hash(QCryptographicHash::Sha1);
        hash.addData(kind_);
        hash.addData(bytes_);
        return hash.result().toHex();
    }

    RtfTokenizer tokens_;
    QByteArray bytes_;
    QByteArray kind_;
    QByteArray words_;
    int pending_ = -1;
    int width_ = 0;
    int height_ = 0;
    int goalWidth_ = 0;
    int goalHeight_ = 0;
    int scaleX_ = 100;
    int scaleY_ = 100;
    int cropLeft_ = 0;
    int cropRight_ = 0;
    int cropTop_ = 0;
    int cropBottom_ = 0;
};

} // namespace

QTextImageFormat ReadRtfPicture(QByteArrayView source) {
    return PictureReader(source).Read();
}

} // namespace paneda
