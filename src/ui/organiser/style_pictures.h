#pragma once

#include "core/settings/app_state.h"
#include "platform/file_icons.h"
#include "skin/button_painter.h"

#include <QHash>
#include <QImage>

#include <memory>

namespace paneda {

// The pictures of the style dialog: one button in all the looks of the templates, and in the look that is
// being made, painted as the panel paints it on the current skin.
class StylePictures {
public:
    // Sizes of the grounds on which the buttons lie, in twips.
    static constexpr TwipsSize kTemplates{5000, 990};
    static constexpr TwipsSize kPreview{5420, 600};

    // `button`: the button's file in the stored form.
    StylePictures(const AppState& state, FileIcons& icons, const QString& button);

    const ThemeState& Theme() const { return theme_; }

    // Where a template's button lies on its ground, in twips.
    TwipsRect TemplatePlace(std::size_t index);

    // For a screen of this device pixel ratio, which the picture then has.
    QImage Templates(double ratio);
    QImage Preview(const QString& style, const QString& caption, double ratio);

private:
    // The desktop's icons, each asked for once.
    class Icons : public IconSource {
    public:
        Icons(const AppState& state, FileIcons& icons) : state_(state), icons_(icons) {}
        QImage Icon(const QString& path, const IconSize& size) override;

    private:
        const AppState& state_;
        FileIcons& icons_;
        QHash<std::pair<QString, int>, QImage> read_; // by path and width on the screen
    };

    ButtonSpec Spec(const QString& style, const QString& caption) const;
    ButtonSources Sources();
    PaintTools& Tools(double ratio);

    const AppState& state_;
    QString button_;
    ThemeState theme_;
    Icons icons_;
    FontChoice fonts_;
    double ratio_ = 0;                  // of tools_
    std::unique_ptr<PaintTools> tools_; // with the skin's pieces that have been read
};

} // namespace paneda
