#include "core/disk/file_error.h"

#include <QDir>
#include <QStringList>

namespace paneda {

QString FileError::Text() const {
    return Path + QStringLiteral(": ") + Reason;
}

tl::unexpected<FileError> Failure(const QString& path, const QString& reason) {
    return tl::make_unexpected(FileError{QDir::toNativeSeparators(path), reason});
}

QString FailureText(const std::vector<FileError>& failures) {
    QStringList lines;
    for (const FileError& failure : failures)
        lines.append(failure.Text());
    return lines.join(u'\n');
}

FileResult WithoutProblem(const EntryResult& result) {
    return result ? FileResult() : tl::make_unexpected(result.error().Error);
}

} // namespace paneda
