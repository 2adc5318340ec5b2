#pragma once

#include "core/panel/triggers.h"

#include <qwindowdefs.h>

namespace paneda {

// The windows that are shown, hidden and moved with the panel: the tree and the note.
class Satellites {
public:
    virtual ~Satellites() = default;

    // Whether a window is one of them.
    virtual bool Owns(WId window) const = 0;

    virtual NoteWindowState Note() const = 0;

    // The panel has been shown; the tree is shown with it if a tree category is opened.
    virtual void Show(bool treeIsOpened) = 0;
    virtual void Hide() = 0;

    // The panel stands here now, in twips. A note is placed beside it, unless it has a place of its own.
    virtual void Follow(const TwipsRect& panel, const WindowPlace* note) = 0;
};

// A panel that stands alone.
class NoSatellites : public Satellites {
public:
    bool Owns(WId) const override { return false; }
    NoteWindowState Note() const override { return {}; }
    void Show(bool) override {}
    void Hide() override {}
    void Follow(const TwipsRect&, const WindowPlace*) override {}
};

} // namespace paneda
