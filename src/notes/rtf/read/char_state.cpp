#include "notes/rtf/read/char_state.h"

#include "notes/rtf/read/raw.h"

#include <QBrush>

#include <algorithm>

namespace paneda {

namespace {

// Points that Qt can lay out; RTF's own limit is not much above.
constexpr int kMaxHalfPoints = 3276;

constexpr int kTwipsPerHalfPoint = 10;

bool IsOn(const RtfToken& token) {
    return !token.HasNumber || token.Number != 0;
}

void SetPlain(RtfChar& state, int font) {
    const int link = state.Link;
    state = RtfChar();
    state.Font = font;
    state.Link = link;
}

void SetBackground(RtfChar& state, RtfBackground word, int colour) {
    state.Back = std::max(colour, 0);
    state.BackWord = word;
}

// \up and \dn count half-points; without a number they mean three points.
int ShiftOf(const RtfToken& token) {
    return std::clamp(token.HasNumber ? token.Number : 6, 0, 1000) * kTwipsPerHalfPoint;
}

bool ApplyValueWord(RtfChar& state, RtfWord meaning, const RtfToken& token) {
    switch (meaning) {
    case RtfWord::Font:
        state.Font = token.Number;
        return true;
    case RtfWord::FontSize:
        state.HalfPoints = token.Number > 0 ? std::min(token.Number, kMaxHalfPoints) : kRtfDefaultHalfPoints;
        return true;
    case RtfWord::Up:
        state.Shift = ShiftOf(token);
        return true;
    case RtfWord::Down:
        state.Shift = -ShiftOf(token);
        return true;
    case RtfWord::ForeColour:
        state.Fore = token.Number;
        return true;
    case RtfWord::Highlight:
        SetBackground(state, RtfBackground::Highlight, token.Number);
        return true;
    case RtfWord::BackColour:
        SetBackground(state, RtfBackground::Cb, token.Number);
        return true;
    case RtfWord::CharBackColour:
        SetBackground(state, RtfBackground::Chcbpat, token.Number);
        return true;
    case RtfWord::Spacing:
        // Quarter points.
        state.Spacing = std::clamp(token.Number, -1000, 1000) * 5;
        return true;
    case RtfWord::SpacingTwips:
        state.Spacing = std::clamp(token.Number, -5000, 5000);
        return true;
    case RtfWord::Language:
        state.Language = token.Number;
        return true;
    default:
        return false;
    }
}

bool ApplyUnderline(RtfChar& state, RtfWord meaning, const RtfToken& token) {
    if (meaning != RtfWord::Underline && meaning != RtfWord::UnderlineNone)
        return false;
    state.Underline = meaning == RtfWord::Underline && IsOn(token) ? token.Text.toByteArray() : QByteArray();
    return true;
}

QTextCharFormat::UnderlineStyle UnderlineStyle(const QByteArray& word) {
    if (word == "uld" || word == "ulthd" || word == "uldot")
        return QTextCharFormat::DotLine;
    if (word.contains("dashdd"))
        return QTextCharFormat::DashDotDotLine;
    if (word.contains("dashd"))
        return QTextCharFormat::DashDotLine;
    if (word.contains("dash"))
        return QTextCharFormat::DashUnderline;
    if (word.contains("wave"))
        return QTextCharFormat::WaveUnderline;
    return QTextCharFormat::SingleUnderline;
}

void SetLook(QTextCharFormat& format, const RtfChar& state) {
    if (state.Bold)
        format.setFontWeight(QFont::Bold);
    if (state.Italic)
        format.setFontItalic(true);
    if (state.Strike)
        format.setFontStrikeOut(true);
    if (state.SmallCaps)
        format.setFontCapitalization(QFont::SmallCaps);
    else if (state.AllCaps)
        format.setFontCapitalization(QFont::AllUppercase);
    if (state.Vertical != QTextCharFormat::AlignNormal)
        format.setVerticalAlignment(state.Vertical);
    if (state.Underline.isEmpty())
        return;
    format.setFontUnderline(true);
    format.setUnderlineStyle(UnderlineStyle(state.Underline));
    if (state.Underline != "ul")
        format.setProperty(RtfUnderlineWord, QString::fromLatin1(state.Underline));
}

void SetColours(QTextCharFormat& format, const RtfChar& state, const RtfTables& tables) {
    if (const QColor fore = RtfColour(tables, state.Fore); fore.isValid())
        format.setForeground(fore);
    if (const QColor back = RtfColour(tables, state.Back); state.Back > 0 && back.isValid()) {
        format.setBackground(back);
        format.setProperty(RtfBackgroundWord, int(state.BackWord));
    }
}

void SetMeasures(QTextCharFormat& format, const RtfChar& state) {
    format.setFontPointSize(state.HalfPoints / 2.0);
    if (state.Spacing != 0) {
        format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
        format.setFontLetterSpacing(state.Spacing / kRtfTwipsPerPixel);
    }
    SetBaselineShift(format, state.Shift, state.HalfPoints / 2.0);
}

} // namespace

size_t qHash(const RtfChar& state, size_t seed) {
    const int flags = int(state.Bold) | int(state.Italic) << 1 | int(state.Strike) << 2 |
                      int(state.SmallCaps) << 3 | int(state.AllCaps) << 4 | int(state.Vertical) << 8;
    return qHashMulti(seed, state.Font, state.HalfPoints, flags, state.Shift, state.Fore, state.Back,
                      state.Spacing, state.Language, state.Link, state.Underline, state.Words);
}

bool ApplyCharWord(RtfChar& state, RtfWord meaning, const RtfToken& token, const RtfTables& tables) {
    switch (meaning) {
    case RtfWord::Plain:
        SetPlain(state, tables.DefaultFont);
        return true;
    case RtfWord::Bold:
        state.Bold = IsOn(token);
        return true;
    case RtfWord::Italic:
        state.Italic = IsOn(token);
        return true;
    case RtfWord::Strike:
        state.Strike = IsOn(token);
        return true;
    case RtfWord::SmallCaps:
        state.SmallCaps = IsOn(token);
        return true;
    case RtfWord::AllCaps:
        state.AllCaps = IsOn(token);
        return true;
    case RtfWord::Hidden:
        state.Hidden = IsOn(token);
        return true;
    case RtfWord::Super:
        state.Vertical = IsOn(token) ? QTextCharFormat::AlignSuperScript : QTextCharFormat::AlignNormal;
        return true;
    case RtfWord::Sub:
        state.Vertical = IsOn(token) ? QTextCharFormat::AlignSubScript : QTextCharFormat::AlignNormal;
        return true;
    case RtfWord::NoSuperSub:
        state.Vertical = QTextCharFormat::AlignNormal;
        return true;
    case RtfWord::KeptChar:
    case RtfWord::CharBorder:
        KeepWord(state.Words, token, false);
        return true;
    case RtfWord::KeptCharToggle:
        KeepWord(state.Words, token, true);
        return true;
    default:
        return ApplyUnderline(state, meaning, token) || ApplyValueWord(state, meaning, token);
    }
}

QTextCharFormat ToCharFormat(const RtfChar& state, const RtfTables& tables) {
    QTextCharFormat format;
    if (const auto font = tables.Fonts.find(state.Font); font != tables.Fonts.end()) {
        format.setProperty(RtfFontNumber, state.Font);
        if (!font->second.Family.isEmpty())
            format.setFontFamilies({font->second.Family});
    }
    SetMeasures(format, state);
    SetLook(format, state);
    SetColours(format, state, tables);
    if (state.Language >= 0)
        format.setProperty(RtfLanguage, state.Language);
    if (!state.Words.isEmpty())
        format.setProperty(RtfCharWords, QString::fromLatin1(state.Words));
    return format;
}

QColor RtfColour(const RtfTables& tables, int number) {
    return number >= 0 && number < tables.Colours.size() ? tables.Colours[number] : QColor();
}

} // namespace paneda
