#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace paneda {

// The font of a text that names none, or one that is not installed.
inline const QString kUsualFont = QStringLiteral("Tahoma");

// Turns the font names of skins and styles into families that are installed. Asks the system for its families
// when the first one is looked up: that takes longer than to show a cached panel.
class FontChoice {
public:
    FontChoice() = default;

    // For tests: these families are installed.
    explicit FontChoice(QStringList installed);

    // The family itself if it is installed, in any case of letters; else its substitute; else the substitute
    // for Tahoma. Never empty if any font is installed.
    QString Family(const QString& wanted);

    // Whether there is a family of this name, in any case of letters.
    bool IsInstalled(const QString& family);

    // For a user to choose from: the installed families in alphabetical order, and Tahoma, since every system
    // has at least a substitute for it.
    QStringList Offered();

private:
    void Ask();
    QString Choose(const QString& wanted) const;
    QString Installed(const QString& family) const;

    bool asked_ = false;
    QStringList installed_;
    QHash<QString, QString> chosen_;
};

} // namespace paneda
