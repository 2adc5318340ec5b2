#pragma once

#include "core/prompts.h"

#include <QString>

#include <memory>

class QMessageBox;
class QWidget;

namespace paneda {

// Shows prompts as message boxes in front of the active window.
class QtPrompts : public Prompts {
public:
    explicit QtPrompts(QString productName) : productName_(std::move(productName)) {}

    void Notice(const QString& text, const QString& title) override;
    bool Confirm(const QString& text, const QString& title) override;
    bool ConfirmUsual(const QString& text, const QString& title) override;
    QString ChooseFile(const QString& title, const QString& folder) override;
    QString ChooseFileOf(const QString& kinds, const QString& title, const QString& folder) override;

private:
    bool Ask(const QString& text, const QString& title, bool yesIsDefault) const;

    QString productName_;
};

// Makes the message box of a notice. The caller shows it.
std::unique_ptr<QMessageBox> MakeNotice(const QString& title, const QString& text, QWidget* parent);

} // namespace paneda
