#include "ui/panel/panel_fun.h"

#include "core/files/file_io.h"
#include "platform/sound_player.h"

#include <QDateTime>

namespace paneda {

namespace {

constexpr int kFunLook = 1000; // milliseconds between two checks whether the sound still plays

const QString kFunAlias = QStringLiteral("fun");

} // namespace

PanelFun::PanelFun(SoundPlayer& sounds) : sounds_(sounds) {
    timer3_.setInterval(kFunLook);
    connect(&timer3_, &QTimer::timeout, this, &PanelFun::Timer3_Timer);
}

void PanelFun::Load(const QString& appFolder) {
    folder_ = FindEntry(FindEntry(appFolder, QStringLiteral("Sound")), QStringLiteral("Fun"));
    fun_ = LoadFunList(folder_, QDateTime::currentDateTime());
}

void PanelFun::Play() {
    const QString file = NextFunFile(fun_, QDateTime::currentDateTime());
    if (file.isEmpty())
        return;
    sounds_.Play(folder_ + u'/' + file, kFunAlias);
    timer3_.start();
}

void PanelFun::Timer3_Timer() {
    const bool playing = sounds_.Status(kFunAlias) == u"playing";
    if (!FollowFunSound(fun_, playing, QDateTime::currentDateTime()))
        timer3_.stop();
}

} // namespace paneda
