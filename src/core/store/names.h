#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>

namespace paneda {

class Prompts;

// Names in the folder store: "[NNN] <title>" for a folder, "[NNN] <title> [<style>].<extension>" for a
// button file. The prefix only brings names into an order: they are sorted as texts.

// The name without its order prefix, and without the style tag if there is one; the extension stays.
// "[003] Notepad [x].LNK" gives "Notepad.LNK".
QString StripOrderPrefix(const QString& text);

// What stands between the last "[" and the last "]." of a file name: the style code. Empty if none.
QString TagOf(const QString& name);

// What follows the last ".", at most 999 characters; the whole name if it holds no ".".
QString ExtensionOf(const QString& name);

// The name before its last "."; the whole name if it holds none.
QString WithoutExtension(const QString& name);

// WithoutExtension for a name that ends in .LNK in any case, else the name.
QString WithoutLnk(const QString& name);

// A file name that every system takes: characters that no file name may hold are replaced by "-", points and
// blanks at its end are dropped, and the name of a device gets a "-" ("con.txt" gives "con-.txt"). Square
// brackets stay. Empty only for an empty text.
QString SafeFileName(const QString& text);

// The title of a category or group on the panel: what follows the first "]", trimmed.
QString TitleBehindPrefix(const QString& folderName);

// The caption of a button: its file name without prefix, style tag and extension.
QString ButtonCaption(const QString& fileName);

// "[001] <title>" for position 1: at least three digits, more past 999. Without points and blanks at its end,
// which not every system keeps.
QString NumberedName(int position, const QString& title);

// "[001] " for position 1: at least three digits, more past 999.
QString OrderPrefix(int position);

// "[001] <title> [<tag>].<extension>" for position 1.
QString NumberedFileName(int position, const QString& title, const QString& tag, const QString& extension);

// The extensions of pictures. Where several pictures have the name of one button, the first in this order
// counts.
inline constexpr std::array<QStringView, 7> kPictureExtensions{u"png", u"jpg", u"jpe", u"jpeg",
                                                               u"bmp", u"gif", u"ico"};

// Whether the extension is that of a picture, which serves as a button's picture and is no button itself.
bool IsImageExtension(const QString& extension);

// For ValidateName: compares the name with all titles.
inline constexpr int kNoException = 99999;

// Why a new title is refused, as a text for the user; empty when it is accepted. The test for duplicates
// ignores case and leaves out titles[exceptIndex], the title that is being changed. An empty name is
// accepted.
QString NameProblem(const QString& name, const QStringList& titles, int exceptIndex);

// True means that the name is refused and that a notice has said why.
bool ValidateName(const QString& name, const QStringList& titles, int exceptIndex, Prompts& prompts);

} // namespace paneda
