#include "support/link_builder.h"

#include <QDataStream>
#include <QIODevice>

#include <functional>

namespace paneda::test {

namespace {

using Writer = std::function<void(QDataStream&)>;

QByteArray Written(const Writer& write) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    write(stream);
    return bytes;
}

void Put(QDataStream& stream, const QByteArray& bytes) {
    stream.writeRawData(bytes.constData(), int(bytes.size()));
}

QByteArray Wide(const QString& text) {
    return Written([&](QDataStream& stream) {
        for (const QChar c : text)
            stream << quint16(c.unicode());
    });
}

QByteArray Narrow(const QString& text) {
    return text.toLatin1();
}

// Texts of a part, one behind the other, and where each begins; 0 for one that is not there.
class Texts {
public:
    explicit Texts(quint32 begin) : begin_(begin) {}

    quint32 Add(const QString& text, bool wide, bool present) {
        if (!present)
            return 0;
        const auto at = quint32(begin_ + bytes_.size());
        bytes_ += (wide ? Wide(text) : Narrow(text)) + QByteArray(wide ? 2 : 1, '\0');
        return at;
    }
    const QByteArray& Bytes() const { return bytes_; }

private:
    quint32 begin_;
    QByteArray bytes_;
};

QByteArray Network(const LinkParts& parts) {
    const bool wide = !parts.WideNetworkName.isEmpty();
    const quint32 header = wide ? 28 : 20;
    Texts texts(header);
    const quint32 name = texts.Add(parts.NetworkName, false, true);
    const quint32 wideName = texts.Add(parts.WideNetworkName, true, wide);
    return Written([&](QDataStream& stream) {
        stream << quint32(header + texts.Bytes().size()) << quint32(0) << name << quint32(0) << quint32(0);
        if (wide)
            stream << wideName << quint32(0);
        Put(stream, texts.Bytes());
    });
}

QByteArray LinkInfo(const LinkParts& parts) {
    const bool hasLocal = !parts.LocalPath.isEmpty();
    const bool hasNetwork = !parts.NetworkName.isEmpty();
    const bool wide = !parts.WideLocalPath.isEmpty() || !parts.WideSuffix.isEmpty();
    const quint32 header = wide ? 36 : 28;
    Texts texts(header);
    const quint32 local = texts.Add(parts.LocalPath, false, hasLocal);
    const quint32 suffix = texts.Add(parts.Suffix, false, true);
    const quint32 wideLocal = texts.Add(parts.WideLocalPath, true, wide && hasLocal);
    const quint32 wideSuffix = texts.Add(parts.WideSuffix, true, wide);
    const QByteArray network = hasNetwork ? Network(parts) : QByteArray();
    const quint32 networkAt = hasNetwork ? quint32(header + texts.Bytes().size()) : 0;
    return Written([&](QDataStream& stream) {
        stream << quint32(header + texts.Bytes().size() + network.size()) << header
               << quint32((hasLocal ? 1 : 0) | (hasNetwork ? 2 : 0)) << quint32(0) << local << networkAt
               << suffix;
        if (wide)
            stream << wideLocal << wideSuffix;
        Put(stream, texts.Bytes());
        Put(stream, network);
    });
}

QByteArray Environment(const LinkParts& parts) {
    return Written([&](QDataStream& stream) {
        stream << quint32(0x314) << quint32(0xA0000001);
        Put(stream, Narrow(parts.EnvironmentPath).leftJustified(260, '\0'));
        Put(stream,
            (parts.WideEnvironment ? Wide(parts.EnvironmentPath) : QByteArray()).leftJustified(520, '\0'));
    });
}

} // namespace

QByteArray MakeLink(const LinkParts& parts) {
    quint32 flags = parts.MoreFlags | (parts.WideTexts ? 0x80U : 0U);
    QByteArray body;
    if (!parts.ItemList.isEmpty()) {
        flags |= 0x01;
        body += Written([&](QDataStream& stream) { stream << quint16(parts.ItemList.size()); });
        body += parts.ItemList;
    }
    if (!parts.LocalPath.isEmpty() || !parts.NetworkName.isEmpty()) {
        flags |= 0x02;
        body += LinkInfo(parts);
    }
    quint32 flag = 0x04;
    for (const QString& text :
         {parts.Description, parts.RelativePath, parts.WorkingFolder, parts.Arguments, parts.IconLocation}) {
        flags |= text.isEmpty() ? 0 : flag;
        flag *= 2;
        if (text.isEmpty())
            continue;
        body += Written([&](QDataStream& stream) { stream << quint16(text.size()); });
        body += parts.WideTexts ? Wide(text) : Narrow(text);
    }
    if (!parts.EnvironmentPath.isEmpty())
        body += Environment(parts);
    return Written([&](QDataStream& stream) {
        stream << quint32(0x4C) << quint32(0x00021401) << quint32(0) << quint32(0xC0) << quint32(0x46000000)
               << flags << quint32(0x20);
        Put(stream, QByteArray(24 + 4, '\0')); // times and the target's size
        stream << parts.IconIndex << parts.ShowCode;
        Put(stream, QByteArray(12, '\0'));
        Put(stream, body);
        Put(stream, parts.LastBlock ? QByteArray(4, '\0') : QByteArray());
    });
}

} // namespace paneda::test
