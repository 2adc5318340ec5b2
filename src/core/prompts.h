#pragma once

#include <QString>

namespace paneda {

// Questions and notices to the user. The windows show them; a test answers them and reads their texts.
class Prompts {
public:
    virtual ~Prompts() = default;

    // A message with OK alone. An empty title stands for the product's name.
    virtual void Notice(const QString& text, const QString& title = {}) = 0;

    // A Yes and No question; No is the default button. True for Yes.
    virtual bool Confirm(const QString& text, const QString& title) = 0;

    // The same with Yes as the default button, for what is harmless and usually wanted.
    virtual bool ConfirmUsual(const QString& text, const QString& title) { return Confirm(text, title); }

    // Lets the user choose a file that exists, beginning in a folder (host paths; an empty folder stands for
    // the one of the last choice). Empty when the user chose none.
    virtual QString ChooseFile(const QString& title, const QString& folder) = 0;

    // The same where only files of some kinds are shown, as "Zip files (*.zip)".
    virtual QString ChooseFileOf(const QString& kinds, const QString& title, const QString& folder) {
        Q_UNUSED(kinds)
        return ChooseFile(title, folder);
    }
};

} // namespace paneda
