#include "platform/linux/theme_names.h"

#include <QDateTime>
#include <QDir>

namespace paneda {

namespace {

// Milliseconds.
constexpr quint32 kLookAgain = 1000;
constexpr quint32 kKeep = 60'000;

// Themes that most machines have, for a desktop that names none.
void ChooseThemeOnce() {
    static const bool chosen = [] {
        if (QIcon::themeName().isEmpty() || QIcon::themeName() == u"hicolor")
            QIcon::setThemeName(QStringLiteral("Adwaita"));
        QIcon::setFallbackThemeName(QStringLiteral("hicolor"));
        QIcon::setFallbackSearchPaths(QIcon::fallbackSearchPaths() << QStringLiteral("/usr/share/pixmaps"));
        return true;
    }();
    Q_UNUSED(chosen)
}

QHash<QString, qint64> ThemeFolders() {
    QHash<QString, qint64> folders;
    const auto add = [&folders](const QFileInfo& folder) {
        folders.insert(folder.filePath(), folder.lastModified().toMSecsSinceEpoch());
    };
    for (const QString& path : QIcon::themeSearchPaths()) {
        for (const QFileInfo& theme : QDir(path).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
            add(theme);
    }
    for (const QString& path : QIcon::fallbackSearchPaths())
        add(QFileInfo(path));
    // Another theme may have been chosen.
    folders.insert(QIcon::themeName(), 0);
    return folders;
}

} // namespace

void ThemeNames::ForgetOldOnes() {
    if (!folders_.isEmpty() && looked_.Elapsed() < kLookAgain)
        return;
    looked_.Reset();
    QHash<QString, qint64> folders = ThemeFolders();
    if (folders != folders_ || kept_.Elapsed() >= kKeep)
        missing_.clear();
    folders_ = std::move(folders);
}

QIcon ThemeNames::FirstOf(const QStringList& names) {
    ChooseThemeOnce();
    ForgetOldOnes();
    for (const QString& name : names) {
        if (missing_.contains(name))
            continue;
        const QIcon icon = QIcon::fromTheme(name);
        if (!icon.isNull())
            return icon;
        if (missing_.isEmpty())
            kept_.Reset();
        missing_.insert(name);
    }
    return {};
}

} // namespace paneda
