#include "notes/rtf/read/fonts.h"

#include "notes/rtf/read/code_pages.h"
#include "notes/rtf/read/tokens.h"

#include <algorithm>

namespace paneda {

namespace {

class FontTableReader {
public:
    FontTableReader(QByteArrayView group, const RtfEncoding& encoding) : tokens_(group), note_(encoding) {}

    RtfFonts Read() {
        // Fonts stand in groups of their own, or one behind the other in the table itself; what is nested
        // deeper (\*\panose, \*\falt) is no name.
        for (RtfToken token = tokens_.Next(); token.Kind != RtfToken::Type::End; token = tokens_.Next()) {
            if (token.Kind == RtfToken::Type::Open && ++depth_ > 2) {
                tokens_.SkipGroup();
                --depth_;
            } else if (token.Kind == RtfToken::Type::Close) {
                Finish();
                --depth_;
            } else {
                Take(token);
            }
        }
        return std::move(fonts_);
    }

private:
    void Take(const RtfToken& token) {
        if (token.Kind == RtfToken::Type::Text)
            TakeText(token.Text);
        else if (token.Kind == RtfToken::Type::Byte)
            TakeByte(token.Number);
        else if (token.Kind != RtfToken::Type::Word)
            return;
        else if (token.Text == "f")
            Begin(token.Number);
        else if (token.Text == "fcharset")
            SetCharset(token.Number);
        else if (token.Text == "cpg")
            codePage_ = token.Number;
        else if (token.Text == "u") {
            Decode();
            family_.append(QChar(char16_t(token.Number)));
            fallbackComes_ = true;
        }
    }

    void Begin(int number) {
        Finish();
        number_ = number;
        charset_ = -1;
        codePage_ = note_.CodePage;
        open_ = true;
    }

    void SetCharset(int charset) {
        charset_ = charset;
        codePage_ = CodePageOfCharset(charset, note_.CodePage);
    }

    void TakeByte(int byte) {
        if (!fallbackComes_)
            name_.append(char(byte));
        fallbackComes_ = false;
    }

    void TakeText(QByteArrayView text) {
        if (fallbackComes_ && !text.isEmpty())
            text = text.sliced(1);
        fallbackComes_ = false;
        const qsizetype end = text.indexOf(';');
        name_.append(end < 0 ? text : text.first(end));
        if (end >= 0)
            Finish();
    }

    void Decode() {
        const int page = codePage_ == kRtfSymbolCodePage ? kRtfAnsiCodePage : codePage_;
        family_ += DecodeBytes(name_, {page, note_.System}).value_or(QString::fromLatin1(name_));
        name_.clear();
    }

    void Finish() {
        Decode();
        if (open_)
            fonts_.insert_or_assign(number_, RtfFont{family_.trimmed(), charset_, codePage_});
        open_ = false;
        family_.clear();
    }

    RtfTokenizer tokens_;
    RtfFonts fonts_;
    RtfEncoding note_;
    int depth_ = 0;
    int number_ = 0;
    int charset_ = -1;
    int codePage_ = 0;
    bool open_ = false;
    bool fallbackComes_ = false;
    QByteArray name_;
    QString family_;
};

} // namespace

RtfFonts ReadFontTable(QByteArrayView group, const RtfEncoding& encoding) {
    return FontTableReader(group, encoding).Read();
}

QList<QColor> ReadColourTable(QByteArrayView group) {
    QList<QColor> colours;
    QColor colour;
    RtfTokenizer tokens(group);
    for (RtfToken token = tokens.Next(); token.Kind != RtfToken::Type::End; token = tokens.Next()) {
        const int level = std::clamp(token.Number, 0, 255);
        if (token.Kind == RtfToken::Type::Text) {
            for (qsizetype i = token.Text.count(';'); i > 0; --i) {
                colours.append(colour);
                colour = QColor();
            }
        } else if (token.Kind == RtfToken::Type::Word && token.HasNumber) {
            if (!colour.isValid() && (token.Text == "red" || token.Text == "green" || token.Text == "blue"))
                colour = Qt::black;
            if (token.Text == "red")
                colour.setRed(level);
            else if (token.Text == "green")
                colour.setGreen(level);
            else if (token.Text == "blue")
                colour.setBlue(level);
        }
    }
    return colours;
}

} // namespace paneda
