#pragma once

#include "skin/skin_facts.h"

#include <QObject>

#include <optional>

namespace paneda {

// Reads what the chooser shows of skins, on a thread of its own. One skin is read at a time, and of those
// that were asked for meanwhile only the last one.
class SkinPreview : public QObject {
    Q_OBJECT

public:
    struct Wish {
        QString AppFolder; // host path
        QString Skin;
        QString Option; // empty for none
        double Ratio = 1;
        int Pixels = 0; // see ReadSkinFacts
    };

    void Show(const Wish& wish);

Q_SIGNALS:
    // For the last wish.
    void Arrived(const paneda::SkinFacts& facts);

private:
    void Read(const Wish& wish);

    bool reading_ = false;
    std::optional<Wish> next_;
};

} // namespace paneda
