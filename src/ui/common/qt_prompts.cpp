#include "ui/common/qt_prompts.h"

#include "core/text/text_rules.h"

#include <QApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QMessageBox>

namespace paneda {

namespace {

// Some texts end their lines with carriage returns; QMessageBox breaks lines at line feeds only.
QString WithLineFeeds(QString text) {
    return text.replace(u'\r', u'\n');
}

} // namespace

std::unique_ptr<QMessageBox> MakeNotice(const QString& title, const QString& text, QWidget* parent) {
    auto box = std::make_unique<QMessageBox>(QMessageBox::NoIcon, title, WithLineFeeds(text), QMessageBox::Ok,
                                             parent);
    box->setTextFormat(Qt::PlainText);
    // Qt leaves a gap for the icon even if there is none, and shares the width of a box with a long text
    // between the empty column and that of the text.
    auto* grid = qobject_cast<QGridLayout*>(box->layout());
    QLayoutItem* first = grid ? grid->itemAtPosition(0, 0) : nullptr;
    if (first && first->spacerItem()) {
        first->spacerItem()->changeSize(0, 0);
        grid->setHorizontalSpacing(0);
        grid->setColumnStretch(1, 1);
    }
    return box;
}

void QtPrompts::Notice(const QString& text, const QString& title) {
    MakeNotice(IfEmpty(title, productName_), text, QApplication::activeWindow())->exec();
}

bool QtPrompts::Confirm(const QString& text, const QString& title) {
    return Ask(text, title, false);
}

bool QtPrompts::ConfirmUsual(const QString& text, const QString& title) {
    return Ask(text, title, true);
}

bool QtPrompts::Ask(const QString& text, const QString& title, bool yesIsDefault) const {
    QMessageBox box(QMessageBox::Question, IfEmpty(title, productName_), WithLineFeeds(text),
                    QMessageBox::Yes | QMessageBox::No, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(yesIsDefault ? QMessageBox::Yes : QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

QString QtPrompts::ChooseFile(const QString& title, const QString& folder) {
    return ChooseFileOf({}, title, folder);
}

QString QtPrompts::ChooseFileOf(const QString& kinds, const QString& title, const QString& folder) {
    // A caption has one line.
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), title.simplified(), folder, kinds);
}

} // namespace paneda
