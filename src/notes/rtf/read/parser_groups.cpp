#include "notes/rtf/read/links.h"
#include "notes/rtf/read/parser.h"
#include "notes/rtf/read/pictures.h"
#include "notes/rtf/read/raw.h"

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

QString LabelOfObject(QByteArrayView word) {
    if (word == "object")
        return QStringLiteral("[object]");
    if (word == "shp" || word == "shpgrp" || word == "do")
        return QStringLiteral("[drawing]");
    if (word == "footnote")
        return QStringLiteral("[footnote]");
    if (word == "annotation")
        return QStringLiteral("[comment]");
    return {};
}

QSizeF SizeOfObject(QByteArrayView source) {
    const int width = NumberOfWord(source, "objw");
    const int height = NumberOfWord(source, "objh");
    if (width <= 0 || height <= 0)
        return {};
    return {std::min(width / kRtfTwipsPerPixel, 2000.0), std::min(height / kRtfTwipsPerPixel, 2000.0)};
}

} // namespace

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
        [[fallthrough]];
    case RtfWord::Dropped:
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
        skipNextGroup_ = true;
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
    // Text that was read refers to the first table; there is to be no other.
    const bool isSecond = meaning == RtfWord::FontTable     ? !content_.FontTable.isEmpty()
                          : meaning == RtfWord::ColourTable ? !content_.ColourTable.isEmpty()
                                                            : false;
    if (isSecond)
        return true;
    if (meaning == RtfWord::FontTable) {
        content_.FontTable = group;
        content_.Tables.Fonts = ReadFontTable(group, content_.Tables.CodePage);
        return true;
    }
    if (meaning == RtfWord::ColourTable) {
        content_.ColourTable = group;
        content_.Tables.Colours = ReadColourTable(group);
        return true;
    }
    if (meaning == RtfWord::ListTable)
        lists_.ReadTable(group, content_.Tables.CodePage);
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
    const auto list = std::make_shared<const RtfOldList>(ReadOldList(TakeInside(), content_.Tables.CodePage));
    Current().Paragraph.OldList = list;
}

// Some programs close the group of an item's marker behind the item itself.
bool RtfParser::HoldsParagraph() const {
    RtfTokenizer ahead = tokens_;
    const qsizetype limit = ahead.Position() + kMaxMarkerSource;
    for (qsizetype depth = 1; depth > 0 && ahead.Position() < limit;) {
        const RtfToken token = ahead.Next();
        if (token.Kind == RtfToken::Type::End || (token.Kind == RtfToken::Type::Word && token.Text == "par"))
            return token.Kind != RtfToken::Type::End;
        depth += int(token.Kind == RtfToken::Type::Open) - int(token.Kind == RtfToken::Type::Close);
    }
    return ahead.Position() >= limit;
}

void RtfParser::TakePicture() {
    inBody_ = true;
    const bool isShape = Current().IsShapePicture;
    const QByteArrayView source = TakeInside();
    const QTextImageFormat picture = ReadRtfPicture(source);
    if (picture.property(RtfPictureBytes).toByteArray().isEmpty() ||
        picture.property(RtfPictureKind).toByteArray().isEmpty()) {
        KeepSeen("{\\pict" + KeptRtf(source) + '}', QStringLiteral("[picture]"));
        return;
    }
    QTextCharFormat format = content_.Formats[std::size_t(CurrentFormat())];
    format.merge(picture);
    if (!HasRoomForObject())
        return;
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
    // An instruction behind the field's text is nobody's: the text stands for itself already.
    if (found == groups_.rend() || found->TextBefore != textRead_) {
        TakeObject(token);
        return;
    }
    const auto field = std::size_t(groups_.rend() - found) - 1;
    const QString instruction =
        PlainTextOfRtf(TakeInside(), content_.Tables.CodePage, kMaxInstruction).trimmed();
    const QString address = LinkAddress(instruction);
    if (address.isEmpty()) {
        TakeForeignField(field);
        return;
    }
    links_.push_back({address, instruction});
    for (std::size_t i = field; i < groups_.size(); ++i)
        groups_[i].Char.Link = int(links_.size());
    format_ = -1;
}

// A field that this editor does not work is kept whole; what it last came to stands in its place.
void RtfParser::TakeForeignField(std::size_t field) {
    const Group group = groups_[field];
    while (groups_.size() > field)
        TakeInside();
    const QByteArray source = SourceFrom(group.Begin, tokens_.Position());
    if (group.Char.Hidden) {
        inBody_ = true;
        KeepUnseen(WithFallbacks(QByteArray("{\\v" + source + '}'), group.Fallbacks));
        return;
    }
    const qsizetype result = source.indexOf("\\fldrslt");
    const QString label =
        result < 0 ? QString() : PlainTextOfRtf(source.sliced(result), content_.Tables.CodePage, kMaxLabel);
    // Words in front of the field are not in its source, but tell how it looks.
    const RtfChar outer = std::exchange(Current().Char, group.Char);
    format_ = -1;
    KeepSeen(WithFallbacks(source, group.Fallbacks), label.isEmpty() ? QStringLiteral("[field]") : label);
    Current().Char = outer;
    format_ = -1;
}

void RtfParser::TakeObject(const RtfToken& token) {
    const QString label = LabelOfObject(token.Text);
    const int fallbacks = Current().Fallbacks;
    const QByteArray raw = TakeGroup(token);
    if (!inBody_)
        content_.Head += WithFallbacks(raw, fallbacks);
    else if (label.isEmpty())
        KeepUnseen(WithFallbacks(raw, fallbacks));
    else
        KeepSeen(WithFallbacks(raw, fallbacks), label, SizeOfObject(raw));
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
    if (!hidden_.isEmpty())
        unseen_ += "{\\uc1\\v " + RtfOfText(std::exchange(hidden_, QString())) + '}';
    unseen_ += raw;
}

void RtfParser::KeepSeen(const QByteArray& raw, const QString& label, QSizeF size) {
    inBody_ = true;
    FlushUnseen();
    if (!HasRoomForObject())
        return;
    QTextCharFormat format = content_.Formats[std::size_t(CurrentFormat())];
    format.setObjectType(kRtfObject);
    format.setProperty(RtfRaw, raw);
    format.setProperty(RtfObjectText, label);
    if (!size.isEmpty())
        format.setProperty(RtfObjectSize, size);
    content_.Formats.push_back(format);
    flow_.AppendText(QStringView(u"\uFFFC"), int(content_.Formats.size()) - 1);
    ++textRead_;
    pictureFormat_ = -1;
}

} // namespace paneda
