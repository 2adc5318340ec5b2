#pragma once

#include "core/prompts.h"
#include "core/settings/app_state.h"
#include "notes/node_operations.h"
#include "platform/file_icons.h"
#include "platform/opener.h"
#include "platform/volumes.h"
#include "ui/notes/node_dialogs.h"
#include "ui/notes/note_window.h"
#include "ui/notes/tree_look.h"

#include <functional>

namespace paneda {

class ucTree;

// The services that the trees use. A service has the name of its type.
struct TreeServices {
    paneda::Prompts& Prompts;
    paneda::FileIcons& FileIcons;
    paneda::Opener& Opener;
    paneda::Volumes& Volumes;
    NodeDialogs* Dialogs = nullptr; // null: nothing can be asked, and what needs it is disabled
    NoteWindow* Note = nullptr;     // null: notes cannot be opened
};

// What the trees of one window share.
struct TreeDesk {
    AppState& State;
    TreeServices Services;
    TreeLook Look = {};
    NodeTransfer Transfer = {};
    // The tree of a control's number; null for none.
    std::function<ucTree*(int treeIndex)> TreeOf = {};
    // A move has begun or ended: all trees show another pointer.
    std::function<void()> MoveChanged = {};
    // How many operations are at work in these trees. While there are any, no tree is deleted, and what comes
    // from outside the window is refused: it would not wait for them.
    int Busy = 0;
    // The last of them has ended.
    std::function<void()> Idle = {};
};

// An operation, which may let events through: disk work, a menu, a dialog.
class BusyMark {
public:
    explicit BusyMark(TreeDesk& desk) : desk_(desk) { ++desk_.Busy; }
    ~BusyMark() {
        if (--desk_.Busy == 0 && desk_.Idle)
            desk_.Idle();
    }
    BusyMark(const BusyMark&) = delete;
    BusyMark& operator=(const BusyMark&) = delete;

private:
    TreeDesk& desk_;
};

} // namespace paneda
