#pragma once

#include "core/panel/triggers.h"

#include <QString>

#include <qwindowdefs.h>

#include <optional>

class QWidget;

namespace paneda {

// The tree of a category that the panel shows.
struct TreeOnPanel {
    QString TreeName;         // empty: none has been chosen yet
    TwipsRect Inner;          // where it stands, from the panel's corner
    QString SkinPath;         // host folder of the panel's skin; empty for the built-in look
    QWidget* Panel = nullptr; // the panel's window
    bool IsPanelShown = false;
};

// The tree and the note: windows that are shown, hidden and moved together with the panel.
class Satellites {
public:
    virtual ~Satellites() = default;

    // Whether a window is one of them.
    virtual bool Owns(WId window) const = 0;

    virtual NoteWindowState Note() const = 0;

    // The panel has opened a category: one with a tree, which is shown if the panel is, or another.
    virtual void OpenTree(const std::optional<TreeOnPanel>& tree) = 0;

    // Call it when the panel has been shown. Shows the tree if a tree category is opened.
    virtual void Show(bool treeIsOpened) = 0;
    virtual void Hide() = 0;

    // The panel is about to be deleted: its windows go too.
    virtual void Unload() = 0;

    // Call it when the panel has moved to this rectangle (twips). The note is moved to `note`; if that is
    // null it is placed beside the panel.
    virtual void Follow(const TwipsRect& panel, const WindowPlace* note) = 0;
};

// For a panel without tree and note windows.
class NoSatellites : public Satellites {
public:
    bool Owns(WId) const override { return false; }
    NoteWindowState Note() const override { return {}; }
    void OpenTree(const std::optional<TreeOnPanel>&) override {}
    void Show(bool) override {}
    void Hide() override {}
    void Unload() override {}
    void Follow(const TwipsRect&, const WindowPlace*) override {}
};

} // namespace paneda
