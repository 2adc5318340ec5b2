#pragma once

#include <QByteArray>
#include <QImage>
#include <QObject>
#include <QTextObjectInterface>

class QTextDocument;

namespace paneda {

// Draws a note's inline objects (kRtfObject): the picture that stands for an object, or else a label in the
// text's own font, in a frame where the size of the object is known. An object with none of these takes no
// room.
class RtfObjectView : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    explicit RtfObjectView(QObject* parent = nullptr) : QObject(parent) {}

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& place, QTextDocument* document, int position,
                    const QTextFormat& format) override;
};

// Lets a document's layout draw its inline objects. To be called again when the document gets another layout.
void ShowRtfObjects(QTextDocument& document);

// Makes a document find the pictures in its formats (RtfPictureBytes), also those that are pasted in later.
// Each is decoded when it is drawn, and as many are held decoded as 64 MB take; in place of a picture that
// cannot be decoded, or only later since others took half a second, stands an empty frame of its size.
// Replaces the document's resource provider.
void ShowRtfPictures(QTextDocument& document);

// The picture of bytes of a kind as in RtfPictureKind. A null image for bytes that cannot be decoded; of
// metafiles only those are decoded that hold one bitmap and nothing else, as rich text controls write them.
QImage RtfPicture(const QByteArray& bytes, const QByteArray& kind);

// The bitmap of such a metafile: a device independent bitmap without a file header. Empty for any other
// metafile. `kind` is "emfblip", or a word that begins with "wmetafile".
QByteArray BitmapOfMetafile(const QByteArray& bytes, const QByteArray& kind);

} // namespace paneda
