#include "sample_documents.h"

#include "notes/rtf/properties.h"

#include <QBuffer>
#include <QImage>
#include <QRandomGenerator>
#include <QTextBlock>
#include <QTextFragment>
#include <QTextList>
#include <QTextTable>
#include <QUrl>

namespace paneda::test {

namespace {

QTextCharFormat Sized(const QString& family, qreal points) {
    QTextCharFormat format;
    format.setFontFamilies({family});
    format.setFontPointSize(points);
    return format;
}

QTextCharFormat Verdana() {
    return Sized(QStringLiteral("Verdana"), 10);
}

void Characters(QTextCursor& cursor) {
    cursor.insertText(
        QStringLiteral("braces {} and \\, caf\u00e9 \u20ac, \u044f, \u4e2d, \U0001F600, "
                       "a\tb, 10\u00a0km, co\u00adop, x\u2011y, one\u2028two \u201cquoted\u201d"),
        Verdana());
}

void Looks(QTextCursor& cursor) {
    const auto add = [&cursor](const char* text, const std::function<void(QTextCharFormat&)>& change) {
        QTextCharFormat format = Verdana();
        change(format);
        cursor.insertText(QString::fromLatin1(text), format);
        cursor.insertText(QStringLiteral(" plain "), Verdana());
    };
    add("bold", [](auto& f) { f.setFontWeight(QFont::Bold); });
    add("italic", [](auto& f) { f.setFontItalic(true); });
    add("underlined", [](auto& f) { f.setFontUnderline(true); });
    add("struck", [](auto& f) { f.setFontStrikeOut(true); });
    add("raised", [](auto& f) { f.setVerticalAlignment(QTextCharFormat::AlignSuperScript); });
    add("lowered", [](auto& f) { f.setVerticalAlignment(QTextCharFormat::AlignSubScript); });
    add("small caps", [](auto& f) { f.setFontCapitalization(QFont::SmallCaps); });
    add("big", [](auto& f) { f.setFontPointSize(20.5); });
    add("other", [](auto& f) { f.setFontFamilies({QStringLiteral("Courier New")}); });
    add("red", [](auto& f) { f.setForeground(QColor(255, 0, 0)); });
    add("marked", [](auto& f) { f.setBackground(QColor(255, 255, 0)); });
    add("all", [](auto& f) {
        f.setFontWeight(QFont::Bold);
        f.setFontItalic(true);
        f.setForeground(QColor(0, 0, 160));
        f.setFontFamilies({QStringLiteral("Georgia")});
        f.setFontPointSize(14);
    });
}

void Paragraphs(QTextCursor& cursor) {
    const auto add = [&cursor](const char* text, const std::function<void(QTextBlockFormat&)>& change) {
        QTextBlockFormat format;
        change(format);
        cursor.insertBlock(format, Verdana());
        cursor.insertText(QString::fromLatin1(text), Verdana());
    };
    cursor.insertText(QStringLiteral("left"), Verdana());
    add("centre", [](auto& f) { f.setAlignment(Qt::AlignHCenter); });
    add("right", [](auto& f) { f.setAlignment(Qt::AlignRight); });
    add("justified", [](auto& f) { f.setAlignment(Qt::AlignJustify); });
    add("indented", [](auto& f) {
        f.setLeftMargin(48);
        f.setRightMargin(24);
        f.setTextIndent(-24);
    });
    add("spaced", [](auto& f) {
        f.setTopMargin(12);
        f.setBottomMargin(8);
        f.setLineHeight(150, QTextBlockFormat::ProportionalHeight);
    });
    add("a\tb", [](auto& f) {
        f.setTabPositions(
            {QTextOption::Tab(96, QTextOption::LeftTab), QTextOption::Tab(192, QTextOption::RightTab)});
    });
    add("", [](auto&) {});
    add("shaded", [](auto& f) { f.setBackground(QColor(200, 230, 255)); });
}

void AddList(QTextCursor& cursor, QTextListFormat::Style style, const QStringList& items) {
    QTextListFormat format;
    format.setStyle(style);
    cursor.insertBlock(QTextBlockFormat(), Verdana());
    cursor.createList(format);
    cursor.insertText(items.first(), Verdana());
    for (const QString& item : items.sliced(1)) {
        cursor.insertBlock();
        cursor.insertText(item, Verdana());
    }
    cursor.insertBlock(QTextBlockFormat(), Verdana());
}

void Lists(QTextCursor& cursor) {
    cursor.insertText(QStringLiteral("before"), Verdana());
    AddList(cursor, QTextListFormat::ListDisc, {QStringLiteral("dot one"), QStringLiteral("dot two")});
    cursor.insertText(QStringLiteral("between"), Verdana());
    AddList(cursor, QTextListFormat::ListDecimal,
            {QStringLiteral("number one"), QStringLiteral("number two")});
    AddList(cursor, QTextListFormat::ListLowerAlpha, {QStringLiteral("letter")});
    AddList(cursor, QTextListFormat::ListUpperRoman,
            {QStringLiteral("roman one"), QStringLiteral("roman two"), QStringLiteral("roman three")});
    cursor.insertText(QStringLiteral("after"), Verdana());
}

void Links(QTextCursor& cursor) {
    QTextCharFormat link = Verdana();
    link.setAnchor(true);
    link.setAnchorHref(QStringLiteral("https://example.org/a?b=c&d=%20e"));
    link.setFontUnderline(true);
    link.setForeground(QColor(0, 0, 255));
    cursor.insertText(QStringLiteral("see "), Verdana());
    cursor.insertText(QStringLiteral("this "), link);
    link.setFontWeight(QFont::Bold);
    cursor.insertText(QStringLiteral("page"), link);
    cursor.insertText(QStringLiteral(" for more"), Verdana());
}

void Pictures(QTextCursor& cursor) {
    cursor.insertText(QStringLiteral("in "), Verdana());
    const QString name = QStringLiteral("picture:1");
    cursor.document()->addResource(QTextDocument::ImageResource, QUrl(name), SamplePng());
    QTextImageFormat format;
    format.setName(name);
    format.setWidth(20);
    format.setHeight(10);
    format.setFontFamilies({QStringLiteral("Verdana")});
    format.setFontPointSize(10);
    cursor.insertImage(format);
    cursor.insertText(QStringLiteral(" line"), Verdana());
}

void FillCell(const QTextTable& table, int row, int column, const QString& text) {
    table.cellAt(row, column).firstCursorPosition().insertText(text, Verdana());
}

QTextTableFormat Bordered(const QList<qreal>& widths) {
    QTextTableFormat format;
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    QList<QTextLength> lengths;
    for (const qreal width : widths)
        lengths.append(QTextLength(QTextLength::FixedLength, width));
    format.setColumnWidthConstraints(lengths);
    return format;
}

void Tables(QTextCursor& cursor) {
    cursor.insertText(QStringLiteral("before"), Verdana());
    QTextTable* table = cursor.insertTable(3, 3, Bordered({100, 150, 80}));
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            FillCell(*table, row, column, QStringLiteral("%1%2").arg(QChar(u'a' + column)).arg(row + 1));
    }
    QTextCursor inner = table->cellAt(1, 1).lastCursorPosition();
    inner.insertBlock();
    inner.insertText(QStringLiteral("second paragraph"), Verdana());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("after"), Verdana());
}

void MergedCells(QTextCursor& cursor) {
    QTextTable* table = cursor.insertTable(3, 3, Bordered({100, 100, 100}));
    table->mergeCells(0, 0, 1, 2);
    table->mergeCells(1, 2, 2, 1);
    FillCell(*table, 0, 0, QStringLiteral("wide"));
    FillCell(*table, 0, 2, QStringLiteral("c1"));
    FillCell(*table, 1, 0, QStringLiteral("a2"));
    FillCell(*table, 1, 2, QStringLiteral("high"));
    FillCell(*table, 2, 1, QStringLiteral("b3"));
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("after"), Verdana());
}

void NestedTables(QTextCursor& cursor) {
    QTextTable* outer = cursor.insertTable(2, 2, Bordered({300, 200}));
    FillCell(*outer, 0, 1, QStringLiteral("outer"));
    FillCell(*outer, 1, 0, QStringLiteral("below"));
    QTextCursor inside = outer->cellAt(0, 0).firstCursorPosition();
    inside.insertText(QStringLiteral("above"), Verdana());
    QTextTable* inner = inside.insertTable(2, 2, Bordered({100, 100}));
    FillCell(*inner, 0, 0, QStringLiteral("i1"));
    FillCell(*inner, 1, 1, QStringLiteral("i4"));
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("after"), Verdana());
}

// Describing

int Twips(qreal pixels) {
    return qRound(pixels * kRtfTwipsPerPixel);
}

QString LookOf(const QTextCharFormat& format, const QTextDocument& document) {
    const QStringList families = format.fontFamilies().toStringList();
    const QFont defaults = document.defaultFont();
    QStringList look{
        families.isEmpty() ? defaults.family() : families.first(),
        QString::number(format.fontPointSize() > 0 ? format.fontPointSize() : defaults.pointSizeF())};
    const auto add = [&look](bool is, const QString& word) {
        if (is)
            look.append(word);
    };
    add(format.fontWeight() >= QFont::DemiBold, QStringLiteral("b"));
    add(format.fontItalic(), QStringLiteral("i"));
    add(format.fontUnderline() || format.underlineStyle() != QTextCharFormat::NoUnderline,
        QStringLiteral("ul%1").arg(int(format.underlineStyle())));
    add(format.fontStrikeOut(), QStringLiteral("strike"));
    add(format.fontCapitalization() != QFont::MixedCase,
        QStringLiteral("caps%1").arg(format.fontCapitalization()));
    // In an empty cell this is the cell's own alignment as well.
    add(format.verticalAlignment() == QTextCharFormat::AlignSuperScript, QStringLiteral("super"));
    add(format.verticalAlignment() == QTextCharFormat::AlignSubScript, QStringLiteral("sub"));
    add(format.foreground().style() != Qt::NoBrush,
        QStringLiteral("on ") + format.foreground().color().name());
    add(format.background().style() != Qt::NoBrush,
        QStringLiteral("back ") + format.background().color().name());
    add(format.fontLetterSpacing() != 0, QStringLiteral("apart%1").arg(Twips(format.fontLetterSpacing())));
    add(format.hasProperty(RtfBaselineShift),
        QStringLiteral("up%1").arg(format.intProperty(RtfBaselineShift)));
    add(!format.anchorHref().isEmpty(), QStringLiteral("to ") + format.anchorHref());
    add(format.hasProperty(RtfRaw), QString::fromLatin1(format.property(RtfRaw).toByteArray()));
    return look.join(u' ');
}

QByteArray PictureBytes(const QTextImageFormat& format, const QTextDocument& document) {
    if (format.hasProperty(RtfPictureBytes))
        return format.property(RtfPictureBytes).toByteArray();
    return document.resource(QTextDocument::ImageResource, QUrl(format.name())).toByteArray();
}

QString ParagraphLook(const QTextBlock& block) {
    const QTextBlockFormat format = block.blockFormat();
    const QTextList* list = block.textList();
    const qreal left = format.leftMargin() +
                       (list != nullptr ? list->format().indent() * block.document()->indentWidth() : 0);
    const Qt::Alignment side = format.alignment() & (Qt::AlignRight | Qt::AlignHCenter | Qt::AlignJustify);
    QString look = QStringLiteral("align%1 li%2 ri%3 fi%4 sb%5 sa%6 line%7:%8")
                       .arg(int(side))
                       .arg(Twips(left))
                       .arg(Twips(format.rightMargin()))
                       .arg(list != nullptr ? 0 : Twips(format.textIndent()))
                       .arg(Twips(format.topMargin()))
                       .arg(Twips(format.bottomMargin()))
                       .arg(format.lineHeightType())
                       .arg(format.lineHeight());
    for (const QTextOption::Tab& tab : format.tabPositions())
        look += QStringLiteral(" tab%1:%2").arg(Twips(tab.position)).arg(tab.type);
    if (format.background().style() != Qt::NoBrush)
        look += QStringLiteral(" back ") + format.background().color().name();
    if (list != nullptr)
        look += QStringLiteral(" list%1 <%2|%3> item %4")
                    .arg(list->format().style())
                    .arg(list->format().numberPrefix())
                    .arg(list->itemText(block))
                    .arg(list->itemNumber(block));
    return look;
}

QString PlaceOf(const QTextBlock& block) {
    QString place;
    const QTextCursor cursor(block);
    for (const QTextFrame* frame = cursor.currentFrame(); frame != nullptr; frame = frame->parentFrame()) {
        const auto* table = qobject_cast<const QTextTable*>(frame);
        if (table == nullptr)
            continue;
        const QTextTableCell cell = table->cellAt(block.position());
        place.prepend(QStringLiteral("[%1x%2 %3,%4 %5x%6]")
                          .arg(table->rows())
                          .arg(table->columns())
                          .arg(cell.row())
                          .arg(cell.column())
                          .arg(cell.rowSpan())
                          .arg(cell.columnSpan()));
    }
    return place;
}

} // namespace

QByteArray SamplePng() {
    QImage image(4, 2, QImage::Format_RGB32);
    image.fill(QColor(10, 200, 30));
    image.setPixelColor(3, 1, Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

const QList<SampleDocument>& SampleDocuments() {
    static const QList<SampleDocument> samples{
        {QStringLiteral("empty"), [](QTextCursor&) {}},
        {QStringLiteral("characters"), Characters},
        {QStringLiteral("looks"), Looks},
        {QStringLiteral("paragraphs"), Paragraphs},
        {QStringLiteral("lists"), Lists},
        {QStringLiteral("links"), Links},
        {QStringLiteral("pictures"), Pictures},
        {QStringLiteral("tables"), Tables},
        {QStringLiteral("merged"), MergedCells},
        {QStringLiteral("nested"), NestedTables},
    };
    return samples;
}

void MakeDocument(QTextDocument& document, const std::function<void(QTextCursor&)>& fill) {
    document.setDefaultFont(QFont(QStringLiteral("Verdana"), 10));
    QTextCursor cursor(&document);
    fill(cursor);
}

void FillAtRandom(QTextCursor& cursor, quint32 seed) {
    QRandomGenerator random(seed);
    static const QStringList texts{QStringLiteral("word "),        QStringLiteral(" {\\} "),
                                   QStringLiteral("\u00e9\u20ac"), QStringLiteral("7-\t-"),
                                   QStringLiteral("\U0001F4A9"),   QStringLiteral("\u2028")};
    static const QStringList families{QStringLiteral("Verdana"), QStringLiteral("Arial"),
                                      QStringLiteral("\u660e x")};
    for (int step = 0; step < 60; ++step) {
        QTextCharFormat look = Sized(families[random.bounded(3)], 4 + random.bounded(40) / 2.0);
        if (random.bounded(3) == 0)
            look.setFontWeight(QFont::Bold);
        if (random.bounded(3) == 0)
            look.setFontItalic(true);
        if (random.bounded(4) == 0)
            look.setForeground(QColor(random.bounded(256), 0, random.bounded(256)));
        if (random.bounded(5) == 0)
            look.setAnchorHref(QStringLiteral("http://h/%1").arg(random.bounded(2)));
        const quint32 what = random.bounded(20U);
        if (what == 0) {
            QTextTable* table = cursor.insertTable(1 + random.bounded(3), 1 + random.bounded(3));
            if (random.bounded(2) == 0)
                table->mergeCells(0, 0, 1 + random.bounded(table->rows()),
                                  1 + random.bounded(table->columns()));
            cursor = table->cellAt(table->rows() - 1, table->columns() - 1).firstCursorPosition();
        } else if (what == 1) {
            cursor.movePosition(QTextCursor::End);
        } else if (what < 6) {
            QTextBlockFormat format;
            format.setLeftMargin(random.bounded(50) / 15.0);
            format.setAlignment(random.bounded(2) == 0 ? Qt::AlignRight : Qt::AlignLeft);
            cursor.insertBlock(format, look);
        } else if (what == 6) {
            cursor.createList(random.bounded(2) == 0 ? QTextListFormat::ListDisc
                                                     : QTextListFormat::ListLowerRoman);
        } else {
            cursor.insertText(texts[random.bounded(texts.size())], look);
        }
    }
}

QStringList Describe(const QTextDocument& document) {
    QStringList lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        lines.append(PlaceOf(block) + QStringLiteral("P ") + ParagraphLook(block));
        QString text;
        QString look;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            QString next = LookOf(format, document);
            if (format.isImageFormat()) {
                const QTextImageFormat picture = format.toImageFormat();
                next += QStringLiteral(" picture %1x%2 ").arg(picture.width()).arg(picture.height()) +
                        QString::fromLatin1(PictureBytes(picture, document).toHex());
            }
            // Qt may keep runs of one look apart.
            if (!text.isEmpty() && next != look)
                lines.append(QStringLiteral("  <%1> %2").arg(std::exchange(text, QString()), look));
            text += it.fragment().text();
            look = next;
        }
        if (!text.isEmpty())
            lines.append(QStringLiteral("  <%1> %2").arg(text, look));
        else
            lines.append(QStringLiteral("  <> ") + LookOf(block.charFormat(), document));
    }
    return lines;
}

} // namespace paneda::test
