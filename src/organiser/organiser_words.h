#pragma once

#include "organiser/organiser.h"

#include <QDate>
#include <QString>

namespace paneda {

// What the organiser asks and says.

struct Question {
    QString Title;
    QString Text;
};

QString OrganiserTitle(const QString& product, const QString& version, const QDate& built);

// `title`: of the entry, as its list shows it.
Question DeleteQuestion(StoreLevel level, const QString& title);
Question SortQuestion(StoreLevel level);

// Titles of the windows that ask for a name.
QString AddTitle(StoreLevel level);
QString RenameTitle(StoreLevel level);

// Why the entry may not be deleted, or not moved to another index; empty when it may. The first category is
// never one of notes.
QString DeleteProblem(StoreLevel level, const QStringList& titles);
QString MoveProblem(StoreLevel level, const QStringList& titles, int from, int to);

// How to make buttons with the file manager.
Question FileManagerHelp(const QString& homepage);

} // namespace paneda
