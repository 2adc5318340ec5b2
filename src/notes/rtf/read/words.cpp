#include "notes/rtf/read/words.h"

#include <array>
#include <string_view>
#include <unordered_map>

namespace paneda {

namespace {

struct Entry {
    std::string_view Word;
    RtfWord Meaning;
};

// clang-format off
constexpr std::array kWords{
    Entry{"plain", RtfWord::Plain}, Entry{"f", RtfWord::Font}, Entry{"fs", RtfWord::FontSize},
    Entry{"b", RtfWord::Bold}, Entry{"i", RtfWord::Italic}, Entry{"strike", RtfWord::Strike},
    Entry{"ulnone", RtfWord::UnderlineNone}, Entry{"super", RtfWord::Super}, Entry{"sub", RtfWord::Sub},
    Entry{"nosupersub", RtfWord::NoSuperSub}, Entry{"up", RtfWord::Up}, Entry{"dn", RtfWord::Down},
    Entry{"cf", RtfWord::ForeColour}, Entry{"highlight", RtfWord::Highlight}, Entry{"cb", RtfWord::BackColour},
    Entry{"chcbpat", RtfWord::CharBackColour}, Entry{"scaps", RtfWord::SmallCaps},
    Entry{"caps", RtfWord::AllCaps}, Entry{"expnd", RtfWord::Spacing}, Entry{"expndtw", RtfWord::SpacingTwips},
    Entry{"v", RtfWord::Hidden}, Entry{"lang", RtfWord::Language}, Entry{"revised", RtfWord::Tracked},
    Entry{"deleted", RtfWord::Tracked}, Entry{"chbrdr", RtfWord::CharBorder},

    Entry{"pard", RtfWord::ParagraphDefault}, Entry{"ql", RtfWord::AlignLeft}, Entry{"qr", RtfWord::AlignRight},
    Entry{"qc", RtfWord::AlignCentre}, Entry{"qj", RtfWord::AlignJustify}, Entry{"qd", RtfWord::AlignJustify},
    Entry{"li", RtfWord::LeftIndent}, Entry{"ri", RtfWord::RightIndent}, Entry{"fi", RtfWord::FirstIndent},
    Entry{"sb", RtfWord::SpaceBefore}, Entry{"sa", RtfWord::SpaceAfter}, Entry{"sl", RtfWord::LineSpacing},
    Entry{"slmult", RtfWord::LineMultiple}, Entry{"tx", RtfWord::TabStop}, Entry{"tb", RtfWord::TabBar},
    Entry{"tqr", RtfWord::TabKind}, Entry{"tqc", RtfWord::TabKind}, Entry{"tqdec", RtfWord::TabKind},
    Entry{"tldot", RtfWord::TabLeader}, Entry{"tlmdot", RtfWord::TabLeader}, Entry{"tlhyph", RtfWord::TabLeader},
    Entry{"tlul", RtfWord::TabLeader}, Entry{"tlth", RtfWord::TabLeader}, Entry{"tleq", RtfWord::TabLeader},
    Entry{"cbpat", RtfWord::ParagraphColour}, Entry{"pagebb", RtfWord::PageBreakBefore},
    Entry{"rtlpar", RtfWord::RightToLeft}, Entry{"ltrpar", RtfWord::LeftToRight}, Entry{"keep", RtfWord::Keep},
    Entry{"intbl", RtfWord::InTable}, Entry{"itap", RtfWord::NestLevel}, Entry{"ls", RtfWord::ListNumber},
    Entry{"ilvl", RtfWord::ListLevel},

    Entry{"trowd", RtfWord::RowDefault}, Entry{"cellx", RtfWord::CellRight}, Entry{"clmgf", RtfWord::MergeFirst},
    Entry{"clmrg", RtfWord::MergeNext}, Entry{"clvmgf", RtfWord::MergeRowsFirst},
    Entry{"clvmrg", RtfWord::MergeRowsNext}, Entry{"clcbpat", RtfWord::CellColour},
    Entry{"clvertalt", RtfWord::CellTop}, Entry{"clvertalc", RtfWord::CellMiddle},
    Entry{"clvertalb", RtfWord::CellBottom}, Entry{"trleft", RtfWord::RowLeft}, Entry{"trhdr", RtfWord::RowHeader},
    Entry{"trqc", RtfWord::RowCentre}, Entry{"trqr", RtfWord::RowRight},

    Entry{"par", RtfWord::Paragraph}, Entry{"cell", RtfWord::Cell}, Entry{"nestcell", RtfWord::NestedCell},
    Entry{"row", RtfWord::Row}, Entry{"nestrow", RtfWord::NestedRow}, Entry{"line", RtfWord::Line},
    Entry{"lbr", RtfWord::Line}, Entry{"tab", RtfWord::Tab}, Entry{"sect", RtfWord::Section},
    Entry{"page", RtfWord::PageBreak}, Entry{"column", RtfWord::KeptCharacter},
    Entry{"u", RtfWord::Unicode}, Entry{"uc", RtfWord::UnicodeSkip},
    Entry{"chftn", RtfWord::KeptCharacter}, Entry{"chatn", RtfWord::KeptCharacter},
    Entry{"chdate", RtfWord::KeptCharacter}, Entry{"chtime", RtfWord::KeptCharacter},
    Entry{"chdpl", RtfWord::KeptCharacter}, Entry{"chdpa", RtfWord::KeptCharacter},
    Entry{"chpgn", RtfWord::KeptCharacter}, Entry{"sectnum", RtfWord::KeptCharacter},

    Entry{"*", RtfWord::Ignorable}, Entry{"fonttbl", RtfWord::FontTable}, Entry{"colortbl", RtfWord::ColourTable},
    Entry{"listtable", RtfWord::ListTable}, Entry{"listoverridetable", RtfWord::ListOverrides},
    Entry{"stylesheet", RtfWord::Head}, Entry{"info", RtfWord::Head}, Entry{"filetbl", RtfWord::Head},
    Entry{"revtbl", RtfWord::Head}, Entry{"header", RtfWord::Head}, Entry{"headerl", RtfWord::Head},
    Entry{"headerr", RtfWord::Head}, Entry{"headerf", RtfWord::Head}, Entry{"footer", RtfWord::Head},
    Entry{"footerl", RtfWord::Head}, Entry{"footerr", RtfWord::Head}, Entry{"footerf", RtfWord::Head},
    Entry{"ftnsep", RtfWord::Head}, Entry{"ftnsepc", RtfWord::Head}, Entry{"ftncn", RtfWord::Head},
    Entry{"aftnsep", RtfWord::Head}, Entry{"aftnsepc", RtfWord::Head}, Entry{"aftncn", RtfWord::Head},
    Entry{"generator", RtfWord::Dropped}, Entry{"listtext", RtfWord::ListText},
    Entry{"updnprop", RtfWord::Dropped}, Entry{"listtag", RtfWord::Dropped},
    Entry{"nonesttables", RtfWord::Dropped}, Entry{"pn", RtfWord::OldList}, Entry{"pntext", RtfWord::ListText},
    Entry{"pict", RtfWord::Picture}, Entry{"shppict", RtfWord::ShapePicture},
    Entry{"nonshppict", RtfWord::OtherPicture}, Entry{"field", RtfWord::Field},
    Entry{"fldinst", RtfWord::FieldInstruction}, Entry{"fldrslt", RtfWord::Transparent},
    Entry{"nesttableprops", RtfWord::NestedRowDefinition}, Entry{"upr", RtfWord::Upr},
    Entry{"ud", RtfWord::UprUnicode}, Entry{"object", RtfWord::Kept}, Entry{"shp", RtfWord::Kept},
    Entry{"shpgrp", RtfWord::Kept}, Entry{"do", RtfWord::Kept}, Entry{"footnote", RtfWord::Kept},
    Entry{"annotation", RtfWord::Kept}, Entry{"atnid", RtfWord::Kept}, Entry{"atnauthor", RtfWord::Kept},
    Entry{"atrfstart", RtfWord::Kept}, Entry{"atrfend", RtfWord::Kept}, Entry{"bkmkstart", RtfWord::Kept},
    Entry{"bkmkend", RtfWord::Kept}, Entry{"xe", RtfWord::Kept}, Entry{"tc", RtfWord::Kept},
    Entry{"tcn", RtfWord::Kept}, Entry{"rxe", RtfWord::Kept}, Entry{"private", RtfWord::Kept},

    Entry{"rtf", RtfWord::Version}, Entry{"ansi", RtfWord::Ansi}, Entry{"mac", RtfWord::Macintosh},
    Entry{"pc", RtfWord::Dos}, Entry{"pca", RtfWord::DosMultilingual}, Entry{"ansicpg", RtfWord::AnsiCodePage},
    Entry{"deff", RtfWord::DefaultFont},
};

// Words that are kept as they stand, and the borders, which open a list of details.
constexpr std::array<std::string_view, 19> kUnderlines{
    "ul", "uld", "uldash", "uldashd", "uldashdd", "uldb", "ulhwave", "ulldash", "ulth", "ulthd",
    "ulthdash", "ulthdashd", "ulthdashdd", "ulthldash", "ululdbwave", "uldbwave", "ulw", "ulwave", "uldot"};
constexpr std::array<std::string_view, 15> kKeptToggles{
    "outl", "shad", "embo", "impr", "striked", "noproof", "webhidden", "accnone", "accdot", "acccomma",
    "acccircle", "accunderdot", "cgrid", "gridtbl", "nosectexpand"};
// What scripts of other writing systems look like, and numbers of editing sessions.
constexpr std::array<std::string_view, 22> kIgnored{
    "rtlch", "ltrch", "loch", "hich", "dbch", "af", "afs", "ab", "ai", "aul", "alang", "acf", "astrike",
    "lin", "rin", "insrsid", "charrsid", "pararsid", "sectrsid", "tblrsid", "fcs", "softline"};
constexpr std::array<std::string_view, 9> kKeptChars{
    "animtext", "charscalex", "kerning", "cs", "chshdng", "chcfpat", "ulc", "langfe", "cchs"};
constexpr std::array<std::string_view, 31> kKeptParagraphs{
    "s", "keepn", "widctlpar", "nowidctlpar", "sbauto", "saauto", "outlinelevel", "hyphpar", "noline",
    "contextualspacing", "aspalpha", "aspnum", "faauto", "shading", "cfpat", "bgdkdiag", "wrapdefault",
    "nowwrap", "adjustright", "culi", "curi", "cufi", "lisa", "lisb", "level", "sbys", "absw", "absh",
    "posx", "posy", "subdocument"};
constexpr std::array<std::string_view, 8> kParagraphBorders{
    "brdrt", "brdrb", "brdrl", "brdrr", "box", "brdrbtw", "brdrbar", "pbrdr"};
constexpr std::array<std::string_view, 7> kRowBorders{
    "trbrdrt", "trbrdrb", "trbrdrl", "trbrdrr", "trbrdrh", "trbrdrv", "trbrdr"};
constexpr std::array<std::string_view, 6> kCellBorders{
    "clbrdrt", "clbrdrb", "clbrdrl", "clbrdrr", "cldglu", "cldgll"};

struct CharacterEntry {
    std::string_view Word;
    char16_t Unit;
};
constexpr std::array kCharacters{
    CharacterEntry{"~", 0x00A0}, CharacterEntry{"-", 0x00AD}, CharacterEntry{"_", 0x2011},
    CharacterEntry{"emdash", 0x2014}, CharacterEntry{"endash", 0x2013}, CharacterEntry{"emspace", 0x2003},
    CharacterEntry{"enspace", 0x2002}, CharacterEntry{"qmspace", 0x2005}, CharacterEntry{"bullet", 0x2022},
    CharacterEntry{"lquote", 0x2018}, CharacterEntry{"rquote", 0x2019}, CharacterEntry{"ldblquote", 0x201C},
    CharacterEntry{"rdblquote", 0x201D}, CharacterEntry{"ltrmark", 0x200E}, CharacterEntry{"rtlmark", 0x200F},
    CharacterEntry{"zwj", 0x200D}, CharacterEntry{"zwnj", 0x200C}, CharacterEntry{"zwbo", 0x200B},
    CharacterEntry{"zwnbo", 0x2060},
};
// clang-format on

using Meanings = std::unordered_map<std::string_view, RtfWord>;

template <typename Words>
void Add(Meanings& meanings, const Words& words, RtfWord meaning) {
    for (const std::string_view word : words)
        meanings.emplace(word, meaning);
}

Meanings MakeMeanings() {
    Meanings meanings;
    for (const Entry& entry : kWords)
        meanings.emplace(entry.Word, entry.Meaning);
    for (const CharacterEntry& entry : kCharacters)
        meanings.emplace(entry.Word, RtfWord::Character);
    Add(meanings, kUnderlines, RtfWord::Underline);
    Add(meanings, kKeptToggles, RtfWord::KeptCharToggle);
    Add(meanings, kIgnored, RtfWord::Ignored);
    Add(meanings, kKeptChars, RtfWord::KeptChar);
    Add(meanings, kKeptParagraphs, RtfWord::KeptParagraph);
    Add(meanings, kParagraphBorders, RtfWord::ParagraphBorder);
    Add(meanings, kRowBorders, RtfWord::RowBorder);
    Add(meanings, kCellBorders, RtfWord::CellBorder);
    return meanings;
}

} // namespace

RtfWord FindRtfWord(QByteArrayView word) {
    static const Meanings meanings = MakeMeanings();
    const std::string_view name(word.data(), std::size_t(word.size()));
    if (const auto found = meanings.find(name); found != meanings.end())
        return found->second;
    // One word processor's private marks, which say again what standard words say.
    if (name.starts_with("abi"))
        return RtfWord::Dropped;
    if (name.starts_with("brdr") || name == "brsp")
        return RtfWord::BorderDetail;
    if (name.starts_with("tr") || name.starts_with("tbl"))
        return RtfWord::KeptRow;
    if (name.starts_with("cl"))
        return RtfWord::KeptCell;
    return RtfWord::Unknown;
}

char16_t CharacterOfRtfWord(QByteArrayView word) {
    const std::string_view name(word.data(), std::size_t(word.size()));
    for (const CharacterEntry& entry : kCharacters)
        if (entry.Word == name)
            return entry.Unit;
    return 0;
}

} // namespace paneda
