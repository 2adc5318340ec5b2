#pragma once

#include <QByteArray>
#include <QImage>

class QTextDocument;

namespace paneda {

// Makes a document find the pictures that its image formats carry (RtfPictureBytes), each decoded when it is
// first drawn. Also holds for pictures that are pasted in later. Replaces the document's resource provider.
void ShowRtfPictures(QTextDocument& document);

// The picture of bytes of a kind as in RtfPictureKind. For a kind that is not drawn (metafiles), and for
// bytes that cannot be decoded, a framed empty picture of the size, which is in pixels.
QImage RtfPicture(const QByteArray& bytes, const QByteArray& kind, QSize size);

} // namespace paneda
