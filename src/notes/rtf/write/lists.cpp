#include "notes/rtf/write/lists.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/read/tokens.h"
#include "notes/rtf/write/numbers.h"
#include "notes/rtf/write/output.h"

#include <QTextBlock>
#include <QTextList>

#include <array>

namespace paneda {

namespace {

struct Bullet {
    int Style;
    char16_t Sign;
    const char* Family;
};

// The signs are those of the fonts that come with every Windows.
constexpr std::array<Bullet, 3> kBullets{{{QTextListFormat::ListDisc, 0xf0b7, "Symbol"},
                                          {QTextListFormat::ListCircle, u'o', "Courier New"},
                                          {QTextListFormat::ListSquare, 0xf0a7, "Wingdings"}}};

bool IsBullet(int style) {
    return style > QTextListFormat::ListDecimal;
}

const Bullet& BulletOf(int style) {
    for (const Bullet& bullet : kBullets) {
        if (bullet.Style == style)
            return bullet;
    }
    return kBullets.front();
}

QByteArray NumberWord(int style) {
    switch (style) {
    case QTextListFormat::ListLowerAlpha:
        return "pnlcltr";
    case QTextListFormat::ListUpperAlpha:
        return "pnucltr";
    case QTextListFormat::ListLowerRoman:
        return "pnlcrm";
    case QTextListFormat::ListUpperRoman:
        return "pnucrm";
    default:
        return "pndec";
    }
}

QString Letters(int number) {
    QString text;
    for (; number > 0; number = (number - 1) / 26)
        text.prepend(QChar(u'a' + (number - 1) % 26));
    return text;
}

QString Roman(int number) {
    struct Step {
        int Value;
        const char* Text;
    };
    static constexpr std::array<Step, 13> steps{{{1000, "m"},
                                                 {900, "cm"},
                                                 {500, "d"},
                                                 {400, "cd"},
                                                 {100, "c"},
                                                 {90, "xc"},
                                                 {50, "l"},
                                                 {40, "xl"},
                                                 {10, "x"},
                                                 {9, "ix"},
                                                 {5, "v"},
                                                 {4, "iv"},
                                                 {1, "i"}}};
    constexpr int kMost = 4999;
    if (number > kMost)
        return QString::number(number);
    QString text;
    for (const Step& step : steps) {
        for (; number >= step.Value; number -= step.Value)
            text += QLatin1StringView(step.Text);
    }
    return text;
}

// Replaces \pnstart, or puts it behind the rest.
QByteArray WithStart(const QByteArray& form, int start) {
    RtfTokenizer tokens(form);
    const QByteArray word = "\\pnstart" + QByteArray::number(start);
    for (RtfToken token = tokens.Next(); token.Kind != RtfToken::Type::End; token = tokens.Next()) {
        if (token.Kind == RtfToken::Type::Word && token.Text == "pnstart")
            return token.Number == start ? form : form.first(token.Begin) + word + form.sliced(token.End);
    }
    return start == 1 ? form : word + form;
}

QString SuffixOf(const QTextListFormat& format) {
    return format.hasProperty(QTextFormat::ListNumberSuffix) ? format.numberSuffix() : QStringLiteral(".");
}

void WriteAffix(RtfOutput& out, QByteArrayView word, const QString& text) {
    if (text.isEmpty())
        return;
    out.Open();
    out.Word(word);
    out.Text(text);
    out.Close();
}

} // namespace

QString ListNumberText(int number, int style) {
    if (IsBullet(style))
        return {};
    if (number < 1)
        return QString::number(number);
    switch (style) {
    case QTextListFormat::ListLowerAlpha:
        return Letters(number);
    case QTextListFormat::ListUpperAlpha:
        return Letters(number).toUpper();
    case QTextListFormat::ListLowerRoman:
        return Roman(number);
    case QTextListFormat::ListUpperRoman:
        return Roman(number).toUpper();
    default:
        return QString::number(number);
    }
}

RtfListWriter::Item RtfListWriter::Next(const QTextBlock& block) {
    const QTextList* list = block.textList();
    const QTextList* before = std::exchange(last_, list);
    if (list == nullptr)
        return {};
    const QTextListFormat format = list->format();
    const int first = format.hasProperty(RtfListStart) ? format.intProperty(RtfListStart) : 1;
    const int number = first + counts_[list]++;
    if (list != before)
        start_ = number;
    return {Marker(format, number), Form(format, start_)};
}

int RtfListWriter::BulletFont(const QTextListFormat& format) {
    if (format.hasProperty(RtfListBullet))
        return numbers_.Font(format);
    return numbers_.FontNamed(QLatin1StringView(BulletOf(format.style()).Family));
}

QByteArray RtfListWriter::Form(const QTextListFormat& format, int start) {
    const int style = format.style();
    const bool isAsRead =
        format.hasProperty(RtfListReadStyle) && format.intProperty(RtfListReadStyle) == style;
    const QByteArray kept = isAsRead ? format.property(RtfListPn).toByteArray() : QByteArray();
    RtfOutput out;
    out.OpenStarred();
    out.Word("pn");
    if (!kept.isEmpty()) {
        out.Raw(IsBullet(style) ? kept : WithStart(kept, start));
    } else if (IsBullet(style)) {
        out.Word("pnlvlblt");
        out.Word("pnf", BulletFont(format));
        out.Word("pnindent", 0);
        const QString bullet = isAsRead ? format.stringProperty(RtfListBullet) : QString();
        WriteAffix(out, "pntxtb", bullet.isEmpty() ? QString(QChar(BulletOf(style).Sign)) : bullet);
    } else {
        out.Word("pnlvlbody");
        out.Word("pnindent", 0);
        out.Word("pnstart", start);
        out.Word(NumberWord(style));
        WriteAffix(out, "pntxtb", format.numberPrefix());
        WriteAffix(out, "pntxta", SuffixOf(format));
    }
    out.Close();
    if (isAsRead && format.hasProperty(RtfListNumber)) {
        out.Word("ls", format.intProperty(RtfListNumber));
        out.Word("ilvl", format.intProperty(RtfListLevel));
    }
    return out.Bytes();
}

QByteArray RtfListWriter::Marker(const QTextListFormat& format, int number) {
    const int style = format.style();
    RtfOutput out;
    out.Open();
    out.Word("pntext");
    if (IsBullet(style)) {
        const QString bullet = format.stringProperty(RtfListBullet);
        out.Word("f", BulletFont(format));
        out.Text(bullet.isEmpty() ? QString(QChar(BulletOf(style).Sign)) : bullet);
    } else {
        out.Text(QString(format.numberPrefix() + ListNumberText(number, style) + SuffixOf(format)));
    }
    out.Word("tab");
    out.Close();
    return out.Bytes();
}

} // namespace paneda
