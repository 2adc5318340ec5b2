#pragma once

#include "notes/rtf/read/flow.h"
#include "notes/rtf/read/tokens.h"

#include <QHash>
#include <QSet>
#include <QTextImageFormat>

#include <vector>

namespace paneda {

// Reads the inside of a {\pict ...} group: the picture's bytes, kind, words and shown size, and a name that
// no other picture has.
QTextImageFormat ReadRtfPicture(QByteArrayView source);

// What the user sees in place of a group with this word ("[footnote]"); empty for what shows nothing.
QString LabelOfRtfObject(QByteArrayView word);

// Goes through the RTF of a note once and fills its content. Every control word has one of these fates: it
// changes the formatting, makes text or an object, is kept as it is, is on the list of words that may be
// ignored, or is added to the losses by name. None of them takes text with it, except words that begin a
// group of a known other kind.
class RtfParser {
public:
    // `bytes` begins with "{\rtf".
    RtfParser(QByteArrayView bytes, RtfContent& content);

    void Run();

private:
    // State of a group in braces. It begins as a copy of the state of the group around it.
    struct Group {
        RtfChar Char;
        RtfParagraphState Paragraph;
        // How many characters of fallback follow a \u.
        int Fallbacks = 1;
        bool IsShapePicture = false;
        bool IsNestedRow = false;

        // Where the group begins in the source: at its brace, or at \field if something is in front of \field
        // in its group.
        qsizetype Begin = 0;
        bool AtStart = true;
        bool HasStar = false;
        bool IsField = false;
        // For a field: textRead_ when it began.
        qint64 TextBefore = 0;
    };

    struct Link {
        QString Address;
        QString Instruction;
    };

    // --- parser.cpp: tokens, groups and words that set a state
    void LookBehind();
    void Take(const RtfToken& token);
    void OpenGroup(const RtfToken& token);
    void CloseGroup(qsizetype end);
    void TakeWord(const RtfToken& token);
    bool TakeGroupWord(RtfWord meaning, const RtfToken& token);
    bool TakeNoteWord(RtfWord meaning, const RtfToken& token);
    bool TakeFormatWord(RtfWord meaning, const RtfToken& token);
    bool TakeBorderWord(RtfWord meaning, const RtfToken& token);
    bool TakeEndWord(RtfWord meaning);
    void SetCodePage(int codePage);
    void LoseWord(QByteArrayView word);
    void LoseExcess();
    RtfRowState& RowState() { return groups_.back().IsNestedRow ? nestedRow_ : row_; }
    Group& Current() { return groups_.back(); }

    // --- parser_text.cpp: characters
    void TakeBytes(QByteArrayView bytes);
    bool TakeTextWord(RtfWord meaning, const RtfToken& token);
    void TakeUnicode(int number);
    void FlushBytes();
    void AppendText(QString text);
    void AppendVisible(QStringView text, int format);
    void AppendHidden(const QString& text);
    void CloseHidden();
    void BeginBody();
    void LoseMarker();
    void EndParagraph();
    void FlushUnseen();
    int CurrentFormat();
    int MakeFormat();
    // Whether the note is read without what stands in its lines; then the label is put there.
    bool PutsLabel(const QString& label);
    void WeighThing() { content_.Weight.Add(RtfBurden::Things, 1, rtf_cost::kThing); }

    // --- parser_groups.cpp: destinations and objects
    bool TakeDestination(RtfWord meaning, const RtfToken& token);
    bool TakeTable(RtfWord meaning, const RtfToken& token);
    bool TakePictureWord(RtfWord meaning, const RtfToken& token);
    void TakeOldList();
    bool HoldsParagraph();
    bool HasUnicodeTwin();
    void WeighLook(const RtfTokenizer& ahead);
    void TakePicture();
    void TakeOtherPicture(const RtfToken& token);
    void BeginField(const RtfToken& token);
    void TakeFieldInstruction(const RtfToken& token);
    void TakeForeignField(std::size_t field, const QString& instruction);
    bool HasLongResult(std::size_t groups);
    void TakeUnknownGroup(const RtfToken& token);
    void TakeObject(const RtfToken& token);
    QByteArray TakeGroup(const RtfToken& token);
    QByteArray SourceFrom(qsizetype begin, qsizetype end) const;
    // Source of the rest of the current group, without its brace; the group is closed.
    QByteArrayView TakeInside();
    QByteArray WithFallbacks(const QByteArray& raw, int fallbacks) const;
    void KeepUnseen(const QByteArray& raw);
    // `picture` is shown in place of the label; without a name there is none.
    void KeepSeen(const QByteArray& raw, const QString& label, QSizeF size = QSizeF(),
                  const QTextImageFormat& picture = QTextImageFormat());

    RtfTokenizer tokens_;
    RtfContent& content_;
    RtfListTables lists_;
    RtfFlow flow_;
    RtfRowState row_;
    RtfRowState nestedRow_;
    std::vector<Group> groups_;
    std::vector<Link> links_;

    // Bytes that are not decoded yet, since a character may have two.
    QByteArray bytes_;
    // Characters of a fallback that are still to be passed over.
    int skip_ = 0;
    bool skipNextGroup_ = false;
    // The text has begun; what came before is the note's head.
    bool inBody_ = false;
    bool borderIsChars_ = false;
    bool pageBreak_ = false;
    // Counts characters, ends of paragraphs and cells, and objects; shows whether anything was read since.
    qint64 textRead_ = 0;

    // Kept groups and hidden text, which are not shown. They are collected until something that is shown
    // follows, and then become one object.
    QByteArray unseen_;
    QString hidden_;
    // Look of the hidden text; -1 for none.
    int hiddenFormat_ = -1;
    // The paragraph had a marker of a list in front, which was left out.
    bool hasMarker_ = false;
    // Words that are in the losses by name.
    QSet<QString> lostWords_;

    QHash<RtfChar, int> formatOf_;
    int format_ = -1;
    // Fonts of the formats: number, size and style.
    QSet<quint64> fonts_;
    int codePage_ = 1252;
    // The last picture's format, for the fallback that comes behind it; -1 for none.
    int pictureFormat_ = -1;
};

} // namespace paneda
