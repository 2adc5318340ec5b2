#include "ui/skin/last_colours.h"

#include "core/files/ini_file.h"
#include "core/settings/settings.h"
#include "core/store/store_layout.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace paneda {

namespace {

constexpr QStringView kKey = u"last colors";

} // namespace

LastColours::LastColours(const QString& appFolder) : appFolder_(appFolder) {
    if (appFolder.isEmpty())
        return;
    const QString texts =
        ReadIni(setting::kProperties.toString(), kKey.toString(), SettingIniFile(appFolder));
    for (const QString& text : texts.split(u' ', Qt::SkipEmptyParts)) {
        // What is no colour is left out.
        const ColorRef color = HexToColor(text);
        if (ColorToHex(color) == text && colours_.size() < kMost)
            colours_.push_back(color);
    }
}

void LastColours::Add(ColorRef color) {
    std::erase(colours_, color);
    colours_.insert(colours_.begin(), color);
    colours_.resize(std::min(colours_.size(), kMost));
    changed_ = true;
}

FileResult LastColours::Save() {
    if (appFolder_.isEmpty() || !std::exchange(changed_, false))
        return {};
    QStringList texts;
    for (const ColorRef color : colours_)
        texts.append(ColorToHex(color));
    return WriteSetting(appFolder_, setting::kProperties, kKey, texts.join(u' '));
}

} // namespace paneda
