#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace paneda {

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

private:
    QString Choose(const QString& wanted) const;
    QString Installed(const QString& family) const;

    bool asked_ = false;
    QStringList installed_;
    QHash<QString, QString> chosen_;
};

} // namespace paneda
