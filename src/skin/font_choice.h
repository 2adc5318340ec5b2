#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace paneda {

// Turns the font names of skins and styles into families that are installed. Asks the system for its families
// at the first question and not before, since that takes longer than showing a cached panel.
class FontChoice {
public:
    FontChoice() = default;

    // For tests: these families are installed.
    explicit FontChoice(QStringList installed);

    // The family itself if it is installed, in any case of letters; else what stands for it; else what stands
    // for Tahoma. Never empty where any font is installed.
    QString Family(const QString& wanted);

private:
    QString Choose(const QString& wanted) const;
    QString Installed(const QString& family) const;

    bool asked_ = false;
    QStringList installed_;
    QHash<QString, QString> chosen_;
};

} // namespace paneda
