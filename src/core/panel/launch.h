#pragma once

#include "core/settings/app_state.h"

#include <QString>

namespace paneda {

// How the window of a started program is to appear. The numbers are those of the Windows show commands.
enum class ShowCommand { Normal = 1, Minimized = 2, Maximized = 3 };

// What is to be started. Texts are in the stored form or web addresses, as the records hold them.
struct LaunchRequest {
    enum class Action {
        Nothing,
        OpenDrive,   // the drive `Target` ("E") in the file manager
        OpenTarget,  // `Target` by its kind: a program, a document, a folder, an address
        OpenBrowser, // the program `Target` with the address `Parameter`, see BrowserAddress
        Refuse,      // nothing, and the user is told `Problem` about the file `Target`
    };

    Action What = Action::Nothing;
    QString Target;
    QString Parameter; // command line; empty for none
    QString StartIn;   // working folder; empty for none
    ShowCommand Show = ShowCommand::Normal;
    // What the user has pressed, for a message that it cannot be started: a button's caption, a menu's entry.
    // Empty where nothing of that name is on the screen.
    QString Name = {};
    QString Problem = {}; // of Refuse

    friend bool operator==(const LaunchRequest&, const LaunchRequest&) = default;
};

// The fields of a button's file that a launch reads. Those that the file lacks are empty.
struct ButtonFields {
    QString Target;
    QString Parameter;
    QString StartIn;
    QString WindowState;
    QString Url; // of an Internet shortcut
};

enum class MouseButton { Left = 1, Right = 2, Middle = 4 };

// Modifier keys that are down, as a mask.
enum ShiftMask { kShiftKey = 1, kCtrlKey = 2, kAltKey = 4 };

enum class AfterLaunch { Stay, Hide, EndProgram };

// The settings that a launch depends on.
struct LaunchContext {
    QString AppPath; // stored form
    QString Browser; // "default" or a program
};

// The folder of a target: everything up to and including its last separator, which is "/" in a host path.
QString FolderOfTarget(const QString& target);

// The show state for the word in a record: "Minimized" or "Maximized"; normal for anything else.
ShowCommand ShowCommandOf(const QString& windowState);

// The button's kind by the first three characters of its extension, in capitals.
QString ButtonKind(const QString& path);

// Reads the fields that the kind of the button's file asks for. `hostPath` is the host's path of that file.
ButtonFields ReadButtonFields(const QString& hostPath);

// What a press on the button with this path (stored form, or "Drive X") starts. A record without a target
// gives a request with an empty one, so that the press does not stay without an answer.
LaunchRequest DecideLaunch(const QString& path, const ButtonFields& fields, const LaunchContext& context);

// How a web address is opened, or that it is not (see BrowserAddress). `name`: see LaunchRequest. `file`: the
// file that holds the address, for the message; stored form, empty for none.
LaunchRequest DecideBrowser(const QString& url, const QString& browser, const QString& name = {},
                            const QString& file = {});

// A text for the user about something that cannot be opened: what was pressed, if that has a name, and what
// the problem is. Empty without a problem.
QString ProblemText(const QString& name, const QString& problem);

// Whether a press with this mouse button launches at all.
bool LaunchesOn(MouseButton button);

// What the panel does after a launch. The Shift key alone ends the program; the right button does the
// opposite of the setting.
AfterLaunch DecideAfterLaunch(MouseButton button, int shiftMask, bool hideAfterLaunch);

// What a drive button stands for: "C:", the program's own drive for the one named 9.
QString DriveText(const ButtonEntry& button, const QString& appPath);

// Tool tip of a button: the description of a record or the comment of a desktop entry (in the user's language
// where the entry has it), else the file name without prefix and style tag; of a drive button, its drive.
// With `labelIsCut` the caption stands in a line above a description or comment. `hostPath` is the host's
// path of the button's file.
QString ButtonToolTip(const ButtonEntry& button, const QString& hostPath, const QString& appPath,
                      bool labelIsCut);

} // namespace paneda
