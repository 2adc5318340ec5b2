#include "core/files/ini_file.h"

#include <QFileInfo>

namespace paneda {

IniText ReadIniFile(const QString& file) {
    return IniText(ReadFileBytes(file, kMaxIniFile).value_or(QByteArray()));
}

QString ReadIni(const QString& section, const QString& key, const QString& file, const QString& fallback) {
    const QString value = ReadIniFile(file).Value(section, key);
    return value.isEmpty() ? fallback : value;
}

FileResult WriteIni(const QString& section, const QString& key, const QString& value, const QString& file) {
    QByteArray bytes;
    if (QFileInfo::exists(file)) {
        auto read = ReadFileBytes(file, kMaxIniFile);
        if (!read)
            return tl::make_unexpected(read.error());
        bytes = std::move(*read);
    }
    IniText text(bytes);
    if (const IniResult set = text.SetValue(section, key, value); !set)
        return Failure(file, set.error());
    return text.Bytes() == bytes ? FileResult() : ReplaceFile(file, text.Bytes());
}

} // namespace paneda
