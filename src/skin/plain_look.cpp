#include "skin/plain_look.h"

#include "core/store/names.h"
#include "core/store/style_code.h"
#include "core/text/device_pixels.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace paneda {

namespace {

constexpr int kTopMargin = 10; // pixels, as all below
constexpr int kSideMargin = 8;
constexpr int kBottomMargin = 26;
constexpr int kHeaderHeight = 17;
constexpr int kBarHeight = 22;
constexpr int kChromeSize = 18;
constexpr int kBigIcon = 32;
constexpr int kSmallIcon = 16;
constexpr int kTextIndent = 5;
constexpr int kFontPixels = 12;
constexpr int kSmallFontPixels = 10;

constexpr QRgb kFrame = 0xFF1B1E23;
constexpr QRgb kGround = 0xFF2A2F36;
constexpr QRgb kHeader = 0xFF39414B;
constexpr QRgb kHeaderText = 0xFFDCE3EA;
constexpr QRgb kButton = 0xFF343B44;
constexpr QRgb kButtonText = 0xFFF1F4F7;
constexpr QRgb kBar = 0xFF323942;
constexpr QRgb kBarText = 0xFFC3CCD6;
constexpr QRgb kActiveBar = 0xFF2F6FB0;
constexpr QRgb kActiveBarText = 0xFFFFFFFF;
constexpr QRgb kLine = 0xFF1F242A;

// Draws one panel; the painter and what is drawn, held together.
class PlainPainter {
public:
    PlainPainter(QPainter& painter, const CatalogueList& catalogue, const PanelGeometry& geometry,
                 const ButtonIconSource& icons, double ratio)
        : painter_(painter), catalogue_(catalogue), geometry_(geometry), icons_(icons), ratio_(ratio) {}

    void Frame() {
        const QRect all = ToPixels({0, 0, geometry_.PanelWidth, geometry_.PanelHeight});
        const FrameMargins& margins = geometry_.Metrics.Margins;
        painter_.fillRect(all, QColor::fromRgb(kFrame));
        painter_.fillRect(ToPixels({margins.Left, margins.Top, geometry_.InnerWidth(),
                                    geometry_.PanelHeight - margins.Top - margins.Bottom}),
                          QColor::fromRgb(kGround));
        painter_.setPen(QColor::fromRgb(kHeader));
        painter_.drawRect(all.adjusted(0, 0, -1, -1));
    }

    void Header(const GroupEntry& group, const GroupGeometry& place) {
        const QRect rect = ToPixels(place.Header);
        painter_.fillRect(rect, QColor::fromRgb(kHeader));
        UseFont(kFontPixels - 1, true);
        Text(rect.adjusted(kTextIndent, 0, -kTextIndent, 0), Qt::AlignLeft | Qt::AlignVCenter,
             TitleBehindPrefix(group.FolderName), kHeaderText);
    }

    void Button(const ButtonEntry& button, const ButtonGeometry& place) {
        const QRect rect = ToPixels(place.Rect);
        const ButtonStyle style = DecodeStyle(button.Style);
        painter_.fillRect(rect, QColor::fromRgb(kButton));
        const QRect icon = IconRect(rect, style, button.Style.isEmpty());
        const QImage picture = icon.isEmpty() ? QImage() : icons_(button, {icon.width(), ratio_});
        if (!picture.isNull())
            painter_.drawImage(icon, picture);
        if (style.LabelOn || picture.isNull())
            Label(button, style, rect, picture.isNull() ? QRect() : icon);
    }

    void Bar(int index, bool active) {
        const QRect rect = ToPixels(geometry_.Categories[std::size_t(index)].Bar);
        painter_.fillRect(rect, QColor::fromRgb(active ? kActiveBar : kBar));
        painter_.fillRect(rect.left(), rect.top(), rect.width(), 1, QColor::fromRgb(kLine));
        UseFont(kFontPixels, active);
        Text(rect.adjusted(kTextIndent, 1, -kTextIndent, 0), Qt::AlignLeft | Qt::AlignVCenter,
             QStringLiteral("  ") + BarTitle(catalogue_[std::size_t(index)]),
             active ? kActiveBarText : kBarText);
    }

    void Chrome() {
        const PlainChrome chrome = PlainChromeOf(geometry_);
        const QColor glyph = QColor::fromRgb(kBarText);
        const QPoint hide = chrome.Hide.center();
        painter_.fillRect(hide.x() - 4, hide.y() + 3, 9, 2, glyph);
        const QPoint menu = chrome.Menu.center();
        for (const int dy : {-4, 0, 4})
            painter_.fillRect(menu.x() - 4, menu.y() + dy, 9, 2, glyph);
    }

private:
    void UseFont(int pixels, bool bold) {
        QFont font = painter_.font();
        font.setPixelSize(pixels);
        font.setBold(bold);
        painter_.setFont(font);
    }

    void Text(const QRect& rect, int flags, const QString& text, QRgb colour) {
        painter_.setPen(QColor::fromRgb(colour));
        const QString shown = painter_.fontMetrics().elidedText(text, Qt::ElideRight, rect.width());
        painter_.drawText(rect, flags | Qt::TextSingleLine, shown);
    }

    // Empty for a button without an icon. A file without a style, as dropped into the store, shows its icon.
    static QRect IconRect(const QRect& rect, const ButtonStyle& style, bool plainFile) {
        if (!style.DrawIcon && !plainFile)
            return {};
        const int wanted = style.Icon == ButtonStyle::IconSize::Small ? kSmallIcon : kBigIcon;
        const int size = std::min({wanted, rect.width(), rect.height()});
        const int column = (style.IconAlignment - 1) % 3;
        const int row = (style.IconAlignment - 1) / 3;
        return {rect.left() + (rect.width() - size) * column / 2,
                rect.top() + (rect.height() - size) * row / 2, size, size};
    }

    void Label(const ButtonEntry& button, const ButtonStyle& style, const QRect& rect, const QRect& icon) {
        const QString caption = button.Spare.isEmpty() ? CaptionOf(button) : button.Spare.mid(6);
        QRect room = rect.adjusted(1, 0, -1, 0);
        if (!icon.isEmpty() && style.LabelPosition == ButtonStyle::LabelPlace::RightOfIcon)
            room.setLeft(icon.right() + 4);
        else if (!icon.isEmpty() && style.LabelPosition == ButtonStyle::LabelPlace::LeftOfIcon)
            room.setRight(icon.left() - 4);
        UseFont(style.LabelFont <= 2 || rect.width() <= kBigIcon ? kSmallFontPixels : kFontPixels,
                style.LabelBold);
        Text(room, LabelFlags(style), caption, kButtonText);
    }

    static int LabelFlags(const ButtonStyle& style) {
        static constexpr Qt::AlignmentFlag kColumns[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
        static constexpr Qt::AlignmentFlag kRows[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
        const int code = style.LabelAlignment - 1;
        return kColumns[code % 3] | kRows[code / 3];
    }

    QPainter& painter_;
    const CatalogueList& catalogue_;
    const PanelGeometry& geometry_;
    const ButtonIconSource& icons_;
    double ratio_;
};

} // namespace

PanelMetrics PlainMetrics() {
    return {{PixelsToTwips(kTopMargin), PixelsToTwips(kSideMargin), PixelsToTwips(kBottomMargin),
             PixelsToTwips(kSideMargin)},
            PixelsToTwips(kHeaderHeight),
            PixelsToTwips(kBarHeight)};
}

PlainChrome PlainChromeOf(const PanelGeometry& geometry) {
    const int right = TwipsToPixels(geometry.PanelWidth) - kSideMargin;
    const int top = TwipsToPixels(geometry.PanelHeight) - (kBottomMargin + kChromeSize) / 2;
    return {{right - kChromeSize, top, kChromeSize, kChromeSize},
            {right - 2 * kChromeSize - 4, top, kChromeSize, kChromeSize}};
}

QImage PaintPlainPanel(const CatalogueList& catalogue, const PanelGeometry& geometry,
                       const OpenedCategory& opened, const ButtonIconSource& icons, double ratio) {
    const QSize window(TwipsToPixels(geometry.PanelWidth), TwipsToPixels(geometry.PanelHeight));
    QImage picture(DeviceSize(window.expandedTo({1, 1}), ratio), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    PlainPainter plain(painter, catalogue, geometry, icons, ratio);
    plain.Frame();
    if (opened.Index >= 0) {
        const auto index = std::size_t(opened.Index);
        const std::vector<GroupGeometry>& places = geometry.Categories[index].Groups;
        const std::vector<GroupEntry>& groups = catalogue[index].Groups;
        for (const int group : opened.Headers)
            plain.Header(groups[std::size_t(group)], places[std::size_t(group)]);
        for (const auto& [group, button] : opened.Buttons)
            plain.Button(groups[std::size_t(group)].Buttons[std::size_t(button)],
                         places[std::size_t(group)].Buttons[std::size_t(button)]);
    }
    for (int i = 0; i < int(catalogue.size()); ++i)
        plain.Bar(i, i == opened.Index);
    plain.Chrome();
    return picture;
}

} // namespace paneda
