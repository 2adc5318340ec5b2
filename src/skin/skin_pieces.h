#pragma once

#include "skin/folder_names.h"

#include <QString>
#include <QStringList>

namespace paneda {

// File names of a skin's pictures, in its folder. A piece that the skin lacks has a name as well, of a file
// that does not exist.
struct SkinPieces {
    QString TopA;
    QString BottomA;
    QString LeftA;
    QString RightA;
    QString TopB;
    QString BottomB;
    QString LeftB;
    QString RightB;
    QString Top;
    QString Bottom;
    QString Left;
    QString Right;
    QString TopLeft;
    QString TopRight;
    QString BottomLeft;
    QString BottomRight;
    QString Back;
    QString Group;
    QString Category;
    QString CategoryActive; // that of Category if the skin has none of its own
    QString ButtonBig;
    QString ButtonSmall;
};

// The name of one piece: "<name>.png" if the folder has it, in any case of letters, else "<name>.jpg".
QString PickPieceFile(const QString& name, const FolderNames& folder);

// The files of all pieces, each once.
QStringList PieceFiles(const SkinPieces& pieces);

// All names, from one listing of the skin's folder.
SkinPieces LoadSkinPieces(const QString& skinPath);

} // namespace paneda
