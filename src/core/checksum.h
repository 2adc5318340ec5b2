#pragma once

#include <QByteArrayView>

namespace paneda {

// FNV-1a (offset basis and prime as published by its authors): tells damage from data, and is no protection
// against intent.
constexpr quint32 Fnv1a32(QByteArrayView bytes) {
    quint32 hash = 2166136261U;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619U;
    return hash;
}

} // namespace paneda
