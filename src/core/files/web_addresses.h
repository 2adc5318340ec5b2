#pragma once

#include <QString>

#include <tl/expected.hpp>

namespace paneda {

// Whether a text is a web address or the like: a scheme of two or more letters and ":" (one letter is a
// drive), or "www.".
bool IsAddress(const QString& text);

// The form in which an address of a stranger's file may be handed to a browser, or else the reason for the
// user why it may not. It begins with http://, https://, ftp:// or mailto:, or with file: if it names
// something that a browser shows, because the system would run a program. A text that begins with the name of
// a host gets "http://". The result is one word on every command line: it never begins with "-" and holds no
// blank, quote or backslash; these are written as "%20" and the like.
tl::expected<QString, QString> BrowserAddress(const QString& text);

// The same for the desktop's opener, where the user's own record or a desktop entry may also name a scheme
// that some program has registered for, or a place of the desktop ("smb://server"). As well one word.
tl::expected<QString, QString> AddressOfAnyScheme(const QString& text);

// The web addresses that the program opens.
struct WebAddresses {
    QString Home;
    QString Donate;
    QString Wallpapers;
    QString Search;
    QString Skins;
    QString Help;
};

// All addresses of the site whose home page is given, with or without a slash at its end.
WebAddresses WebAddressesOf(const QString& homepage);

// The help pages that come with the program, in the folder `help` beside it.
enum class HelpTopic { Index, Buttons, Categories, Styles, Skins, PortablePaths, Triggers };

// What to open for a help page: its file below the program's folder (a host path) as a file address, or the
// site's help page where the file is missing.
QString HelpAddress(HelpTopic topic, const QString& appFolder, const QString& homepage);

} // namespace paneda
