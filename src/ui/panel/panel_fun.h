#pragma once

#include "core/panel/fun_list.h"

#include <QObject>
#include <QString>
#include <QTimer>

namespace paneda {

class SoundPlayer;

// The sounds that double clicks on the panel's frame play, one after another.
class PanelFun : public QObject {
    Q_OBJECT

public:
    explicit PanelFun(SoundPlayer& sounds);

    // Reads the list of sounds. `appFolder` is the host path of the program's folder.
    void Load(const QString& appFolder);

    // Plays the next sound; nothing if there are none. Call it for each double click.
    void Play();

private:
    void Timer3_Timer();

    SoundPlayer& sounds_;
    QString folder_;
    FunList fun_;
    QTimer timer3_; // runs while a sound plays
};

} // namespace paneda
