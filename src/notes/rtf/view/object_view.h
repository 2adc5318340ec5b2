#pragma once

#include <QObject>
#include <QTextObjectInterface>

namespace paneda {

// Draws a note's inline objects (kRtfObject): a label in the text's own font, or a frame with the label where
// the object tells its size. What has neither takes no room.
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

} // namespace paneda
