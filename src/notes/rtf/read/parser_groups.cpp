#include "notes/rtf/links.h"
#include "notes/rtf/read/code_pages.h"
#include "notes/rtf/read/parser.h"
#include "notes/rtf/read/raw.h"

#include <QScopeGuard>
#include <QSizeF>

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

constexpr qsizetype kMaxLabel = 200;
constexpr qsizetype kMaxInstruction = 4000;
constexpr qsizetype kMaxMarkerSource = 65536;

// Number of a word in a group's source; 0 where it is missing.
int NumberOfWord(QByteArrayView source, QByteArrayView word) {
    RtfTokenizer tokens(source.first(std::min<qsizetype>(source.size(), 2000)));
    for (RtfToken token = tokens.Next(); token.Kind != RtfToken::Type::End; token = tokens.Next())
        if (token.Kind == RtfToken::Type::Word && token.Text == word)
            return token.Number;
    return 0;
}

// Whether text has ends of paragraphs or cells in it.
bool HoldsParagraphs(QByteArrayView source) {
    RtfTokenizer tokens(source);
    for (RtfToken token = tokens.Next(); token.Kind != RtfToken::Type::End; token = tokens.Next()) {
        if (token.Kind == RtfToken::Type::Word && (token.Text == "par" || token.Text == "cell"))
            return true;
        if (token.Kind == RtfToken::Type::Open && IsApartFromText(tokens))
            tokens.SkipGroup();
    }
    return false;
}

// The picture that an object's program last made of it; without a name where there is none.
QTextImageFormat ResultPicture(QByteArrayView source) {
    RtfTokenizer tokens(source);
    bool inResult = false;
    for (RtfToken token = tokens.Next(); token.Kind != RtfToken::Type::End; token = tokens.Next()) {
        if (token.Kind != RtfToken::Type::Word)
            continue;
        inResult = inResult || token.Text == "result";
        if (inResult && token.Text == "pict") {
            const qsizetype begin = tokens.Position();
            const qsizetype end = tokens.SkipGroup();
            return ReadRtfPicture(source.sliced(begin, end - begin));
        }
    }
    return {};
}

// The group of a picture with this inside, which begins behind the blank that may follow the word.
QByteArray PictureGroup(QByteArrayView inside) {
    const QByteArray kept = KeptRtf(inside);
    const bool isApart = kept.startsWith('\\') || kept.startsWith('{');
    return (isApart ? QByteArrayLiteral("{\\pict") : QByteArrayLiteral("{\\pict ")) + kept + '}';
}

QSizeF SizeOfObject(QByteArrayView source) {
    const int width = NumberOfWord(source, "objw");
    const int height = NumberOfWord(source, "objh");
    if (width <= 0 || height <= 0)
        return {};
    return {std::min(width / kRtfTwipsPerPixel, 2000.0), std::min(height / kRtfTwipsPerPixel, 2000.0)};
}

// Whether a reader that does not know a group's word could miss text in it. Digits alone are data.
bool HoldsText(QByteArrayView source) {
    const QString text = PlainTextOfRtf(source, {}, kMaxInstruction).simplified();
    return std::any_of(text.begin(), text.end(), [](QChar c) {
        return !c.isSpace() && (c.unicode() > 0x7F || HexValue(c.toLatin1()) < 0);
    });
}

} // namespace

QString LabelOfRtfObject(QByteArrayView word) {
    if (word == "object")
        return QStringLiteral("[object]");
    if (word == "shp" || word == "shpgrp" || word == "do")
        return QStringLiteral("[drawing]");
    if (word == "footnote")
        return QStringLiteral("[footnote]");
    if (word == "annotation")
        return QStringLiteral("[comment]");
    if (word == "mmath" || word == "moMath" || word == "moMathPara")
        return QStringLiteral("[formula]");
    return {};
}

bool RtfParser::TakeDestination(RtfWord meaning, const RtfToken& token) {
    switch (meaning) {
    case RtfWord::FontTable:
    case RtfWord::ColourTable:
    case RtfWord::ListTable:
    case RtfWord::ListOverrides:
        return TakeTable(meaning, token);
    case RtfWord::Head:
        TakeObject(token);
        return true;
    case RtfWord::ListText:
        if (HoldsParagraph())
            break;
        hasMarker_ = HoldsText(TakeInside()) || hasMarker_;
        return true;
    case RtfWord::Dropped:
        if (!Current().HasStar && token.Text != "nonesttables")
            return false;
        TakeInside();
        return true;
    case RtfWord::OldList:
        TakeOldList();
        return true;
    case RtfWord::Picture:
    case RtfWord::ShapePicture:
    case RtfWord::OtherPicture:
        return TakePictureWord(meaning, token);
    case RtfWord::Field:
        BeginField(token);
        break;
    case RtfWord::FieldInstruction:
        TakeFieldInstruction(token);
        return true;
    case RtfWord::Kept:
        inBody_ = true;
        TakeObject(token);
        return true;
    case RtfWord::NestedRowDefinition:
        Current().IsNestedRow = true;
        break;
    case RtfWord::Upr:
        skipNextGroup_ = HasUnicodeTwin();
        break;
    case RtfWord::Transparent:
    case RtfWord::UprUnicode:
        break;
    default:
        return false;
    }
    Current().AtStart = false;
    return true;
}

bool RtfParser::TakeTable(RtfWord meaning, const RtfToken& token) {
    const QByteArray group = TakeGroup(token);
    format_ = -1;
    // A field that shows nothing is kept as it is, and its table would be written twice.
    if (std::any_of(groups_.begin(), groups_.end(), [](const Group& open) { return open.IsField; }))
        content_.Lose(QStringLiteral("a table of fonts, colours or lists in a field"));
    // The text so far refers to the numbers of the first table.
    const bool isSecond = meaning == RtfWord::FontTable     ? !content_.FontTable.isEmpty()
                          : meaning == RtfWord::ColourTable ? !content_.ColourTable.isEmpty()
                                                            : false;
    if (isSecond) {
        content_.Lose(QStringLiteral("a second table of fonts or colours"));
        return true;
    }
    if (meaning == RtfWord::FontTable) {
        content_.FontTable = group;
        content_.Tables.Fonts = ReadFontTable(group, content_.Tables.Encoding());
        return true;
    }
    if (meaning == RtfWord::ColourTable) {
        content_.ColourTable = group;
        content_.Tables.Colours = ReadColourTable(group);
        return true;
    }
    if (meaning == RtfWord::ListTable)
        lists_.ReadTable(group, content_.Tables.Encoding());
    else
        lists_.ReadOverrides(group);
    content_.Head += group;
    return true;
}

bool RtfParser::TakePictureWord(RtfWord meaning, const RtfToken& token) {
    if (meaning == RtfWord::ShapePicture)
        Current().IsShapePicture = true;
    else if (meaning == RtfWord::Picture)
        TakePicture();
    else if (pictureFormat_ >= 0)
        TakeOtherPicture(token);
    return true;
}

void RtfParser::TakeOldList() {
    const auto list =
        std::make_shared<const RtfOldList>(ReadOldList(TakeInside(), content_.Tables.Encoding()));
    Current().Paragraph.OldList = list;
}

// Some programs close the group of an item's marker behind the item itself.
bool RtfParser::HoldsParagraph() {
    RtfTokenizer ahead = tokens_;
    const auto weigh = qScopeGuard([&] { WeighLook(ahead); });
    const qsizetype limit = ahead.Position() + kMaxMarkerSource;
    for (qsizetype depth = 1; depth > 0 && ahead.Position() < limit;) {
        const RtfToken token = ahead.Next();
        if (token.Kind == RtfToken::Type::End || (token.Kind == RtfToken::Type::Word && token.Text == "par"))
            return token.Kind != RtfToken::Type::End;
        depth += int(token.Kind == RtfToken::Type::Open) - int(token.Kind == RtfToken::Type::Close);
    }
    return ahead.Position() >= limit;
}

// Whether the next group has the same text in Unicode behind it.
bool RtfParser::HasUnicodeTwin() {
    RtfTokenizer ahead = tokens_;
    const auto weigh = qScopeGuard([&] { WeighLook(ahead); });
    if (ahead.Next().Kind != RtfToken::Type::Open)
        return false;
    ahead.SkipGroup();
    return ahead.Next().Kind == RtfToken::Type::Open && ahead.Next().Text == "*" && ahead.Next().Text == "ud";
}

// What has been looked at is read once more later, or many times where groups lie in each other.
void RtfParser::WeighLook(const RtfTokenizer& ahead) {
    content_.Weight.Add(RtfBurden::Source, ahead.Position() - tokens_.Position(), rtf_cost::kLookedAhead);
}

void RtfParser::TakePicture() {
    inBody_ = true;
    const bool isShape = Current().IsShapePicture;
    const bool isHidden = Current().Char.Hidden;
    const QByteArrayView source = TakeInside();
    if (isHidden) {
        KeepUnseen(QByteArray("{\\v" + PictureGroup(source) + '}'));
        return;
    }
    if (PutsLabel(QStringLiteral("[picture]")))
        return;
    const QTextImageFormat picture = ReadRtfPicture(source);
    if (picture.property(RtfPictureBytes).toByteArray().isEmpty() ||
        picture.property(RtfPictureKind).toByteArray().isEmpty()) {
        KeepSeen(PictureGroup(source), QStringLiteral("[picture]"));
        return;
    }
    QTextCharFormat format = content_.Formats[std::size_t(CurrentFormat())];
    format.merge(picture);
    WeighThing();
    FlushUnseen();
    content_.Formats.push_back(format);
    const int number = int(content_.Formats.size()) - 1;
    flow_.AppendText(QStringView(u"\uFFFC"), number);
    ++textRead_;
    pictureFormat_ = isShape ? number : -1;
}

void RtfParser::TakeOtherPicture(const RtfToken& token) {
    const QByteArray group = TakeGroup(token);
    content_.Formats[std::size_t(pictureFormat_)].setProperty(RtfPictureFallback, group);
    pictureFormat_ = -1;
}

void RtfParser::BeginField(const RtfToken& token) {
    Group& group = Current();
    group.IsField = true;
    group.TextBefore = textRead_;
    // What the group holds in front of the word has been taken already.
    if (!group.AtStart)
        group.Begin = token.Begin;
}

void RtfParser::TakeFieldInstruction(const RtfToken& token) {
    const auto isField = [](const Group& group) { return group.IsField; };
    const auto found = std::find_if(groups_.rbegin(), groups_.rend(), isField);
    // After the text of a field its instruction has no use any more.
    if (found == groups_.rend() || found->TextBefore != textRead_) {
        TakeUnknownGroup(token);
        return;
    }
    const auto field = std::size_t(groups_.rend() - found) - 1;
    const QString instruction =
        PlainTextOfRtf(TakeInside(), content_.Tables.Encoding(), kMaxInstruction).trimmed();
    const QString address = LinkAddress(instruction);
    if (address.isEmpty() || found->Char.Hidden || instruction.size() >= kMaxInstruction - 1) {
        TakeForeignField(field, instruction);
        return;
    }
    links_.push_back({address, instruction});
    for (std::size_t i = field; i < groups_.size(); ++i)
        groups_[i].Char.Link = int(links_.size());
    format_ = -1;
}

// A field that this editor does not update is kept as a whole, and the text that it last gave is shown in its
// place. A text of several paragraphs, as a table of contents has, is read as text.
void RtfParser::TakeForeignField(std::size_t field, const QString& instruction) {
    const Group group = groups_[field];
    if (!group.Char.Hidden && HasLongResult(groups_.size() - field)) {
        content_.Lose(QStringLiteral("the field %1").arg(instruction.section(u' ', 0, 0)));
        return;
    }
    while (groups_.size() > field)
        TakeInside();
    const QByteArray source = SourceFrom(group.Begin, tokens_.Position());
    if (group.Char.Hidden) {
        inBody_ = true;
        KeepUnseen(WithFallbacks(QByteArray("{\\v" + source + '}'), group.Fallbacks));
        return;
    }
    const qsizetype result = source.indexOf("\\fldrslt");
    // A field that is a place to click has its text behind the name of what it starts.
    const QString label =
        result >= 0 ? PlainTextOfRtf(source.sliced(result), content_.Tables.Encoding(), kMaxLabel)
        : instruction.startsWith(u"MACROBUTTON") ? instruction.simplified().section(u' ', 2).left(kMaxLabel)
                                                 : QString();
    // Words in front of the field are not in its source, but tell how it looks.
    const RtfChar outer = std::exchange(Current().Char, group.Char);
    format_ = -1;
    KeepSeen(WithFallbacks(source, group.Fallbacks), label.isEmpty() ? QStringLiteral("[field]") : label);
    Current().Char = outer;
    format_ = -1;
}

// Whether the text of the field that ends with so many open groups is more than a label can show.
bool RtfParser::HasLongResult(std::size_t groups) {
    RtfTokenizer ahead = tokens_;
    const qsizetype begin = ahead.Position();
    for (; groups > 0; --groups)
        ahead.SkipGroup();
    // Cut into tokens too, which takes some four times as long as passing over it.
    for (int i = 0; i < 5; ++i)
        WeighLook(ahead);
    const QByteArrayView rest = tokens_.Bytes().sliced(begin, ahead.Position() - begin);
    return HoldsParagraphs(rest) ||
           PlainTextOfRtf(rest, content_.Tables.Encoding(), kMaxLabel).size() >= kMaxLabel;
}

// A group that only its own kind of program understands is kept and not shown. Text in it could be the
// user's, so that is said.
void RtfParser::TakeUnknownGroup(const RtfToken& token) {
    const QByteArrayView rest = tokens_.Bytes().sliced(tokens_.Position());
    RtfTokenizer ahead(rest);
    // What is judged is what is kept.
    if (HoldsText(KeptRtf(rest.first(ahead.SkipGroup()))))
        content_.Lose(
            QStringLiteral("text in a part of an unknown kind (\\%1)")
                .arg(QString::fromLatin1(token.Text.first(std::min<qsizetype>(token.Text.size(), 32)))));
    TakeObject(token);
}

void RtfParser::TakeObject(const RtfToken& token) {
    const QString label = LabelOfRtfObject(token.Text);
    const int fallbacks = Current().Fallbacks;
    const RtfChar look = Current().Char;
    const QByteArray raw = TakeGroup(token);
    // Words in front of the token are not in the source that is kept, but tell how it looks.
    const RtfChar outer = std::exchange(Current().Char, look);
    format_ = -1;
    if (!inBody_)
        content_.Head += WithFallbacks(raw, fallbacks);
    else if (label.isEmpty())
        KeepUnseen(WithFallbacks(raw, fallbacks));
    else
        KeepSeen(WithFallbacks(raw, fallbacks), label, SizeOfObject(raw), ResultPicture(raw));
    Current().Char = outer;
    format_ = -1;
}

// The group that the token's word makes a destination of. The token need not be the group's first.
QByteArray RtfParser::TakeGroup(const RtfToken& token) {
    const bool isWhole = Current().AtStart;
    const qsizetype begin = isWhole ? Current().Begin : token.Begin;
    TakeInside();
    return SourceFrom(begin, tokens_.Position());
}

// What is kept of a group that begins with its brace or, where it is cut, with a word.
QByteArray RtfParser::SourceFrom(qsizetype begin, qsizetype end) const {
    const QByteArrayView source = tokens_.Bytes().sliced(begin, end - begin);
    return source.startsWith('{') ? KeptRtf(source) : KeptRtf(QByteArray('{' + source.toByteArray()));
}

QByteArrayView RtfParser::TakeInside() {
    const qsizetype begin = tokens_.Position();
    const qsizetype end = tokens_.SkipGroup();
    Current().IsField = false;
    CloseGroup(tokens_.Position());
    return tokens_.Bytes().sliced(begin, end - begin);
}

QByteArray RtfParser::WithFallbacks(const QByteArray& raw, int fallbacks) const {
    // Where it is written, one character of fallback is the rule.
    return fallbacks == 1 ? raw : QByteArray("{\\uc" + QByteArray::number(fallbacks) + raw + '}');
}

void RtfParser::KeepUnseen(const QByteArray& raw) {
    ++textRead_;
    CloseHidden();
    unseen_ += raw;
}

void RtfParser::KeepSeen(const QByteArray& raw, const QString& label, QSizeF size,
                         const QTextImageFormat& picture) {
    inBody_ = true;
    if (Current().Char.Hidden) {
        KeepUnseen("{\\v" + raw + '}');
        return;
    }
    if (PutsLabel(label))
        return;
    FlushUnseen();
    WeighThing();
    QTextCharFormat format = content_.Formats[std::size_t(CurrentFormat())];
    format.setObjectType(kRtfObject);
    format.setProperty(RtfRaw, raw);
    format.setProperty(RtfObjectText, label);
    if (!picture.name().isEmpty()) {
        for (const int property : {int(QTextFormat::ImageName), int(RtfPictureBytes), int(RtfPictureKind)})
            format.setProperty(property, picture.property(property));
        if (size.isEmpty())
            size = picture.property(RtfPictureShown).toSizeF();
    }
    if (!size.isEmpty())
        format.setProperty(RtfObjectSize, size);
    content_.Formats.push_back(format);
    flow_.AppendText(QStringView(u"\uFFFC"), int(content_.Formats.size()) - 1);
    ++textRead_;
    pictureFormat_ = -1;
}

} // namespace paneda
