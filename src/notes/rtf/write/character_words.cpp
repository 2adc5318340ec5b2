#include "notes/rtf/write/character_words.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/write/numbers.h"
#include "notes/rtf/write/output.h"

#include <QTextCharFormat>

#include <algorithm>
#include <array>

namespace paneda {

namespace {

constexpr qreal kPointsPerPixel = 0.75;
constexpr int kMaxHalfPoints = 3276;

// Text from the web names its size by steps up and down; these are the factors that Qt shows them with.
constexpr std::array<qreal, 7> kSizeSteps{0.7, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4};

qreal PointsOf(const QFont& font) {
    return font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * kPointsPerPixel;
}

int HalfPointsOf(const QTextCharFormat& format, const QFont& defaults) {
    qreal points = format.fontPointSize();
    if (points <= 0 && format.hasProperty(QTextFormat::FontPixelSize))
        points = format.intProperty(QTextFormat::FontPixelSize) * kPointsPerPixel;
    if (points <= 0)
        points = PointsOf(defaults);
    if (const int step = format.intProperty(QTextFormat::FontSizeAdjustment); step != 0)
        points *= kSizeSteps[size_t(std::clamp(step, -2, 4) + 2)];
    return std::clamp(qRound(points * 2), 1, kMaxHalfPoints);
}

QByteArray UnderlineOf(const QTextCharFormat& format) {
    const QTextCharFormat::UnderlineStyle style = format.underlineStyle();
    if (style == QTextCharFormat::NoUnderline && !format.fontUnderline())
        return {};
    const QByteArray word = format.stringProperty(RtfUnderlineWord).toLatin1();
    if (!word.isEmpty())
        return word;
    switch (style) {
    case QTextCharFormat::DashUnderline:
        return "uldash";
    case QTextCharFormat::DotLine:
        return "uld";
    case QTextCharFormat::DashDotLine:
        return "uldashd";
    case QTextCharFormat::DashDotDotLine:
        return "uldashdd";
    case QTextCharFormat::WaveUnderline:
    case QTextCharFormat::SpellCheckUnderline:
        return "ulwave";
    default:
        return "ul";
    }
}

QByteArray ScriptOf(const QTextCharFormat& format) {
    switch (format.verticalAlignment()) {
    case QTextCharFormat::AlignSuperScript:
        return "super";
    case QTextCharFormat::AlignSubScript:
        return "sub";
    default:
        return {};
    }
}

QByteArray BackgroundWordOf(const QTextCharFormat& format) {
    switch (static_cast<RtfBackground>(format.intProperty(RtfBackgroundWord))) {
    case RtfBackground::Cb:
        return "cb";
    case RtfBackground::Chcbpat:
        return "chcbpat";
    default:
        return "highlight";
    }
}

int SpacingOf(const QTextCharFormat& format) {
    if (format.fontLetterSpacingType() != QFont::AbsoluteSpacing)
        return 0;
    return qRound(format.fontLetterSpacing() * kRtfTwipsPerPixel);
}

struct Toggle {
    bool RtfCharacters::*Is;
    const char* Word;
};

constexpr std::array<Toggle, 5> kToggles{{{&RtfCharacters::Bold, "b"},
                                          {&RtfCharacters::Italic, "i"},
                                          {&RtfCharacters::StrikeOut, "strike"},
                                          {&RtfCharacters::Capitals, "caps"},
                                          {&RtfCharacters::SmallCapitals, "scaps"}}};

void WriteToggles(RtfOutput& out, const RtfCharacters& from, const RtfCharacters& to) {
    for (const Toggle& toggle : kToggles) {
        if (from.*toggle.Is && !(to.*toggle.Is))
            out.Word(toggle.Word, 0);
        else if (!(from.*toggle.Is) && to.*toggle.Is)
            out.Word(toggle.Word);
    }
    if (from.Underline != to.Underline)
        out.Word(to.Underline.isEmpty() ? QByteArray("ulnone") : to.Underline);
    if (from.Script != to.Script)
        out.Word(to.Script.isEmpty() ? QByteArray("nosupersub") : to.Script);
}

void WriteMeasures(RtfOutput& out, const RtfCharacters& from, const RtfCharacters& to) {
    if (from.Shift != to.Shift)
        out.Word(to.Shift < 0 ? "dn" : "up", qAbs(to.Shift));
    if (from.Spacing != to.Spacing)
        out.Word("expndtw", to.Spacing);
    if (from.Font != to.Font)
        out.Word("f", to.Font);
    if (from.HalfPoints != to.HalfPoints)
        out.Word("fs", to.HalfPoints);
    if (from.Language != to.Language)
        out.Word("lang", to.Language);
}

void WriteColours(RtfOutput& out, const RtfCharacters& from, const RtfCharacters& to) {
    if (from.Colour != to.Colour)
        out.Word("cf", to.Colour);
    if (!from.BackgroundWord.isEmpty() && from.BackgroundWord != to.BackgroundWord)
        out.Word(from.BackgroundWord, 0);
    if (!to.BackgroundWord.isEmpty() &&
        (from.BackgroundWord != to.BackgroundWord || from.Background != to.Background))
        out.Word(to.BackgroundWord, to.Background);
}

} // namespace

RtfCharacters CharactersOf(const QTextCharFormat& format, RtfNumbers& numbers, const QFont& defaults) {
    RtfCharacters look;
    look.Font = numbers.Font(format);
    look.HalfPoints = HalfPointsOf(format, defaults);
    look.Bold = format.fontWeight() >= QFont::DemiBold;
    look.Italic = format.fontItalic();
    look.StrikeOut = format.fontStrikeOut();
    look.Capitals = format.fontCapitalization() == QFont::AllUppercase;
    look.SmallCapitals = format.fontCapitalization() == QFont::SmallCaps;
    look.Underline = UnderlineOf(format);
    look.Script = ScriptOf(format);
    look.Shift = qRound(BaselineShiftOf(format, look.HalfPoints / 2.0) / 10.0);
    look.Spacing = SpacingOf(format);
    if (format.foreground().style() != Qt::NoBrush)
        look.Colour = numbers.Colour(format.foreground().color());
    if (format.background().style() != Qt::NoBrush) {
        look.BackgroundWord = BackgroundWordOf(format);
        look.Background = numbers.Colour(format.background().color());
    }
    if (format.hasProperty(RtfLanguage))
        look.Language = format.intProperty(RtfLanguage);
    look.Words = format.stringProperty(RtfCharWords).toLatin1();
    return look;
}

RtfCharacters WriteChange(RtfOutput& out, const RtfCharacters& from, const RtfCharacters& to) {
    RtfCharacters before = from;
    if (!from.Words.isEmpty() && from.Words != to.Words) {
        out.Word("plain");
        before = RtfCharacters();
    }
    RtfCharacters after = to;
    if (after.Language < 0)
        after.Language = before.Language;
    WriteToggles(out, before, after);
    WriteColours(out, before, after);
    WriteMeasures(out, before, after);
    if (before.Words != after.Words)
        out.Raw(after.Words);
    return after;
}

} // namespace paneda
