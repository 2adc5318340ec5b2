#include "ui/common/qt_prompts.h"

#include "core/text/text_rules.h"

#include <QApplication>
#include <QMessageBox>

namespace paneda {

namespace {

// Texts break their lines with a carriage return; the label wants a line feed.
QString WithLineFeeds(QString text) {
    return text.replace(u'\r', u'\n');
}

} // namespace

void QtPrompts::Notice(const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::NoIcon, IfEmpty(title, productName_), WithLineFeeds(text), QMessageBox::Ok,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool QtPrompts::Confirm(const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::Question, IfEmpty(title, productName_), WithLineFeeds(text),
                    QMessageBox::Yes | QMessageBox::No, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

} // namespace paneda
