#include "notes/rtf/read/lists.h"

#include "notes/rtf/properties.h"
#include "notes/rtf/read/raw.h"
#include "notes/rtf/read/tokens.h"

#include <algorithm>
#include <optional>

namespace paneda {

namespace {

constexpr qsizetype kMaxAffix = 30;
// What a number of 16 bits holds, as word processors use; numbers are added to it.
constexpr int kMaxStart = 32767;

QTextListFormat::Style StyleOfBullet(const QString& bullet) {
    if (bullet == u"o" || bullet == u"\u25CB" || bullet == u"\u25E6")
        return QTextListFormat::ListCircle;
    if (bullet == u"\uF0A7" || bullet == u"\u00A7" || bullet == u"\u25A0" || bullet == u"\u25AA")
        return QTextListFormat::ListSquare;
    return QTextListFormat::ListDisc;
}

bool IsKnownBullet(const QString& bullet) {
    return bullet.isEmpty() || bullet == u"\u2022" || bullet == u"\u00B7" || bullet == u"\uF0B7" ||
           StyleOfBullet(bullet) != QTextListFormat::ListDisc;
}

void SetBullet(QTextListFormat& format, const QString& bullet) {
    format.setStyle(StyleOfBullet(bullet));
    if (!IsKnownBullet(bullet))
        format.setProperty(RtfListBullet, bullet);
}

void SetAffixes(QTextListFormat& format, const QString& before, const QString& after) {
    format.setNumberPrefix(before);
    format.setNumberSuffix(after);
}

QTextListFormat EmptyFormat() {
    QTextListFormat format;
    format.setIndent(0);
    return format;
}

void SetStart(QTextListFormat& format, int number) {
    const int start = std::clamp(number, 0, kMaxStart);
    if (start != 1)
        format.setProperty(RtfListStart, start);
}

std::optional<QTextListFormat::Style> StyleOfOldWord(QByteArrayView word) {
    if (word == "pndec" || word == "pnord" || word == "pncard")
        return QTextListFormat::ListDecimal;
    if (word == "pnlcltr")
        return QTextListFormat::ListLowerAlpha;
    if (word == "pnucltr")
        return QTextListFormat::ListUpperAlpha;
    if (word == "pnlcrm")
        return QTextListFormat::ListLowerRoman;
    if (word == "pnucrm")
        return QTextListFormat::ListUpperRoman;
    return std::nullopt;
}

QTextListFormat::Style StyleOfNumberKind(int kind) {
    switch (kind) {
    case 1:
        return QTextListFormat::ListUpperRoman;
    case 2:
        return QTextListFormat::ListLowerRoman;
    case 3:
        return QTextListFormat::ListUpperAlpha;
    case 4:
        return QTextListFormat::ListLowerAlpha;
    case 23:
        return QTextListFormat::ListDisc;
    case 255:
        return QTextListFormat::ListStyleUndefined;
    default:
        return QTextListFormat::ListDecimal;
    }
}

// Text of a \leveltext: a length, then the marker with a byte 0 to 8 for each level's number, then ";".
QString LevelText(QByteArrayView group, const RtfEncoding& encoding) {
    QString text = PlainTextOfRtf(group, encoding, 200);
    if (const qsizetype end = text.lastIndexOf(u';'); end >= 0)
        text.truncate(end);
    return text.sliced(std::min<qsizetype>(text.size(), 1));
}

// What stands around the level's own number. Numbers of outer levels ("1.2.") are left to the table.
void SetLevelText(QTextListFormat& format, const QString& text, int level) {
    if (format.style() == QTextListFormat::ListDisc) {
        SetBullet(format, text.first(std::min<qsizetype>(text.size(), kMaxAffix)));
        return;
    }
    const auto isNumber = [](QChar c) { return c.unicode() <= kMaxRtfListLevel; };
    const auto* own = std::find(text.begin(), text.end(), QChar(char16_t(level)));
    if (own == text.end())
        return;
    const qsizetype at = own - text.begin();
    const QString before = text.first(at);
    const bool nested = std::any_of(before.begin(), before.end(), isNumber);
    SetAffixes(format, nested ? QString() : before.right(kMaxAffix), text.sliced(at + 1).left(kMaxAffix));
}

class ListTableReader {
public:
    ListTableReader(QByteArrayView group, const RtfEncoding& encoding)
        : tokens_(group), encoding_(encoding) {}

    std::unordered_map<int, std::vector<QTextListFormat>> Read() {
        for (RtfToken token = tokens_.Next(); token.Kind != RtfToken::Type::End; token = tokens_.Next())
            if (token.Kind == RtfToken::Type::Word)
                TakeWord(token);
        return std::move(lists_);
    }

private:
    void TakeWord(const RtfToken& token) {
        if (token.Text == "list")
            levels_.clear();
        else if (token.Text == "listlevel")
            StartLevel();
        else if (token.Text == "listid")
            lists_.insert_or_assign(token.Number, levels_);
        else if (!levels_.empty())
            TakeLevelWord(token);
    }

    void StartLevel() {
        if (levels_.size() <= std::size_t(kMaxRtfListLevel))
            levels_.push_back(EmptyFormat());
    }

    void TakeLevelWord(const RtfToken& token) {
        QTextListFormat& level = levels_.back();
        if (token.Text == "levelnfc" || token.Text == "levelnfcn") {
            level.setStyle(StyleOfNumberKind(token.Number));
        } else if (token.Text == "levelstartat") {
            SetStart(level, token.Number);
        } else if (token.Text == "leveltext") {
            const qsizetype begin = tokens_.Position();
            const qsizetype end = tokens_.SkipGroup();
            SetLevelText(level, LevelText(tokens_.Bytes().sliced(begin, end - begin), encoding_),
                         int(levels_.size()) - 1);
        }
    }

    RtfTokenizer tokens_;
    RtfEncoding encoding_;
    std::vector<QTextListFormat> levels_;
    std::unordered_map<int, std::vector<QTextListFormat>> lists_;
};

} // namespace

RtfOldList ReadOldList(QByteArrayView source, const RtfEncoding& encoding) {
    RtfOldList list;
    list.Source = KeptRtf(source);
    list.Format = EmptyFormat();
    list.Format.setStyle(QTextListFormat::ListDecimal);
    QString before;
    QString after;
    bool isBullet = false;
    RtfTokenizer tokens(source);
    for (RtfToken token = tokens.Next(); token.Kind != RtfToken::Type::End; token = tokens.Next()) {
        if (token.Kind != RtfToken::Type::Word)
            continue;
        if (token.Text == "pntxtb" || token.Text == "pntxta") {
            const qsizetype begin = tokens.Position();
            const qsizetype end = tokens.SkipGroup();
            (token.Text == "pntxtb" ? before : after) =
                PlainTextOfRtf(source.sliced(begin, end - begin), encoding, kMaxAffix);
        } else if (const auto style = StyleOfOldWord(token.Text)) {
            list.Format.setStyle(*style);
        } else if (token.Text == "pnlvlblt") {
            isBullet = true;
        } else if (token.Text == "pnlvlcont") {
            list.IsContinued = true;
        } else if (token.Text == "pnstart") {
            SetStart(list.Format, token.Number);
        } else if (token.Text == "pnf") {
            list.Format.setProperty(RtfFontNumber, token.Number);
        }
    }
    if (isBullet)
        SetBullet(list.Format, before);
    else
        SetAffixes(list.Format, before, after);
    list.Format.setProperty(RtfListPn, list.Source);
    list.Format.setProperty(RtfListReadStyle, int(list.Format.style()));
    return list;
}

void RtfListTables::ReadTable(QByteArrayView group, const RtfEncoding& encoding) {
    lists_ = ListTableReader(group, encoding).Read();
}

void RtfListTables::ReadOverrides(QByteArrayView group) {
    int id = 0;
    RtfTokenizer tokens(group);
    for (RtfToken token = tokens.Next(); token.Kind != RtfToken::Type::End; token = tokens.Next()) {
        if (token.Kind != RtfToken::Type::Word)
            continue;
        if (token.Text == "listid")
            id = token.Number;
        else if (token.Text == "ls")
            idOfNumber_.insert_or_assign(token.Number, id);
    }
}

const QTextListFormat* RtfListTables::Find(int listNumber, int level) const {
    const auto id = idOfNumber_.find(listNumber);
    if (id == idOfNumber_.end())
        return nullptr;
    const auto list = lists_.find(id->second);
    if (list == lists_.end() || std::size_t(level) >= list->second.size())
        return nullptr;
    const QTextListFormat& format = list->second[std::size_t(level)];
    return format.style() == QTextListFormat::ListStyleUndefined ? nullptr : &format;
}

} // namespace paneda
