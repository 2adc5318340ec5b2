#pragma once

#include "notes/rtf/read/content.h"

class QTextDocument;

namespace paneda {

// Replaces a document's whole content. Leaves the document's undo history empty and as it was switched. Adds
// to the content's losses what the document cannot hold.
void BuildDocument(RtfContent& content, QTextDocument& document);

} // namespace paneda
