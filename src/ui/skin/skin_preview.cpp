#include "ui/skin/skin_preview.h"

#include "skin/skin_list.h"
#include "ui/common/run_aside.h"

#include <utility>

namespace paneda {

void SkinPreview::Show(const Wish& wish) {
    if (reading_)
        next_ = wish;
    else
        Read(wish);
}

void SkinPreview::Read(const Wish& wish) {
    reading_ = true;
    RunAside<SkinFacts>(
        *this,
        [wish] {
            return ReadSkinFacts(SkinFolderOf(wish.AppFolder, wish.Skin), wish.Option, wish.Ratio,
                                 wish.Pixels);
        },
        [this](const SkinFacts& facts) {
            reading_ = false;
            if (const auto next = std::exchange(next_, std::nullopt))
                Read(*next);
            else
                Q_EMIT Arrived(facts);
        });
}

} // namespace paneda
