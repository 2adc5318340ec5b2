#pragma once

#include <QString>

#include <tl/expected.hpp>

#include <vector>

namespace paneda {

// Why a file could not be read or written.
struct FileError {
    QString Path;
    QString Reason;

    // One line for the user: the path and the reason.
    QString Text() const;
};

using FileResult = tl::expected<void, FileError>;

// A failed result. The path is shown as the host writes paths.
tl::unexpected<FileError> Failure(const QString& path, const QString& reason);

// A list of failures as one text, a line each.
QString FailureText(const std::vector<FileError>& failures);

enum class EntryProblem {
    AlreadyThere, // something has the wished name
    OtherVolume,  // a rename cannot reach there
    Missing,      // the entry, or the folder in which it was to be, is not there
    Other,
};

struct EntryError {
    EntryProblem Problem = EntryProblem::Other;
    FileError Error;
};

using EntryResult = tl::expected<void, EntryError>;

// The same result for those to whom the kind of problem does not matter.
FileResult WithoutProblem(const EntryResult& result);

} // namespace paneda
