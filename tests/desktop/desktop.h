#pragma once

#include <QImage>
#include <QMap>
#include <QPoint>
#include <QString>
#include <QStringList>

namespace paneda::test {

// Real events and real windows of the X display that the test runs on.

// Standard output of a tool that has run to its end; empty if it could not be started.
QString ToolOutput(const QString& tool, const QStringList& arguments);

// Whether tools/with-desktop gave this process a desktop and a home of its own. Without it a test must not
// touch the home folder.
bool IsPrivateDesktop();

// Time that the tests give whatever has to happen, in ms.
inline constexpr int kPatience = 10'000;

// A click of an X mouse button (1 left, 2 middle, 3 right) at a place of the screen while keys are held.
void ClickAt(const QPoint& place, int button, const QStringList& heldKeys = {});

// Runs xdotool with these words to its end.
void Xdotool(const QStringList& words);

void MoveMouse(const QPoint& place);

// Drags with the left button, in steps as a hand does.
void Drag(const QPoint& from, const QPoint& by);

// Presses keys as xdotool names them, "alt+F4", for the window that has the focus.
void PressKey(const QString& key);

// The window under a window manager with exactly this title; empty if there is none. `processId` 0 stands for
// any.
QString FindWindow(const QString& title, qint64 processId = 0);

// "Normal", "Iconic", or empty for a window that is not there.
QString WindowState(const QString& window);

bool IsMaximized(const QString& window);

// Without the window manager's frame; at -1,-1 for a window that is not there.
QPoint WindowPlace(const QString& window);
QRect WindowRect(const QString& window);

// Where a window with this name and class stands, managed or not, as in: "panel": ("panel" "trayer"). Of
// several that are as large as asked the last one in the server's list; an empty rectangle for none.
QRect RectOf(const QString& nameAndClass, const QSize& least = {});

// What a window shows on the screen.
QImage WindowPicture(const QString& window);

// What a message box of this title and text shows on this desktop; one is opened for it. A blank picture when
// it does not come within 10 s.
QImage PictureOfBox(const QString& title, const QString& text);

int CountColours(const QImage& picture);

// The status files of processes whose parent this one is, ended ones included that nobody has waited for.
QString ChildrenOf(qint64 processId);

// What lies below a folder: each name with a hash of the file's contents, or with the kind of what is no
// file.
using TreePicture = QMap<QString, QString>;
TreePicture PictureOfTree(const QString& folder);

// Names that one picture has and the other not, or not the same, in order: "+a ~b -c".
QString Difference(const TreePicture& before, const TreePicture& after);

} // namespace paneda::test
