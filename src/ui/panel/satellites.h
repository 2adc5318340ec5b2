#pragma once

#include "core/panel/triggers.h"

#include <qwindowdefs.h>

namespace paneda {

// The tree and the note: windows that are shown, hidden and moved together with the panel.
class Satellites {
public:
    virtual ~Satellites() = default;

    // Whether a window is one of them.
    virtual bool Owns(WId window) const = 0;

    virtual NoteWindowState Note() const = 0;

    // Call it when the panel has been shown. Shows the tree if a tree category is opened.
    virtual void Show(bool treeIsOpened) = 0;
    virtual void Hide() = 0;

    // Call it when the panel has moved to this rectangle (twips). The note is moved to `note`; if that is
    // null it is placed beside the panel.
    virtual void Follow(const TwipsRect& panel, const WindowPlace* note) = 0;
};

// For a panel without tree and note windows.
class NoSatellites : public Satellites {
public:
    bool Owns(WId) const override { return false; }
    NoteWindowState Note() const override { return {}; }
    void Show(bool) override {}
    void Hide() override {}
    void Follow(const TwipsRect&, const WindowPlace*) override {}
};

} // namespace paneda
