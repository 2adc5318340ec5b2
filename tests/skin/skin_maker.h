#pragma once

#include "skin/drawing_surface.h"
#include "skin/skin_file.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

namespace paneda {

inline QImage PlainPicture(int width, int height, Argb color) {
    QImage picture(width, height, QImage::Format_ARGB32);
    picture.fill(color);
    return picture;
}

// The smallest rectangle that holds all pixels of a colour; null if there is none.
inline QRect BoxOf(const QImage& image, Argb color) {
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == color)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

// The smallest rectangle that holds all pixels that are not fully transparent.
inline QRect InkOf(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

inline void WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

// Makes a skin named "Plain" in a temporary program folder, of pieces in plain colours.
class SkinMaker {
public:
    SkinMaker() {
        if (!QDir(folder_.path()).mkpath(QStringLiteral("skin/Plain")))
            qFatal("cannot make the skin's folder");
    }

    QString AppFolder() const { return folder_.path(); }
    QString PathOf(const QString& name) const {
        return folder_.filePath(QStringLiteral("skin/Plain/") + name);
    }

    void AddPiece(const char* name, int width, int height, Argb color) {
        if (!PlainPicture(width, height, color)
                 .save(PathOf(QString::fromLatin1(name) + QStringLiteral(".png"))))
            qFatal("cannot save a piece");
    }

    // skin.ini with the places on the bottom piece and further lines.
    void AddIni(const QByteArray& fonts = {}, const QByteArray& rest = {}) {
        WriteBytes(PathOf(QStringLiteral("skin.ini")), "[Fonts]\r\n" + fonts + "\r\n" + Places() + rest);
    }

    static QByteArray Places() {
        return "[Buttons]\r\nhide button top=1\r\nhide button left=2\r\nhide button bottom=9\r\n"
               "hide button right=12\r\nmenu button top=3\r\nmenu button left=20\r\nmenu button bottom=11\r\n"
               "menu button right=28\r\npaneda logo top=4\r\npaneda logo left=14\r\n"
               "paneda logo design=11\r\n";
    }

    ThemeState Theme() const {
        auto theme = ReadSkin(AppFolder(), QStringLiteral("Plain"));
        if (!theme)
            qFatal("%s", qPrintable(theme.error().Text()));
        return *theme;
    }

private:
    QTemporaryDir folder_;
};

} // namespace paneda
