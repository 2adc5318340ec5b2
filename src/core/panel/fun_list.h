#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace paneda {

// The sounds that double clicks on the panel's frame walk through.
struct FunList {
    QStringList FunFiles; // names in the folder of the sounds, in byte order
    int FunIndex = -1;    // the next one to play; -1 when there is nothing to play
    QDateTime FunLast;    // the last double click, or later as long as its sound plays
};

// Lists the MP3 files of a folder (host path). A folder without 01.mp3 (in any case of letters) has nothing
// to play, whatever else lies in it.
FunList LoadFunList(const QString& folder, const QDateTime& now);

// A double click: the name of the file to play, empty for none. After more than 5 s without sound and click
// the row starts again.
QString NextFunFile(FunList& list, const QDateTime& now);

// To be called once a second while a sound plays. False when it is over; then the calls can stop.
bool FollowFunSound(FunList& list, bool isPlaying, const QDateTime& now);

} // namespace paneda
