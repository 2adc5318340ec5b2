#include "skin/skin_pieces.h"

#include <array>
#include <utility>

namespace paneda {

namespace {

struct PieceName {
    QStringView Name;
    QString SkinPieces::*Field;
};

constexpr std::array<PieceName, 22> kPieces{{
    {u"topa", &SkinPieces::TopA},
    {u"bottoma", &SkinPieces::BottomA},
    {u"lefta", &SkinPieces::LeftA},
    {u"righta", &SkinPieces::RightA},
    {u"topb", &SkinPieces::TopB},
    {u"bottomb", &SkinPieces::BottomB},
    {u"leftb", &SkinPieces::LeftB},
    {u"rightb", &SkinPieces::RightB},
    {u"top", &SkinPieces::Top},
    {u"bottom", &SkinPieces::Bottom},
    {u"left", &SkinPieces::Left},
    {u"right", &SkinPieces::Right},
    {u"topleft", &SkinPieces::TopLeft},
    {u"topright", &SkinPieces::TopRight},
    {u"bottomleft", &SkinPieces::BottomLeft},
    {u"bottomright", &SkinPieces::BottomRight},
    {u"back", &SkinPieces::Back},
    {u"group", &SkinPieces::Group},
    {u"category", &SkinPieces::Category},
    {u"categoryactive", &SkinPieces::CategoryActive},
    {u"buttonbig", &SkinPieces::ButtonBig},
    {u"buttonsmall", &SkinPieces::ButtonSmall},
}};

} // namespace

QString PickPieceFile(const QString& name, const FolderNames& folder) {
    for (const QStringView extension : {u".png", u".jpg"}) {
        const QString found = folder.Find(name + extension);
        if (!found.isEmpty())
            return found;
    }
    return name + QStringLiteral(".jpg");
}

QStringList PieceFiles(const SkinPieces& pieces) {
    QStringList files;
    for (const PieceName& piece : kPieces) {
        if (!files.contains(pieces.*piece.Field))
            files.append(pieces.*piece.Field);
    }
    return files;
}

SkinPieces LoadSkinPieces(const QString& skinPath) {
    const FolderNames folder(skinPath);
    SkinPieces pieces;
    for (const PieceName& piece : kPieces)
        pieces.*piece.Field = PickPieceFile(piece.Name.toString(), folder);
    if (folder.Find(pieces.CategoryActive).isEmpty())
        pieces.CategoryActive = pieces.Category;
    return pieces;
}

} // namespace paneda
