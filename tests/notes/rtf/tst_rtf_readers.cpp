#include "notes/rtf/properties.h"
#include "notes/rtf/write/writer.h"
#include "sample_documents.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextFragment>
#include <QTextList>
#include <QTextTable>

using namespace paneda;
using namespace paneda::test;

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kPatience = 100000; // ms

// What both sides of the comparison are brought to: a document in lines.
struct Run {
    QString Text;
    QStringList Look;
};

class Lines {
public:
    void Paragraph(const QString& align, int left, const QString& list) {
        Flush();
        lines_.append(QStringLiteral("P %1 %2 %3").arg(align).arg(left).arg(list));
    }
    void Add(const QString& text, const QStringList& look) {
        if (look != run_.Look)
            Flush();
        run_.Look = look;
        run_.Text += text;
    }
    void Mark(const QString& mark) {
        Flush();
        lines_.append(mark);
    }
    QStringList Take() {
        Flush();
        return lines_;
    }

private:
    void Flush() {
        if (!run_.Text.isEmpty())
            lines_.append(u'<' + run_.Text + QStringLiteral("> ") + run_.Look.join(u' '));
        run_ = {};
    }

    QStringList lines_;
    Run run_;
};

// Our document

// The office program shows numbers of every kind in digits when a list comes in the old form.
QString ListName(const QTextList* list) {
    if (list == nullptr)
        return {};
    return list->format().style() == QTextListFormat::ListDisc ? QStringLiteral("bullet")
                                                               : QStringLiteral("number");
}

QStringList LookOf(const QTextCharFormat& format) {
    QStringList look{format.fontFamilies().toStringList().value(0), QString::number(format.fontPointSize())};
    const auto add = [&look](bool is, const QString& word) {
        if (is)
            look.append(word);
    };
    add(format.fontWeight() > QFont::Normal, QStringLiteral("bold"));
    add(format.fontItalic(), QStringLiteral("italic"));
    add(format.fontUnderline(), QStringLiteral("underlined"));
    add(format.fontStrikeOut(), QStringLiteral("struck"));
    add(format.fontCapitalization() == QFont::SmallCaps, QStringLiteral("small-caps"));
    add(format.verticalAlignment() == QTextCharFormat::AlignSuperScript, QStringLiteral("super"));
    add(format.verticalAlignment() == QTextCharFormat::AlignSubScript, QStringLiteral("sub"));
    add(format.foreground().style() != Qt::NoBrush, format.foreground().color().name());
    add(format.background().style() != Qt::NoBrush,
        QStringLiteral("on ") + format.background().color().name());
    add(!format.anchorHref().isEmpty(), format.anchorHref());
    return look;
}

void ViewBlock(Lines& lines, const QTextBlock& block) {
    const Qt::Alignment side = block.blockFormat().alignment();
    const QTextList* list = block.textList();
    const qreal left =
        block.blockFormat().leftMargin() + (list != nullptr ? list->format().indent() * 40 : 0);
    lines.Paragraph(side.testFlag(Qt::AlignHCenter)   ? QStringLiteral("center")
                    : side.testFlag(Qt::AlignRight)   ? QStringLiteral("end")
                    : side.testFlag(Qt::AlignJustify) ? QStringLiteral("justify")
                                                      : QStringLiteral("start"),
                    qRound(left * kRtfTwipsPerPixel), ListName(list));
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextCharFormat format = it.fragment().charFormat();
        if (format.isImageFormat())
            lines.Mark(QStringLiteral("picture 300 ") + QString::fromLatin1(SamplePng().toHex()));
        else
            lines.Add(it.fragment().text(), LookOf(format));
    }
}

void ViewFrame(Lines& lines, QTextFrame::iterator at) {
    for (; !at.atEnd(); ++at) {
        const auto* table = qobject_cast<const QTextTable*>(at.currentFrame());
        if (table == nullptr) {
            ViewBlock(lines, at.currentBlock());
            continue;
        }
        for (int row = 0; row < table->rows(); ++row) {
            lines.Mark(QStringLiteral("row"));
            for (int column = 0; column < table->columns(); ++column) {
                const QTextTableCell cell = table->cellAt(row, column);
                if (cell.row() != row || cell.column() != column)
                    continue;
                lines.Mark(QStringLiteral("cell %1x%2").arg(cell.rowSpan()).arg(cell.columnSpan()));
                ViewFrame(lines, cell.begin());
            }
        }
        lines.Mark(QStringLiteral("end of table"));
    }
}

// The document as the office program has understood it, from a flat OpenDocument file

class OfficeView {
public:
    explicit OfficeView(const QDomDocument& document) {
        for (const char* group : {"office:styles", "office:automatic-styles"}) {
            const QDomElement styles =
                document.documentElement().firstChildElement(QString::fromLatin1(group));
            for (QDomElement style = styles.firstChildElement(); !style.isNull();
                 style = style.nextSiblingElement())
                styles_.insert(style.attribute(QStringLiteral("style:name")), style);
        }
        const QDomElement body = document.documentElement().firstChildElement(QStringLiteral("office:body"));
        Children(body.firstChildElement(QStringLiteral("office:text")));
    }

    QStringList Take() { return lines_.Take(); }

private:
    void Children(const QDomElement& parent) {
        for (QDomElement child = parent.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement())
            Element(child);
    }

    void Element(const QDomElement& element) {
        const QString tag = element.tagName();
        if (tag == u"text:p") {
            Paragraph(element);
        } else if (tag == u"text:list") {
            const QString outer =
                std::exchange(list_, ListKind(element.attribute(QStringLiteral("text:style-name"))));
            Children(element);
            list_ = outer;
        } else if (tag == u"table:table") {
            Children(element);
            lines_.Mark(QStringLiteral("end of table"));
        } else if (tag == u"table:table-row") {
            lines_.Mark(QStringLiteral("row"));
            Children(element);
        } else if (tag == u"table:table-cell") {
            const QString one = QStringLiteral("1");
            lines_.Mark(QStringLiteral("cell %1x%2")
                            .arg(element.attribute(QStringLiteral("table:number-rows-spanned"), one),
                                 element.attribute(QStringLiteral("table:number-columns-spanned"), one)));
            Children(element);
        } else if (tag == u"text:list-item" || tag == u"table:table-header-rows" ||
                   tag == u"table:table-rows") {
            Children(element);
        }
    }

    QString ListKind(const QString& style) const {
        const QDomElement level = styles_.value(style).firstChildElement();
        return level.tagName() == u"text:list-level-style-number" ? QStringLiteral("number")
                                                                  : QStringLiteral("bullet");
    }

    // From the style itself or the nearest one above it that has the attribute.
    QString Property(QString style, const QString& group, const QString& name) const {
        for (int depth = 0; depth < 20 && styles_.contains(style); ++depth) {
            const QDomElement properties = styles_.value(style).firstChildElement(
                QStringLiteral("style:") + group + QStringLiteral("-properties"));
            if (properties.hasAttribute(name))
                return properties.attribute(name);
            style = styles_.value(style).attribute(QStringLiteral("style:parent-style-name"));
        }
        return {};
    }

    static int Twips(const QString& inches) {
        return qRound(QString(inches).remove(QStringLiteral("in")).toDouble() * kTwipsPerInch);
    }

    void Paragraph(const QDomElement& element) {
        const QString style = element.attribute(QStringLiteral("text:style-name"));
        QString align = Property(style, QStringLiteral("paragraph"), QStringLiteral("fo:text-align"));
        if (align.isEmpty() || align == u"left")
            align = QStringLiteral("start");
        lines_.Paragraph(
            align, Twips(Property(style, QStringLiteral("paragraph"), QStringLiteral("fo:margin-left"))),
            list_);
        Content(element, {style}, {});
    }

    void Content(const QDomElement& parent, const QStringList& styles, const QString& link) {
        for (QDomNode node = parent.firstChild(); !node.isNull(); node = node.nextSibling()) {
            const QDomElement element = node.toElement();
            const QString tag = element.tagName();
            if (node.isText())
                lines_.Add(node.nodeValue(), Look(styles, link));
            else if (tag == u"text:s")
                lines_.Add(
                    QString(element.attribute(QStringLiteral("text:c"), QStringLiteral("1")).toInt(), u' '),
                    Look(styles, link));
            else if (tag == u"text:tab")
                lines_.Add(QStringLiteral("\t"), Look(styles, link));
            else if (tag == u"text:line-break")
                lines_.Add(QStringLiteral("\u2028"), Look(styles, link));
            else if (tag == u"text:span")
                Content(element, QStringList{element.attribute(QStringLiteral("text:style-name"))} + styles,
                        link);
            else if (tag == u"text:a")
                Content(element, styles, element.attribute(QStringLiteral("xlink:href")));
            else if (tag == u"draw:frame")
                Picture(element);
        }
    }

    void Picture(const QDomElement& frame) {
        const QDomElement data = frame.firstChildElement(QStringLiteral("draw:image"))
                                     .firstChildElement(QStringLiteral("office:binary-data"));
        const QByteArray bytes = QByteArray::fromBase64(data.text().simplified().remove(u' ').toLatin1());
        lines_.Mark(QStringLiteral("picture %1 %2")
                        .arg(Twips(frame.attribute(QStringLiteral("svg:width"))))
                        .arg(QString::fromLatin1(bytes.toHex())));
    }

    QString TextProperty(const QStringList& styles, const char* name) const {
        for (const QString& style : styles) {
            const QString value = Property(style, QStringLiteral("text"), QString::fromLatin1(name));
            if (!value.isEmpty())
                return value;
        }
        return {};
    }

    QStringList Look(const QStringList& styles, const QString& link) const {
        QStringList look{TextProperty(styles, "style:font-name"),
                         TextProperty(styles, "fo:font-size").remove(QStringLiteral("pt"))};
        const auto add = [&](const char* name, const QString& wanted, const QString& word) {
            const QString value = TextProperty(styles, name);
            if (wanted.isEmpty() ? !value.isEmpty() && value != u"none" : value == wanted)
                look.append(word);
        };
        add("fo:font-weight", QStringLiteral("bold"), QStringLiteral("bold"));
        add("fo:font-style", QStringLiteral("italic"), QStringLiteral("italic"));
        add("style:text-underline-style", {}, QStringLiteral("underlined"));
        add("style:text-line-through-style", {}, QStringLiteral("struck"));
        add("fo:font-variant", QStringLiteral("small-caps"), QStringLiteral("small-caps"));
        const QString position = TextProperty(styles, "style:text-position").section(u' ', 0, 0);
        if (position == u"super" || position == u"sub")
            look.append(position);
        const QString colour = TextProperty(styles, "fo:color");
        if (!colour.isEmpty() && !IsAutomatic(styles))
            look.append(colour);
        const QString background = TextProperty(styles, "fo:background-color");
        if (!background.isEmpty() && background != u"transparent")
            look.append(QStringLiteral("on ") + background);
        if (!link.isEmpty())
            look.append(link);
        return look;
    }

    // Whether the style nearest to the text that says anything about its colour leaves it to the window.
    bool IsAutomatic(const QStringList& styles) const {
        for (const QString& style : styles) {
            if (!Property(style, QStringLiteral("text"), QStringLiteral("fo:color")).isEmpty())
                return false;
            if (!Property(style, QStringLiteral("text"), QStringLiteral("style:use-window-font-color"))
                     .isEmpty())
                return true;
        }
        return true;
    }

    QHash<QString, QDomElement> styles_;
    QString list_;
    Lines lines_;
};

QStringList Words(const QString& text) {
    return QString(text)
        .replace(QChar::ObjectReplacementCharacter, u' ')
        .remove(QChar(QChar::SoftHyphen)) // which plain text leaves out
        .replace(QChar(0x2011), u'-')
        .simplified()
        .split(u' ');
}

} // namespace

// Independent programs read what we write.
class TestRtfReaders : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void office_data() { Samples(); }
    void office();
    void wordProcessor_data() { Samples(); }
    void wordProcessor();

private:
    static void Samples();
    static void MakeSample(const QString& name, QTextDocument& document);
    QByteArray Output(const QString& program, const QStringList& arguments);
    QString Path(const QString& name, const QString& ending) const { return folder_.filePath(name + ending); }

    QTemporaryDir folder_;
    QStringList files_;
};

void TestRtfReaders::Samples() {
    QTest::addColumn<QString>("name");
    for (const SampleDocument& sample : SampleDocuments())
        QTest::newRow(qPrintable(sample.Name)) << sample.Name;
}

void TestRtfReaders::MakeSample(const QString& name, QTextDocument& document) {
    for (const SampleDocument& sample : SampleDocuments()) {
        if (sample.Name == name)
            MakeDocument(document, sample.Fill);
    }
}

QByteArray TestRtfReaders::Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(kPatience) || process.exitStatus() != QProcess::NormalExit)
        qWarning("%s did not end well: %s", qPrintable(program), process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

void TestRtfReaders::initTestCase() {
    QVERIFY(folder_.isValid());
    for (const SampleDocument& sample : SampleDocuments()) {
        QTextDocument document;
        MakeSample(sample.Name, document);
        QFile file(Path(sample.Name, QStringLiteral(".rtf")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(WriteRtf(document));
        files_.append(file.fileName());
    }
    // One start for all of them, as it takes its time.
    const QString program = QStandardPaths::findExecutable(QStringLiteral("soffice"));
    if (!program.isEmpty())
        Output(program, QStringList{QStringLiteral("-env:UserInstallation=file://") +
                                        folder_.filePath(QStringLiteral("profile")),
                                    QStringLiteral("--headless"), QStringLiteral("--convert-to"),
                                    QStringLiteral("fodt"), QStringLiteral("--outdir"), folder_.path()} +
                            files_);
}

void TestRtfReaders::office() {
    if (QStandardPaths::findExecutable(QStringLiteral("soffice")).isEmpty())
        QSKIP("There is no soffice here.");
    QFETCH(QString, name);
    QFile file(Path(name, QStringLiteral(".fodt")));
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
    QDomDocument office;
    QVERIFY(office.setContent(&file));
    QTextDocument document;
    MakeSample(name, document);
    Lines lines;
    ViewFrame(lines, document.rootFrame()->begin());
    QCOMPARE(OfficeView(office).Take(), lines.Take());
}

void TestRtfReaders::wordProcessor() {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("abiword"));
    if (program.isEmpty())
        QSKIP("There is no abiword here.");
    QFETCH(QString, name);
    Output(program, {QStringLiteral("--to=txt"), Path(name, QStringLiteral(".rtf"))});
    QFile file(Path(name, QStringLiteral(".txt")));
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
    QTextDocument document;
    MakeSample(name, document);
    QCOMPARE(Words(QString::fromUtf8(file.readAll())), Words(document.toPlainText()));
}

QTEST_MAIN(TestRtfReaders)
#include "tst_rtf_readers.moc"
