#include "ui/organiser/frmGetText.h"

#include "ui_frmGetText.h"

#include <QDialog>

namespace paneda {

QString AskText(QWidget* parent, const QString& title, const QString& prompt, const QString& text) {
    QDialog dialog(parent);
    Ui::frmGetText ui;
    ui.setupUi(&dialog);
    dialog.setWindowTitle(title);
    ui.lblPrompt->setText(prompt);
    ui.lblPrompt->setVisible(!prompt.isEmpty());
    ui.txtText->setAccessibleName(prompt.isEmpty() ? title : prompt);
    ui.txtText->setText(text);
    ui.txtText->selectAll();
    QObject::connect(ui.cmdOK, &QPushButton::clicked, &dialog, &QDialog::accept);
    return dialog.exec() == QDialog::Accepted ? ui.txtText->text() : text;
}

} // namespace paneda
