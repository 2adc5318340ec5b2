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
    // How many operations are at work. What comes from outside the window waits for none of them and has to
    // be refused.
    int Busy = 0;
};

} // namespace paneda
