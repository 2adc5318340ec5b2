#include "support/rtf_check.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>

#include <cctype>
#include <cstdlib>

namespace paneda::test {

namespace {

const QSet<QByteArray>& KnownWords() {
    static const QSet<QByteArray> words = [] {
        const QByteArray text =
            "rtf ansi ansicpg deff deflang deflangfe viewkind uc u fonttbl f fnil froman fswiss fmodern "
            "fscript fdecor "
            "ftech fbidi fcharset fprq colortbl red green blue stylesheet s cs snext sbasedon info title "
            "author "
            "operator creatim revtim yr mo dy hr min version paperw paperh margl margr margt margb deftab "
            "widowctrl sectd header footer footnote field fldinst fldrslt bkmkstart object objdata objemb "
            "result "
            "pard plain par line tab page cell row nestcell nestrow nonesttables lquote rquote ldblquote "
            "rdblquote "
            "bullet endash emdash ql qc qr qj li ri fi lin rin sb sa sl slmult tx tb tqr tqc tqdec cbpat "
            "keep keepn "
            "pagebb hyphpar widctlpar nowidctlpar outlinelevel rtlpar ltrpar rtlch ltrch "
            "b i ul uld uldb uldash uldashd uldashdd ulw ulth ulthd ulthdash ulwave ululdbwave ulhwave "
            "ulldash "
            "ulnone strike striked super sub nosupersub up dn v caps scaps fs cf cb highlight chcbpat "
            "chshdng lang "
            "expnd expndtw kerning charscalex outl shad embo impr "
            "pn pnlvlblt pnlvlbody pnlvlcont pnf pnindent pnhang pnstart pndec pnlcltr pnucltr pnlcrm pnucrm "
            "pntext "
            "pntxta pntxtb pnfs pncf ls ilvl listtext "
            "pict nonshppict picw pich picwgoal pichgoal picscalex picscaley piccropl piccropr piccropt "
            "piccropb "
            "pngblip "
            "jpegblip dibitmap wbitmap wmetafile emfblip wbmbitspixel wbmplanes wbmwidthbytes bin blipuid "
            "bliptag "
            "intbl itap trowd trgaph trleft trrh trql trqc trqr trhdr trkeep cellx clmgf clmrg clvmgf clvmrg "
            "clvertalt clvertalc clvertalb clcbpat clbrdrl clbrdrt clbrdrr clbrdrb brdrs brdrdb brdrth "
            "brdrdot "
            "brdrdash brdrdashd brdrdashdd brdrnone brdrnil brdrw brdrcf brdrt brdrb brdrl brdrr brsp "
            "clftsWidth "
            "clwWidth clpadl clpadt clpadb clpadr clpadfl clpadft clpadfb clpadfr trpaddl trpaddr trpaddt "
            "trpaddb "
            "trpaddfl trpaddfr trpaddft trpaddfb trbrdrt trbrdrl trbrdrb trbrdrr trbrdrh trbrdrv box";
        const QList<QByteArray> list = text.split(' ');
        return QSet<QByteArray>(list.begin(), list.end());
    }();
    return words;
}

enum class Place { Body, Fonts, Colours, Picture, HexData };

struct Group {
    Place Where = Place::Body;
    bool Skippable = false; // begun with \*, so that readers may pass over words they do not know
    int Fallbacks = 1;      // \uc
    bool InTable = false;
    int Level = 0; // \itap
    int CellsDefined = 0;
};

class Checker {
public:
    explicit Checker(const QByteArray& rtf) : bytes_(rtf) {}

    QString Fault() {
        if (!bytes_.startsWith("{\\rtf1"))
            Report("it does not begin with {\\rtf1");
        while (at_ < bytes_.size() && fault_.isEmpty())
            Step();
        if (fault_.isEmpty())
            AtEnd();
        return fault_;
    }

private:
    void Report(const QByteArray& what) {
        if (!fault_.isEmpty())
            return;
        const qsizetype from = qMax<qsizetype>(0, at_ - 30);
        fault_ = QStringLiteral("byte %1: %2, near \"%3\"")
                     .arg(at_)
                     .arg(QString::fromLatin1(what), QString::fromLatin1(bytes_.mid(from, 50)));
    }

    Group& Now() { return groups_.last(); }

    void Step() {
        const char byte = bytes_.at(at_);
        if (groups_.isEmpty() && at_ > 0) {
            if (byte != '\r' && byte != '\n')
                Report("something stands behind the last brace");
            ++at_;
        } else if (byte == '{') {
            CharacterBut("{");
            OpenGroup();
        } else if (byte == '}') {
            CloseGroup();
        } else if (byte == '\\') {
            ControlStep();
        } else {
            TextStep(byte);
        }
    }

    void OpenGroup() {
        ++at_;
        Group group = groups_.isEmpty() ? Group() : Now();
        group.CellsDefined = 0;
        group.Skippable = group.Skippable || bytes_.mid(at_, 2) == "\\*";
        groups_.append(group);
        digits_.append(0);
    }

    void CloseGroup() {
        CharacterBut("}");
        if (digits_.takeLast() % 2 != 0)
            Report("an odd number of hex digits");
        groups_.removeLast();
        ++at_;
    }

    void TextStep(char byte) {
        if (byte == '\r' || byte == '\n') {
            ++at_;
            return;
        }
        if (byte < 0x20 || byte > 0x7e)
            return Report("a byte that is not plain ASCII");
        if (Now().Where == Place::Colours && byte == ';')
            ++colours_;
        if (Now().Where == Place::Picture || Now().Where == Place::HexData)
            HexStep(byte);
        else
            Character();
        ++at_;
    }

    void HexStep(char byte) {
        if (std::isxdigit(static_cast<unsigned char>(byte)) != 0)
            ++digits_.last();
        else if (byte != ' ')
            Report("what is not a hex digit in binary data");
    }

    // A character of text, or one that stands in for a \u.
    void Character() {
        if (owed_ > 0)
            --owed_;
        else if (highSurrogate_)
            Report("half of a surrogate pair");
    }

    // What must not stand where a fallback character is due.
    void CharacterBut(const QByteArray& what) {
        if (owed_ > 0)
            Report(what + " where a fallback character of \\u is due");
        if (highSurrogate_)
            Report("half of a surrogate pair");
    }

    void ControlStep() {
        const char next = at_ + 1 < bytes_.size() ? bytes_.at(at_ + 1) : '\0';
        if (std::isalpha(static_cast<unsigned char>(next)) != 0)
            return WordStep();
        if (next == '\'') {
            bool isHex = false;
            bytes_.mid(at_ + 2, 2).toInt(&isHex, 16);
            if (!isHex || at_ + 4 > bytes_.size())
                return Report("\\' without two hex digits");
            Character();
            at_ += 4;
            return;
        }
        if (QByteArray("\\{}~-_*").indexOf(next) < 0 || next == '\0')
            return Report("an unknown control symbol");
        if (next != '*')
            Character();
        at_ += 2;
    }

    void WordStep() {
        qsizetype end = at_ + 1;
        while (end < bytes_.size() && std::isalpha(static_cast<unsigned char>(bytes_.at(end))) != 0)
            ++end;
        const QByteArray word = bytes_.mid(at_ + 1, end - at_ - 1);
        const qsizetype number = end;
        if (end < bytes_.size() && bytes_.at(end) == '-')
            ++end;
        while (end < bytes_.size() && std::isdigit(static_cast<unsigned char>(bytes_.at(end))) != 0)
            ++end;
        const QByteArray digits = bytes_.mid(number, end - number);
        if (!digits.isEmpty() && (digits == "-" || std::labs(digits.toLong()) > 0x7fffffffL))
            Report("a number that is none");
        if (word != "u")
            CharacterBut("a control word");
        if (!Now().Skippable && !KnownWords().contains(word))
            Report("the unknown word " + word + " in a group that readers do not skip");
        Word(word, digits.toInt(), !digits.isEmpty());
        if (!fault_.isEmpty())
            return;
        at_ = end;
        if (at_ < bytes_.size() && bytes_.at(at_) == ' ')
            ++at_;
        if (word == "bin")
            at_ += digits.toInt();
        if (at_ > bytes_.size())
            Report("\\bin asks for more bytes than there are");
    }

    void Word(const QByteArray& word, int value, bool hasValue) {
        if (word == "u")
            Unicode(value);
        else if (word == "uc")
            Now().Fallbacks = value;
        else if (word == "fonttbl")
            Now().Where = Place::Fonts;
        else if (word == "colortbl")
            Now().Where = Place::Colours;
        else if (word == "pict")
            Now().Where = Place::Picture;
        else if (word == "blipuid" || word == "objdata")
            Now().Where = Place::HexData;
        else if (word == "f" && Now().Where == Place::Fonts)
            DefineFont(value);
        else if (word == "f" || word == "deff" || word == "pnf")
            usedFonts_.insert(value);
        else if (word == "cf" || word == "cb" || word == "highlight" || word == "chcbpat" ||
                 word == "cbpat" || word == "clcbpat" || word == "brdrcf")
            highestColour_ = qMax(highestColour_, value);
        else
            TableWord(word, value, hasValue);
    }

    void DefineFont(int number) {
        if (fonts_.contains(number))
            Report("a font number that is taken");
        fonts_.insert(number);
    }

    void Unicode(int value) {
        if (value < -32768 || value > 32767)
            Report("\\u out of its range");
        if (owed_ > 0)
            Report("\\u where a fallback character is due");
        const char16_t unit = static_cast<char16_t>(value);
        const bool isLow = QChar::isLowSurrogate(unit);
        if (isLow != highSurrogate_)
            Report("half of a surrogate pair");
        highSurrogate_ = QChar::isHighSurrogate(unit);
        owed_ = Now().Fallbacks;
    }

    void TableWord(const QByteArray& word, int value, bool hasValue) {
        Group& now = Now();
        if (word == "pard") {
            now.InTable = false;
            now.Level = 0;
        } else if (word == "intbl") {
            now.InTable = true;
            now.Level = qMax(now.Level, 1);
        } else if (word == "itap") {
            now.Level = value;
        } else if (word == "trowd") {
            now.CellsDefined = 0;
            lastEdge_.remove(groups_.size());
        } else if (word == "cellx") {
            if (!hasValue || (now.CellsDefined > 0 && value <= lastEdge_.value(groups_.size())))
                Report("a right edge of a cell that lies not to the right of the one before");
            lastEdge_[groups_.size()] = value;
            ++now.CellsDefined;
        } else if (word == "cell" || word == "nestcell") {
            if (!now.InTable || (word == "cell" ? now.Level != 1 : now.Level < 2))
                Report("an end of a cell in a paragraph of another level");
            ++cells_[now.Level];
        } else if (word == "row" || word == "nestrow") {
            EndRow(word == "row" ? 1 : now.Level);
        } else if (word == "par" && !now.Skippable) {
            if (OpenLevel() > now.Level)
                Report("a paragraph of a lower level between the cells of a row");
        }
    }

    int OpenLevel() const {
        int level = 0;
        for (auto it = cells_.cbegin(); it != cells_.cend(); ++it)
            level = it.value() > 0 ? qMax(level, it.key()) : level;
        return level;
    }

    void EndRow(int level) {
        if (cells_.value(level) == 0 || cells_.value(level) != Now().CellsDefined)
            Report("a row of " + QByteArray::number(cells_.value(level)) + " cells that defines " +
                   QByteArray::number(Now().CellsDefined));
        if (OpenLevel() > level)
            Report("the end of a row while a row within it is open");
        cells_.remove(level);
    }

    void AtEnd() {
        if (!groups_.isEmpty())
            Report("a group is not closed");
        if (OpenLevel() > 0)
            Report("the last row has no end");
        if (highestColour_ >= qMax(colours_, 1))
            Report("colour " + QByteArray::number(highestColour_) + " is not in the table");
        for (const int font : usedFonts_) {
            if (!fonts_.contains(font))
                Report("font " + QByteArray::number(font) + " is not in the table");
        }
    }

    const QByteArray& bytes_;
    qsizetype at_ = 0;
    QString fault_;
    QList<Group> groups_;
    QList<qsizetype> digits_; // hex digits seen in each open group
    int owed_ = 0;            // fallback characters still to come
    bool highSurrogate_ = false;
    QSet<int> fonts_;
    QSet<int> usedFonts_;
    int colours_ = 0;
    int highestColour_ = 0;
    QMap<int, int> cells_; // by level, of the row that is open there
    QHash<qsizetype, int> lastEdge_;
};

} // namespace

QString RtfFault(const QByteArray& rtf) {
    return Checker(rtf).Fault();
}

} // namespace paneda::test
