#pragma once

#include "core/settings/credits.h"
#include "platform/sound_player.h"

#include <QTimer>
#include <QWidget>

class QLabel;

namespace paneda {

// The credits: screens of text that fade in from black and out again, with music.
class frmCredit : public QWidget {
    Q_OBJECT

public:
    frmCredit(const AppState& state, SoundPlayer& sounds, QWidget* parent = nullptr);

    // Starts the credits at their first screen. Call it once, before the window is shown.
    void Form_Load();

    void Timer1_Timer();
    void Timer2_Timer();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void StartMusic();
    void ShowText();

    const AppState& state_;
    SoundPlayer& sounds_;
    QStringList screens_;
    CreditFade fade_;
    QLabel* label1_;
    QTimer timer1_;
    QTimer timer2_;
};

} // namespace paneda
