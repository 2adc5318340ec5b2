#pragma once

#include <QString>

namespace paneda {

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
