#include "core/files/config_file.h"

#include "core/text/checksum.h"

#include <QDataStream>
#include <QFileInfo>
#include <QtEndian>

namespace paneda {

namespace {

constexpr int kHeaderSize = 8;
constexpr int kMaxPayload = kConfigRecordSize - kHeaderSize;
// No record of the program comes near; the bytes behind its last record are kept as they are.
constexpr qint64 kMaxConfigFile = 4 * 1024 * 1024;

enum class ValueType : quint8 { Boolean = 1, SmallInteger = 2, Real = 3, Text = 4 };

void Prepare(QDataStream& stream) {
    stream.setVersion(QDataStream::Qt_6_0);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
}

struct ValueWriter {
    QDataStream& Stream;

    void operator()(bool value) const { Stream << quint8(ValueType::Boolean) << quint8(value); }
    void operator()(qint16 value) const { Stream << quint8(ValueType::SmallInteger) << value; }
    void operator()(double value) const { Stream << quint8(ValueType::Real) << value; }
    void operator()(const QString& value) const {
        // Cut only so that the length field holds; what is this long does not fit anyway.
        const QByteArray bytes = value.toUtf8().left(kMaxPayload);
        Stream << quint8(ValueType::Text) << quint16(bytes.size());
        Stream.writeRawData(bytes.constData(), int(bytes.size()));
    }
};

QString ReadText(QDataStream& stream) {
    quint16 size = 0;
    stream >> size;
    QByteArray bytes(size, '\0');
    if (stream.readRawData(bytes.data(), size) != size)
        stream.setStatus(QDataStream::ReadPastEnd);
    return QString::fromUtf8(bytes);
}

template <class Raw, class Value>
ConfigValue ReadNumber(QDataStream& stream) {
    Raw raw{};
    stream >> raw;
    return Value(raw);
}

ConfigValue ReadValue(QDataStream& stream) {
    quint8 type = 0;
    stream >> type;
    switch (ValueType(type)) {
    case ValueType::Boolean:
        return ReadNumber<quint8, bool>(stream);
    case ValueType::SmallInteger:
        return ReadNumber<qint16, qint16>(stream);
    case ValueType::Real:
        return ReadNumber<double, double>(stream);
    case ValueType::Text:
        return ReadText(stream);
    }
    stream.setStatus(QDataStream::ReadCorruptData);
    return false;
}

} // namespace

std::optional<QByteArray> EncodeConfigRecord(const ConfigArray& values) {
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    Prepare(stream);
    stream << quint16(values.size());
    for (const ConfigValue& value : values)
        std::visit(ValueWriter{stream}, value);
    if (payload.size() > kMaxPayload)
        return std::nullopt;
    QByteArray record(kConfigRecordSize, '\0');
    qToLittleEndian(quint32(payload.size()), record.data());
    qToLittleEndian(Fnv1a32(payload), record.data() + 4);
    record.replace(kHeaderSize, payload.size(), payload);
    return record;
}

std::optional<ConfigArray> DecodeConfigRecord(QByteArrayView record) {
    if (record.size() < kConfigRecordSize)
        return std::nullopt;
    const auto size = qFromLittleEndian<quint32>(record.data());
    if (size == 0 || size > quint32(kMaxPayload))
        return std::nullopt;
    const QByteArrayView payload = record.sliced(kHeaderSize, size);
    if (qFromLittleEndian<quint32>(record.data() + 4) != Fnv1a32(payload))
        return std::nullopt;
    const QByteArray bytes = payload.toByteArray();
    QDataStream stream(bytes);
    Prepare(stream);
    quint16 count = 0;
    stream >> count;
    ConfigArray values;
    for (int i = 0; i < count && stream.status() == QDataStream::Ok; ++i)
        values.push_back(ReadValue(stream));
    if (stream.status() != QDataStream::Ok)
        return std::nullopt;
    return values;
}

tl::expected<ConfigFile, FileError> ConfigFile::Load(const QString& path) {
    if (!QFileInfo::exists(path))
        return ConfigFile();
    auto bytes = ReadFileBytes(path, kMaxConfigFile);
    if (!bytes)
        return tl::make_unexpected(bytes.error());
    return ConfigFile(*bytes);
}

FileResult ConfigFile::Save(const QString& path) {
    if (!changed_)
        return {};
    FileResult result = ReplaceFile(path, bytes_);
    changed_ = !result.has_value();
    return result;
}

std::optional<ConfigArray> ConfigFile::Read(int record) const {
    const qsizetype begin = qsizetype(record - 1) * kConfigRecordSize;
    if (record < 1 || begin + kConfigRecordSize > bytes_.size())
        return std::nullopt;
    return DecodeConfigRecord(QByteArrayView(bytes_).sliced(begin, kConfigRecordSize));
}

bool ConfigFile::Write(int record, const ConfigArray& values) {
    const auto encoded = EncodeConfigRecord(values);
    if (!encoded || record < 1)
        return false;
    const qsizetype begin = qsizetype(record - 1) * kConfigRecordSize;
    // A file cut in the middle of a record is filled up with zeros: records never written.
    if (bytes_.size() < begin + kConfigRecordSize)
        bytes_.append(begin + kConfigRecordSize - bytes_.size(), '\0');
    if (QByteArrayView(bytes_).sliced(begin, kConfigRecordSize) == QByteArrayView(*encoded))
        return true;
    bytes_.replace(begin, kConfigRecordSize, *encoded);
    changed_ = true;
    return true;
}

} // namespace paneda
