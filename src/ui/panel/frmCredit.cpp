#include "ui/panel/frmCredit.h"

#include "core/files/file_io.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace paneda {

namespace {

// Milliseconds from one colour of the text to the next. A screen shows about 60 frames a second, so faster
// changes would not be seen.
constexpr int kFrame = 16;
constexpr int kCaptionDelay = 1'000;
constexpr double kTextScale = 1.6;
constexpr QSize kSize(500, 300);

QPalette Grey(int brightness) {
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::WindowText, QColor(brightness, brightness, brightness));
    return palette;
}

} // namespace

frmCredit::frmCredit(const AppState& state, SoundPlayer& sounds, QWidget* parent)
    : QWidget(parent, Qt::Dialog), state_(state), sounds_(sounds), label1_(new QLabel(this)) {
    setObjectName(QStringLiteral("frmCredit"));
    setWindowTitle(QStringLiteral("About Paneda Launcher"));
    setAutoFillBackground(true);
    setPalette(Grey(0));
    label1_->setObjectName(QStringLiteral("Label1"));
    label1_->setAlignment(Qt::AlignCenter);
    label1_->setTextFormat(Qt::PlainText);
    QFont large = font();
    large.setPointSizeF(font().pointSizeF() * kTextScale);
    label1_->setFont(large);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->addWidget(label1_);
    connect(&timer1_, &QTimer::timeout, this, &frmCredit::Timer1_Timer);
    connect(&timer2_, &QTimer::timeout, this, &frmCredit::Timer2_Timer);
}

void frmCredit::Form_Load() {
    screens_ = CreditScreens(state_);
    // The window has room for the largest text in the desktop's font.
    QSize room = kSize;
    for (const QString& screen : std::as_const(screens_)) {
        const QRect text = label1_->fontMetrics().boundingRect(QRect(), Qt::AlignCenter, screen);
        room = room.expandedTo(text.size() + QSize(96, 96));
    }
    setFixedSize(room);
    ShowText();
    timer2_.setInterval(kCaptionDelay);
    timer1_.start(kFrame);
}

void frmCredit::Timer1_Timer() {
    const CreditStep step = TickCredits(fade_, int(screens_.size()));
    ShowText();
    if (step.StartMusic)
        StartMusic();
    timer1_.setInterval(std::max(step.Interval, kFrame));
    if (step.Finished) {
        timer1_.stop();
        timer2_.start();
    }
}

void frmCredit::Timer2_Timer() {
    setWindowTitle(QStringLiteral(" Paneda Launcher"));
    timer1_.start();
    timer2_.stop();
}

void frmCredit::ShowText() {
    label1_->setText(QString(screens_.at(fade_.Screen)).remove(u'\r'));
    label1_->setPalette(Grey(fade_.Brightness));
}

void frmCredit::StartMusic() {
    const QString folder = FindEntry(state_.AppFolder, QStringLiteral("Sound"));
    const QString music = FindEntry(folder, QStringLiteral("about.mid"));
    if (QFileInfo(music).isFile())
        sounds_.Play(music, QStringLiteral("about"));
}

void frmCredit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void frmCredit::closeEvent(QCloseEvent* event) {
    timer1_.stop();
    timer2_.stop();
    sounds_.CloseAll();
    event->accept();
}

} // namespace paneda
