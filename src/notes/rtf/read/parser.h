#pragma once

#include "notes/rtf/read/flow.h"
#include "notes/rtf/read/tokens.h"

#include <QHash>
#include <QSet>

#include <vector>

namespace paneda {

// What the user sees in place of a group with this word ("[footnote]"); empty for what shows nothing.
QString LabelOfRtfObject(QByteArrayView word);

// Walks through a note's RTF and fills its content.
class RtfParser {
public:
    // `bytes` begins with "{\rtf".
    RtfParser(QByteArrayView bytes, RtfContent& content);

    void Run();

private:
    // What a group inherits from the group around it, and what it is itself.
    struct Group {
        RtfChar Char;
        RtfParagraphState Paragraph;
        // How many characters of fallback follow a \u.
        int Fallbacks = 1;
        bool IsShapePicture = false;
        bool IsNestedRow = false;

        // Place of its brace; of \field, where a field's group holds something in front of it.
        qsizetype Begin = 0;
        bool AtStart = true;
        bool HasStar = false;
        bool IsField = false;
        // A field's: what had been read of the text when it began.
        qint64 TextBefore = 0;
    };

    struct Link {
        QString Address;
        QString Instruction;
    };

    // --- rtf_parser.cpp: tokens, groups and words that set a state
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

    // --- rtf_parser_text.cpp: characters
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
    bool HasRoomForObject();

    // --- rtf_parser_groups.cpp: destinations and objects
    bool TakeDestination(RtfWord meaning, const RtfToken& token);
    bool TakeTable(RtfWord meaning, const RtfToken& token);
    bool TakePictureWord(RtfWord meaning, const RtfToken& token);
    void TakeOldList();
    bool HoldsParagraph() const;
    bool HasUnicodeTwin() const;
    void TakePicture();
    void TakeOtherPicture(const RtfToken& token);
    void BeginField(const RtfToken& token);
    void TakeFieldInstruction(const RtfToken& token);
    void TakeForeignField(std::size_t field, const QString& instruction);
    bool HasLongResult(std::size_t groups) const;
    void TakeUnknownGroup(const RtfToken& token);
    void TakeObject(const RtfToken& token);
    QByteArray TakeGroup(const RtfToken& token);
    QByteArray SourceFrom(qsizetype begin, qsizetype end) const;
    // Source of the rest of the current group, without its brace; the group is closed.
    QByteArrayView TakeInside();
    QByteArray WithFallbacks(const QByteArray& raw, int fallbacks) const;
    void KeepUnseen(const QByteArray& raw);
    void KeepSeen(const QByteArray& raw, const QString& label, QSizeF size = QSizeF());

    RtfTokenizer tokens_;
    RtfContent& content_;
    RtfListTables lists_;
    RtfFlow flow_;
    RtfRowState row_;
    RtfRowState nestedRow_;
    std::vector<Group> groups_;
    std::vector<Link> links_;

    // Bytes that wait to be decoded together, since a character may have two.
    QByteArray bytes_;
    // Characters of a fallback that are still to be passed over.
    int skip_ = 0;
    bool skipNextGroup_ = false;
    // The text, or the like, has begun; what came before is the note's head.
    bool inBody_ = false;
    bool borderIsChars_ = false;
    bool pageBreak_ = false;
    // How much there is to be written so far: characters, ends of paragraphs and cells, objects.
    qint64 textRead_ = 0;

    // Groups and hidden text that show nothing; they wait for the next thing that does.
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
    int codePage_ = 1252;
    int objects_ = 0;
    // The last picture's format, for the fallback that comes behind it; -1 for none.
    int pictureFormat_ = -1;
};

} // namespace paneda
