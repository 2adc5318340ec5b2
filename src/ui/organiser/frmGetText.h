#pragma once

#include <QString>

class QWidget;

namespace paneda {

// Asks for one line of text and returns it. Escape, or closing the window, gives `text` back. An empty prompt
// is not shown.
QString AskText(QWidget* parent, const QString& title, const QString& prompt, const QString& text);

} // namespace paneda
