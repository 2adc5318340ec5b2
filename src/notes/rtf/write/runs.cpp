#include "notes/rtf/write/runs.h"

#include "notes/rtf/links.h"
#include "notes/rtf/properties.h"
#include "notes/rtf/write/output.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

namespace paneda {

namespace {

bool IsSameLink(const QTextCharFormat& a, const QTextCharFormat& b) {
    return a.anchorHref() == b.anchorHref() &&
           a.stringProperty(RtfLinkInstruction) == b.stringProperty(RtfLinkInstruction);
}

} // namespace

void RtfRunWriter::Write(const QTextBlock& block) {
    QTextCharFormat link;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat format = fragment.charFormat();
        if (linkIsOpen_ && !IsSameLink(link, format))
            CloseLink();
        if (!linkIsOpen_ && !format.anchorHref().isEmpty()) {
            OpenLink(format);
            link = format;
        }
        Fragment(fragment);
    }
    if (linkIsOpen_)
        CloseLink();
    // The look of an empty paragraph decides how high it is.
    if (block.length() <= 1)
        Change(block.charFormat(), block.charFormatIndex());
}

void RtfRunWriter::Change(const QTextCharFormat& format, int formatIndex) {
    const auto known = looks_.constFind(formatIndex);
    if (known != looks_.cend()) {
        look_ = WriteChange(out_, look_, *known);
        return;
    }
    const RtfCharacters look = CharactersOf(format, numbers_, document_.defaultFont());
    looks_.insert(formatIndex, look);
    look_ = WriteChange(out_, look_, look);
}

void RtfRunWriter::Fragment(const QTextFragment& fragment) {
    const QTextCharFormat format = fragment.charFormat();
    Change(format, fragment.charFormatIndex());
    if (format.objectType() == QTextFormat::NoObject)
        out_.Text(fragment.text());
    else
        Objects(fragment, format);
}

void RtfRunWriter::Objects(const QTextFragment& fragment, const QTextCharFormat& format) {
    const QString text = fragment.text();
    for (const QChar c : text) {
        if (c != QChar::ObjectReplacementCharacter)
            out_.Text(QStringView(&c, 1));
        else if (format.objectType() == kRtfObject)
            out_.Raw(format.property(RtfRaw).toByteArray());
        else if (format.isImageFormat())
            WritePicture(out_, format.toImageFormat(), document_);
    }
}

void RtfRunWriter::OpenLink(const QTextCharFormat& format) {
    out_.Open();
    out_.Word("field");
    out_.OpenStarred();
    out_.Word("fldinst");
    out_.Open();
    out_.Text(LinkInstruction(format));
    out_.Close();
    out_.Close();
    out_.Open();
    out_.Word("fldrslt");
    outerLook_ = look_;
    linkIsOpen_ = true;
}

void RtfRunWriter::CloseLink() {
    out_.Close();
    out_.Close();
    look_ = outerLook_;
    linkIsOpen_ = false;
}

} // namespace paneda
