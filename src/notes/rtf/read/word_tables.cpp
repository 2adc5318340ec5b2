#include "notes/rtf/read/words.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>

namespace paneda {

namespace {

struct Row {
    RtfWord Meaning;
    std::string_view Words; // with blanks between them
};

// clang-format off
constexpr std::array kRows{
    Row{RtfWord::Plain, "plain"}, Row{RtfWord::Font, "f"}, Row{RtfWord::FontSize, "fs"}, Row{RtfWord::Bold, "b"},
    Row{RtfWord::Italic, "i"}, Row{RtfWord::Strike, "strike"}, Row{RtfWord::UnderlineNone, "ulnone"},
    Row{RtfWord::Super, "super"}, Row{RtfWord::Sub, "sub"}, Row{RtfWord::NoSuperSub, "nosupersub"},
    Row{RtfWord::Up, "up"}, Row{RtfWord::Down, "dn"}, Row{RtfWord::ForeColour, "cf"},
    Row{RtfWord::Highlight, "highlight"}, Row{RtfWord::BackColour, "cb"}, Row{RtfWord::CharBackColour, "chcbpat"},
    Row{RtfWord::SmallCaps, "scaps"}, Row{RtfWord::AllCaps, "caps"}, Row{RtfWord::Spacing, "expnd"},
    Row{RtfWord::SpacingTwips, "expndtw"}, Row{RtfWord::Hidden, "v"}, Row{RtfWord::Language, "lang"},
    Row{RtfWord::Tracked, "revised deleted"}, Row{RtfWord::CharBorder, "chbrdr"},
    Row{RtfWord::Underline,
        "ul uld uldash uldashd uldashdd uldb ulhwave ulldash ulth ulthd ulthdash ulthdashd ulthdashdd ulthldash "
        "ululdbwave uldbwave ulw ulwave uldot ulhair"},
    Row{RtfWord::KeptCharToggle,
        "outl shad embo impr striked noproof webhidden accnone accdot acccomma acccircle accunderdot cgrid gridtbl "
        "nosectexpand protect ol ab ai aul auld auldb aulw astrike acaps ascaps aoutl ashad"},
    Row{RtfWord::KeptChar,
        "animtext charscalex kerning cs chshdng chcfpat ulc langfe cchs fittext g gcw expshrtn chbghoriz chbgvert "
        "chbgfdiag chbgbdiag chbgcross chbgdcross chbgdkhoriz chbgdkvert chbgdkfdiag chbgdkbdiag chbgdkcross "
        "chbgdkdcross afs aup adn acf aexpnd"},

    Row{RtfWord::ParagraphDefault, "pard"}, Row{RtfWord::AlignLeft, "ql"}, Row{RtfWord::AlignRight, "qr"},
    Row{RtfWord::AlignCentre, "qc"}, Row{RtfWord::AlignJustify, "qj qd"}, Row{RtfWord::LeftIndent, "li"},
    Row{RtfWord::RightIndent, "ri"}, Row{RtfWord::FirstIndent, "fi"}, Row{RtfWord::SpaceBefore, "sb"},
    Row{RtfWord::SpaceAfter, "sa"}, Row{RtfWord::LineSpacing, "sl"}, Row{RtfWord::LineMultiple, "slmult"},
    Row{RtfWord::TabStop, "tx"}, Row{RtfWord::TabBar, "tb"}, Row{RtfWord::TabKind, "tql tqr tqc tqdec"},
    Row{RtfWord::TabLeader, "tldot tlmdot tlhyph tlul tlth tleq"}, Row{RtfWord::ParagraphColour, "cbpat"},
    Row{RtfWord::PageBreakBefore, "pagebb"}, Row{RtfWord::RightToLeft, "rtlpar"}, Row{RtfWord::LeftToRight, "ltrpar"},
    Row{RtfWord::Keep, "keep"}, Row{RtfWord::InTable, "intbl"}, Row{RtfWord::NestLevel, "itap"},
    Row{RtfWord::ListNumber, "ls"}, Row{RtfWord::ListLevel, "ilvl"},
    Row{RtfWord::KeptParagraph,
        "s keepn widctlpar nowidctlpar sbauto saauto outlinelevel hyphpar noline contextualspace contextualspacing "
        "aspalpha aspnum faauto fahang facenter faroman favar fafixed shading cfpat bghoriz bgvert bgfdiag bgbdiag "
        "bgcross bgdcross bgdkhoriz bgdkvert bgdkfdiag bgdkbdiag bgdkcross bgdkdcross wrapdefault wraparound "
        "wraptight wrapthrough nowwrap nowrap nooverflow nocwrap nosnaplinegrid toplinepunct adjustright indmirror "
        "culi curi cufi lisa lisb level sbys absw absh abslock absnoovrlp posx posy posnegx posnegy posxc posxi posxl "
        "posxo posxr posyb posyc posyil posyin posyout posyt phcol phmrg phpg pvmrg pvpara pvpg dxfrtext dfrmtxtx "
        "dfrmtxty dropcapli dropcapt overlay subdocument yts spv txbxtwalways txbxtwfirst txbxtwfirstlast txbxtwlast "
        "txbxtwno frmtxlrtb frmtxtbrl frmtxbtlr frmtxlrtbv frmtxtbrlv pmartabql pmartabqr pmartabqc pindtabql pindtabqr "
        "pindtabqc ptablnone ptabldot ptablminus ptabluscore ptablmdot"},
    Row{RtfWord::ParagraphBorder, "brdrt brdrb brdrl brdrr box brdrbtw brdrbar pbrdr"},

    Row{RtfWord::RowDefault, "trowd"}, Row{RtfWord::CellRight, "cellx"}, Row{RtfWord::MergeFirst, "clmgf"},
    Row{RtfWord::MergeNext, "clmrg"}, Row{RtfWord::MergeRowsFirst, "clvmgf"}, Row{RtfWord::MergeRowsNext, "clvmrg"},
    Row{RtfWord::CellColour, "clcbpat"}, Row{RtfWord::CellTop, "clvertalt"}, Row{RtfWord::CellMiddle, "clvertalc"},
    Row{RtfWord::CellBottom, "clvertalb"}, Row{RtfWord::RowLeft, "trleft"}, Row{RtfWord::RowHeader, "trhdr"},
    Row{RtfWord::RowCentre, "trqc"}, Row{RtfWord::RowRight, "trqr"},
    Row{RtfWord::RowBorder, "trbrdrt trbrdrb trbrdrl trbrdrr trbrdrh trbrdrv trbrdr"},
    Row{RtfWord::CellBorder, "clbrdrt clbrdrb clbrdrl clbrdrr cldglu cldgll"},
    // Where a frame of a table stands, and the direction and style of a row.
    Row{RtfWord::KeptRow,
        "rtlrow taprtl ts tabsnoovrlp tdfrmtxtLeft tdfrmtxtRight tdfrmtxtTop tdfrmtxtBottom tphcol tphmrg tphpg tpvmrg "
        "tpvpara tpvpg tposx tposy tposnegx tposnegy tposxc tposxi tposxl tposxo tposxr tposyb tposyc tposyil tposyin "
        "tposyout tposyt"},

    Row{RtfWord::Paragraph, "par"}, Row{RtfWord::Cell, "cell"}, Row{RtfWord::NestedCell, "nestcell"},
    Row{RtfWord::Row, "row"}, Row{RtfWord::NestedRow, "nestrow"}, Row{RtfWord::Line, "line lbr"},
    Row{RtfWord::Tab, "tab"}, Row{RtfWord::Section, "sect"}, Row{RtfWord::PageBreak, "page"},
    Row{RtfWord::Unicode, "u"}, Row{RtfWord::UnicodeSkip, "uc"},
    Row{RtfWord::KeptCharacter, "column chftn chatn chdate chtime chdpl chdpa chpgn sectnum"},

    Row{RtfWord::Ignorable, "*"}, Row{RtfWord::FontTable, "fonttbl"}, Row{RtfWord::ColourTable, "colortbl"},
    Row{RtfWord::ListTable, "listtable"}, Row{RtfWord::ListOverrides, "listoverridetable"},
    Row{RtfWord::Head,
        "stylesheet info filetbl revtbl header headerl headerr headerf footer footerl footerr footerf ftnsep ftnsepc "
        "ftncn aftnsep aftnsepc aftncn rsidtbl pgptbl pgdsctbl pgdscno xmlnstbl latentstyles themedata colorschememapping "
        "datastore defchp defpap mmathPr userprops docvar listpicture background protusertbl wgrffmtfilter template "
        "windowcaption writereservation writereservhash passwordhash password hlinkbase keycode fontemb mailmerge "
        "pnseclvl oldcprops oldpprops oldtprops oldsprops rdf"},
    Row{RtfWord::Dropped, "generator updnprop listtag nonesttables"}, Row{RtfWord::ListText, "listtext pntext"},
    Row{RtfWord::OldList, "pn"}, Row{RtfWord::Picture, "pict"}, Row{RtfWord::ShapePicture, "shppict"},
    Row{RtfWord::OtherPicture, "nonshppict"}, Row{RtfWord::Field, "field"}, Row{RtfWord::FieldInstruction, "fldinst"},
    Row{RtfWord::Transparent, "fldrslt"}, Row{RtfWord::NestedRowDefinition, "nesttableprops"},
    Row{RtfWord::Upr, "upr"}, Row{RtfWord::UprUnicode, "ud"},
    Row{RtfWord::Kept,
        "object shp shpgrp do footnote annotation atnid atnauthor atndate atnref atnicn atntime atnparent atrfstart "
        "atrfend bkmkstart bkmkend xe tc tcn rxe private mmath moMath moMathPara protstart protend datafield "
        "formfield fldtype xmlopen xmlclose"},

    Row{RtfWord::Version, "rtf"}, Row{RtfWord::Ansi, "ansi"}, Row{RtfWord::Macintosh, "mac"}, Row{RtfWord::Dos, "pc"},
    Row{RtfWord::DosMultilingual, "pca"}, Row{RtfWord::AnsiCodePage, "ansicpg"}, Row{RtfWord::DefaultFont, "deff"},

    // What may go without a word, since nobody sees it: which font and language other scripts would have, numbers
    // of editing sessions, how the writer last broke lines, whether a field is up to date, measures said again in
    // other terms, signs that mean something in the index only.
    Row{RtfWord::Ignored,
        "rtlch ltrch loch hich dbch fcs af alang aulnone langnp langfenp lin rin insrsid charrsid pararsid sectrsid "
        "tblrsid delrsid styrsid softline softpage softcol softlheight flddirty fldedit fldlock fldpriv ltrrow irow "
        "irowband lastrow : | '"},
};

struct Sign {
    std::string_view Word;
    char16_t Unit;
};
constexpr std::array kSigns{
    Sign{"~", 0x00A0}, Sign{"-", 0x00AD}, Sign{"_", 0x2011}, Sign{"emdash", 0x2014}, Sign{"endash", 0x2013},
    Sign{"emspace", 0x2003}, Sign{"enspace", 0x2002}, Sign{"qmspace", 0x2005}, Sign{"bullet", 0x2022},
    Sign{"lquote", 0x2018}, Sign{"rquote", 0x2019}, Sign{"ldblquote", 0x201C}, Sign{"rdblquote", 0x201D},
    Sign{"ltrmark", 0x200E}, Sign{"rtlmark", 0x200F}, Sign{"zwj", 0x200D}, Sign{"zwnj", 0x200C},
    Sign{"zwbo", 0x200B}, Sign{"zwnbo", 0x2060},
};
// clang-format on

using Meanings = std::unordered_map<std::string_view, RtfWord>;

Meanings MakeMeanings() {
    Meanings meanings;
    for (const Row& row : kRows) {
        for (std::size_t at = 0; at < row.Words.size();) {
            const std::size_t end = std::min(row.Words.find(' ', at), row.Words.size());
            meanings.emplace(row.Words.substr(at, end - at), row.Meaning);
            at = end + 1;
        }
    }
    for (const Sign& sign : kSigns)
        meanings.emplace(sign.Word, RtfWord::Character);
    return meanings;
}

} // namespace

RtfWord FindRtfWord(QByteArrayView word) {
    static const Meanings meanings = MakeMeanings();
    const std::string_view name(word.data(), std::size_t(word.size()));
    if (const auto found = meanings.find(name); found != meanings.end())
        return found->second;
    // Only where a definition of a row or a border has begun; anywhere else the word is as good as unknown.
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
    const auto* found =
        std::find_if(kSigns.begin(), kSigns.end(), [name](const Sign& s) { return s.Word == name; });
    return found == kSigns.end() ? char16_t(0) : found->Unit;
}

} // namespace paneda
