#include "ui/organiser/command_icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace paneda {

namespace {

constexpr int kSide = 16; // pixels at scale 1
const QColor kOrange(0xE8, 0x7A, 0x10);

QPainterPath Lines(CommandSign sign) {
    QPainterPath path;
    const auto line = [&path](double x1, double y1, double x2, double y2) {
        path.moveTo(x1, y1);
        path.lineTo(x2, y2);
    };
    const auto arrow = [&](double x, double tail, double head, double wing) {
        line(x, tail, x, head);
        const double back = head > tail ? -wing : wing;
        path.moveTo(x - wing, head + back);
        path.lineTo(x, head);
        path.lineTo(x + wing, head + back);
    };
    switch (sign) {
    case CommandSign::Add:
        line(8, 2.5, 8, 13.5);
        line(2.5, 8, 13.5, 8);
        break;
    case CommandSign::Delete:
        line(3.5, 3.5, 12.5, 12.5);
        line(12.5, 3.5, 3.5, 12.5);
        break;
    case CommandSign::Rename:
        path.moveTo(3, 13);
        path.lineTo(3.6, 10.2);
        path.lineTo(10.6, 3.2);
        path.lineTo(12.8, 5.4);
        path.lineTo(5.8, 12.4);
        path.closeSubpath();
        break;
    case CommandSign::Up:
        arrow(8, 13.5, 3, 4.5);
        break;
    case CommandSign::Down:
        arrow(8, 2.5, 13, 4.5);
        break;
    case CommandSign::Sort:
        line(8.5, 4, 14, 4);
        line(8.5, 8, 12.5, 8);
        line(8.5, 12, 11, 12);
        arrow(4, 2.5, 13, 2.5);
        break;
    }
    return path;
}

QPixmap Drawn(CommandSign sign, const QColor& colour, int scale) {
    QPixmap picture(kSide * scale, kSide * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = sign == CommandSign::Add ? 2.6 : 1.6;
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(Lines(sign));
    return picture;
}

} // namespace

QIcon CommandIcon(CommandSign sign, const QColor& colour, const QColor& disabled) {
    QIcon icon;
    for (const int scale : {1, 2, 3}) {
        icon.addPixmap(Drawn(sign, sign == CommandSign::Add ? kOrange : colour, scale), QIcon::Normal);
        icon.addPixmap(Drawn(sign, disabled, scale), QIcon::Disabled);
    }
    return icon;
}

} // namespace paneda
