#include "core/files/ini_file.h"

#include <utility>

namespace paneda {

IniText ReadIniFile(const DiskPath& file) {
    return IniText(ReadFileBytes(file, kMaxIniFile).value_or(QByteArray()));
}

tl::expected<IniText, FileError> LoadIniFile(const DiskPath& file) {
    if (!EntryExists(file))
        return IniText();
    auto bytes = ReadFileBytes(file, kMaxIniFile);
    if (!bytes)
        return tl::make_unexpected(bytes.error());
    return IniText(std::move(*bytes));
}

QString ReadIni(const QString& section, const QString& key, const DiskPath& file, const QString& fallback) {
    const QString value = FindIniValue(ReadFileBytes(file, kMaxIniFile).value_or(QByteArray()), section, key);
    return value.isEmpty() ? fallback : value;
}

FileResult WriteIni(const QString& section, const QString& key, const QString& value, const DiskPath& file) {
    auto text = LoadIniFile(file);
    if (!text)
        return tl::make_unexpected(text.error());
    const QByteArray before = text->Bytes();
    if (const IniResult set = text->SetValue(section, key, value); !set)
        return Failure(file.Text(), set.error());
    return text->Bytes() == before ? FileResult() : ReplaceFile(file, text->Bytes());
}

} // namespace paneda
