#pragma once

#include "core/files/disk_work.h"
#include "core/settings/app_state.h"
#include "platform/file_icons.h"

#include <QColor>
#include <QString>

class QLabel;

namespace paneda {

// The node or note whose icon is shown.
struct NodeIcon {
    QString Path;             // host path of the node's folder, or of the picture itself
    bool IsImageFile = false; // it is that of the picture
    QString Kind;             // "File", "URL", or empty for a note
    QString Target;           // of a file or an address, as the node holds it
};

// Shows a node's icon in a label, as large as that is: of a file the icon that the desktop has for it; else
// the picture, or Image.png or Image.ico of the folder; else, of an address, the desktop's icon for web
// addresses. A label for which there is none stays as it is. Files are read by `work`; empty: at once.
void ShowNodeIcon(const NodeIcon& icon, QLabel& picture, const QColor& backColor, const AppState& state,
                  FileIcons& icons, const DiskWork& work = {});

} // namespace paneda
