#include "notes/rtf/view/view.h"

#include "notes/rtf/properties.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextDocument>
#include <QUrl>

namespace paneda {

QSizeF RtfObjectView::intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) {
    Q_UNUSED(document);
    Q_UNUSED(position);
    if (format.hasProperty(RtfObjectSize))
        return format.property(RtfObjectSize).toSizeF();
    const QString label = format.stringProperty(RtfObjectText);
    if (label.isEmpty())
        return {0, 0};
    const QFontMetricsF metrics(format.toCharFormat().font());
    return {metrics.horizontalAdvance(label), metrics.ascent()};
}

void RtfObjectView::drawObject(QPainter* painter, const QRectF& place, QTextDocument* document, int position,
                               const QTextFormat& format) {
    Q_UNUSED(position);
    if (const QString name = format.stringProperty(QTextFormat::ImageName); document && !name.isEmpty()) {
        const QImage picture = document->resource(QTextDocument::ImageResource, QUrl(name)).value<QImage>();
        if (!picture.isNull()) {
            painter->drawImage(place, picture);
            return;
        }
    }
    const QString label = format.stringProperty(RtfObjectText);
    const QTextCharFormat look = format.toCharFormat();
    painter->save();
    painter->setFont(look.font());
    if (look.hasProperty(QTextFormat::ForegroundBrush))
        painter->setPen(look.foreground().color());
    if (format.hasProperty(RtfObjectSize)) {
        painter->drawRect(place.adjusted(0, 0, -1, -1));
        painter->drawText(place, Qt::AlignCenter, label);
    } else if (!label.isEmpty()) {
        // The object stands on the line as a letter does.
        painter->drawText(place.bottomLeft(), label);
    }
    painter->restore();
}

void ShowRtfObjects(QTextDocument& document) {
    QAbstractTextDocumentLayout* layout = document.documentLayout();
    layout->registerHandler(kRtfObject, new RtfObjectView(layout));
}

} // namespace paneda
