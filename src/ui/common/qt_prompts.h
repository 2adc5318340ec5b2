#pragma once

#include "core/prompts.h"

#include <QString>

namespace paneda {

// Prompts as message boxes, in front of the active window.
class QtPrompts : public Prompts {
public:
    explicit QtPrompts(QString productName) : productName_(std::move(productName)) {}

    void Notice(const QString& text, const QString& title) override;
    bool Confirm(const QString& text, const QString& title) override;

private:
    QString productName_;
};

} // namespace paneda
