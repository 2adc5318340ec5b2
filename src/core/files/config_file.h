#pragma once

#include "core/files/file_io.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>
#include <vector>

namespace paneda {

// The file `config`: fixed records of kConfigRecordSize bytes, numbered from 1.
//
// Record layout, whole numbers little endian:
//   0  u32  length of the payload; 0 for a record never written
//   4  u32  FNV-1a checksum of the payload
//   8       payload: u16 number of values, then each as a type byte and its data
//             1 boolean, u8
//             2 small integer, i16
//             3 real, IEEE 754 binary64
//             4 text, u16 number of bytes and UTF-8
//   behind the payload: zeros
// A record that is cut, damaged, or beyond the end of the file reads as never written.
inline constexpr int kConfigRecordSize = 4000;

using ConfigValue = std::variant<bool, qint16, double, QString>;
using ConfigArray = std::vector<ConfigValue>;

// One record's payload with its header, filled up to kConfigRecordSize. Nothing if the values do not fit.
std::optional<QByteArray> EncodeConfigRecord(const ConfigArray& values);

// Nothing for a record never written or damaged.
std::optional<ConfigArray> DecodeConfigRecord(QByteArrayView record);

// The records in memory between one read and one write of the whole file.
class ConfigFile {
public:
    ConfigFile() = default;
    explicit ConfigFile(QByteArray bytes) : bytes_(std::move(bytes)) {}

    // Fails when the file exists and cannot be read; a missing file has no records.
    static tl::expected<ConfigFile, FileError> Load(const QString& path);

    // Replaces the file, unless nothing was set since the load.
    FileResult Save(const QString& path);

    std::optional<ConfigArray> Read(int record) const;

    // False, and nothing changed, when the values do not fit into a record.
    bool Write(int record, const ConfigArray& values);

    const QByteArray& Bytes() const { return bytes_; }

private:
    QByteArray bytes_;
    bool changed_ = false;
};

// Element 0 of a record. An empty record, or one of another type, is given the default, which is returned.
template <class Value>
Value GetConfigRecord(ConfigFile& file, int record, const Value& fallback) {
    if (const auto values = file.Read(record); values && !values->empty()) {
        if (const Value* value = std::get_if<Value>(&values->front()))
            return *value;
    }
    file.Write(record, {ConfigValue(fallback)});
    return fallback;
}

} // namespace paneda
