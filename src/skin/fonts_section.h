#pragma once

#include "core/files/ini_text.h"
#include "skin/theme_state.h"

#include <QString>
#include <QStringView>

namespace paneda {

// The section of skin.ini that has colours, fonts and drawing modes.
inline constexpr QStringView kFontsSection = u"Fonts";

// Reads keys of that section, each with the rule of its type. The text outlives it.
class FontsSection {
public:
    explicit FontsSection(const IniText& ini) : ini_(ini) {}

    QString Text(QStringView key, const QString& fallback = {}) const;
    SkinColor Color(QStringView key) const;
    // Only a number 0 is false.
    bool Flag(QStringView key) const;
    DrawMode Mode(QStringView key) const;
    // In capitals.
    QString Override(QStringView key) const;
    // The keys of one font begin with `block`.
    SkinFont Font(const QString& block) const;

private:
    const IniText& ini_;
};

} // namespace paneda
