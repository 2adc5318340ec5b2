#include "notes/rtf/write/runs.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/read/tokens.h"
#include "notes/rtf/write/output.h"

#include <QBuffer>
#include <QImage>
#include <QTextDocument>
#include <QTextImageFormat>
#include <QUrl>

#include <optional>

namespace paneda {

namespace {

struct Picture {
    QByteArray Bytes;
    QByteArray Kind;
    QSize Pixels;
};

QByteArray KindOf(const QByteArray& bytes) {
    if (bytes.startsWith("\x89PNG\r\n\x1a\n"))
        return "pngblip";
    return bytes.startsWith("\xff\xd8\xff") ? "jpegblip" : "";
}

Picture ResourcePicture(const QVariant& resource) {
    Picture picture;
    QImage image;
    if (resource.typeId() == QMetaType::QByteArray) {
        picture.Bytes = resource.toByteArray();
        picture.Kind = KindOf(picture.Bytes);
        image = QImage::fromData(picture.Bytes);
    } else {
        image = resource.value<QImage>();
    }
    picture.Pixels = image.deviceIndependentSize().toSize();
    if (picture.Kind.isEmpty() && !image.isNull()) {
        picture.Kind = "pngblip";
        picture.Bytes.clear();
        QBuffer buffer(&picture.Bytes);
        image.save(&buffer, "PNG");
    }
    return picture;
}

void WriteBytes(RtfOutput& out, QByteArrayView kind, const QByteArray& bytes) {
    out.Word(kind);
    out.Hex(bytes);
}

bool IsHorizontal(QByteArrayView word) {
    return word == "picwgoal" || word == "piccropl" || word == "piccropr";
}

bool IsVertical(QByteArrayView word) {
    return word == "pichgoal" || word == "piccropt" || word == "piccropb";
}

// The words of a picture that has been given another size: what is in twips grows with it, and the
// scales are gone. Without a goal one is made from `size`, in twips.
QByteArray ResizedWords(const QByteArray& words, QSizeF scale, QSize size) {
    RtfOutput out;
    bool hasGoal = false;
    RtfTokenizer tokens(words);
    for (RtfToken token = tokens.Next(); token.Kind != RtfToken::Type::End; token = tokens.Next()) {
        const bool isHorizontal = token.Kind == RtfToken::Type::Word && IsHorizontal(token.Text);
        const bool isVertical = token.Kind == RtfToken::Type::Word && IsVertical(token.Text);
        if (isHorizontal || isVertical) {
            hasGoal = hasGoal || token.Text.endsWith("goal");
            out.Word(token.Text, qRound(token.Number * (isHorizontal ? scale.width() : scale.height())));
        } else if (token.Kind == RtfToken::Type::Open) {
            tokens.SkipGroup();
            out.Raw(QByteArrayView(words).sliced(token.Begin, tokens.Position() - token.Begin));
        } else if (token.Text != "picscalex" && token.Text != "picscaley") {
            out.Raw(QByteArrayView(words).sliced(token.Begin, token.End - token.Begin));
        }
    }
    if (!hasGoal) {
        out.Word("picwgoal", size.width());
        out.Word("pichgoal", size.height());
    }
    return out.Bytes();
}

int NumberOf(const QByteArray& words, QByteArrayView name, int absent) {
    RtfTokenizer tokens(words);
    for (RtfToken token = tokens.Next(); token.Kind != RtfToken::Type::End; token = tokens.Next()) {
        if (token.Kind == RtfToken::Type::Open)
            tokens.SkipGroup();
        else if (token.Kind == RtfToken::Type::Word && token.Text == name)
            return token.Number;
    }
    return absent;
}

QByteArray WordsOf(const QTextImageFormat& format) {
    const QByteArray words = format.property(RtfPictureWords).toByteArray();
    const QSizeF shown = format.property(RtfPictureShown).toSizeF();
    if (shown.isEmpty() || !format.hasProperty(QTextFormat::ImageWidth) ||
        !format.hasProperty(QTextFormat::ImageHeight))
        return words;
    const QSizeF now(format.width(), format.height());
    if (now.isEmpty() ||
        (qFuzzyCompare(now.width(), shown.width()) && qFuzzyCompare(now.height(), shown.height())))
        return words;
    const QSizeF scale(now.width() / shown.width() * NumberOf(words, "picscalex", 100) / 100,
                       now.height() / shown.height() * NumberOf(words, "picscaley", 100) / 100);
    return ResizedWords(words, scale, (now * kRtfTwipsPerPixel).toSize());
}

void WriteReadPicture(RtfOutput& out, const QTextImageFormat& format) {
    const QByteArray fallback = format.property(RtfPictureFallback).toByteArray();
    if (!fallback.isEmpty()) {
        out.OpenStarred();
        out.Word("shppict");
    }
    out.Open();
    out.Word("pict");
    out.Raw(WordsOf(format));
    WriteBytes(out, format.property(RtfPictureKind).toByteArray(),
               format.property(RtfPictureBytes).toByteArray());
    out.Close();
    if (!fallback.isEmpty())
        out.Close();
    out.Raw(fallback);
}

} // namespace

void WritePicture(RtfOutput& out, const QTextImageFormat& format, const QTextDocument& document) {
    if (format.hasProperty(RtfPictureBytes))
        return WriteReadPicture(out, format);
    const Picture picture =
        ResourcePicture(document.resource(QTextDocument::ImageResource, QUrl(format.name())));
    if (picture.Bytes.isEmpty())
        return out.Text(format.stringProperty(QTextFormat::ImageAltText));
    const qreal width = format.width() > 0 ? format.width() : picture.Pixels.width();
    const qreal height = format.height() > 0 ? format.height() : picture.Pixels.height();
    out.Open();
    out.Word("pict");
    out.Word("picw", picture.Pixels.width());
    out.Word("pich", picture.Pixels.height());
    out.Word("picwgoal", qRound(width * kRtfTwipsPerPixel));
    out.Word("pichgoal", qRound(height * kRtfTwipsPerPixel));
    WriteBytes(out, picture.Kind, picture.Bytes);
    out.Close();
}

} // namespace paneda
