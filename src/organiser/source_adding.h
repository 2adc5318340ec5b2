#pragma once

#include "organiser/new_link.h"
#include "organiser/source_browser.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace paneda {

class Prompts;

// What Add is asked to make buttons of.
struct AddRequest {
    SourceOption Option = SourceOption::Copy;
    std::vector<BrowserEntry> Entries; // the selected lines, or what was dropped
    QString OpenFolder; // the one selected folder, else the open one; with a backslash at its end
    // Where the buttons are to go.
    bool HasGroup = false;
    QStringList ButtonNames;               // of the group's buttons, with extension
    std::optional<QString> SelectedButton; // as its list shows it
    QString UserName;
};

// One thing to do, in the order of the list.
struct AddStep {
    enum class Kind {
        AskLink, // show the shortcut dialog for Source; nothing more if the user closes it
        Record,  // make a record of Link
        File,    // copy Source
        Picture, // give the selected button Source as its picture
    };
    Kind What = Kind::File;
    QString Source;        // stored form
    bool IsFolder = false; // of AskLink
    QString TitleExt;      // of Record and File: the new button's name without prefix and tag
    LinkResult Link;
    bool RemovesSource = false; // afterwards, if it has succeeded
};

// Checks a request and asks what has to be asked. Nothing to do when the user was told why, or said No.
//
// One entry is added as the option says. Of several each becomes what is usual for its kind: shortcuts are
// copied, and anything else gets a record, for which no dialog is shown; with Move, all are moved. Those
// whose names are refused are left out, and one notice names them.
std::vector<AddStep> DecideAdd(const AddRequest& request, const LinkPlace& place, Prompts& prompts);

// What the user reads when some of several steps have failed: a line for each of the first ones. `all`: the
// number of steps.
QString FailedText(const QStringList& failures, int all);

// The name of a record for a name that the user has typed.
QString RecordName(const QString& typed);

} // namespace paneda
