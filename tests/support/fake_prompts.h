#pragma once

#include "core/prompts.h"

#include <QList>
#include <QStringList>

#include <utility>

namespace paneda::test {

// Keeps what the user would have read, as "title|text", and answers questions from a list; No once it is
// empty.
class FakePrompts : public Prompts {
public:
    QStringList Shown;
    QList<bool> Answers;
    QString File; // the answer to the next choice of a file

    void Notice(const QString& text, const QString& title = {}) override {
        Shown.append(title + u'|' + text);
    }

    bool Confirm(const QString& text, const QString& title) override {
        Notice(text, title);
        return !Answers.isEmpty() && Answers.takeFirst();
    }

    bool ConfirmUsual(const QString& text, const QString& title) override {
        return Confirm(text, title + QStringLiteral("(yes)"));
    }

    QString ChooseFile(const QString& title, const QString& folder) override {
        Notice(folder, title);
        return std::exchange(File, {});
    }
};

} // namespace paneda::test
