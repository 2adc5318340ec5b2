#pragma once

#include <QByteArrayView>
#include <QtEndian>

#include <cstring>

namespace paneda {

// FNV-1a (offset basis and prime as published by its authors). Finds accidental damage; it is no protection
// against somebody who changes a file on purpose.
constexpr quint32 Fnv1a32(QByteArrayView bytes) {
    quint32 hash = 2166136261U;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619U;
    return hash;
}

// The same step, of 64 bits, over words of eight bytes, for files of megabytes. The last word is filled up
// with zeros; the number of bytes is part of the sum.
inline quint64 Fnv1a64OfWords(QByteArrayView bytes) {
    constexpr qsizetype kWord = 8;
    quint64 hash = 14695981039346656037U ^ quint64(bytes.size());
    while (!bytes.isEmpty()) {
        const qsizetype size = bytes.size() < kWord ? bytes.size() : kWord;
        char word[kWord] = {};
        std::memcpy(word, bytes.data(), std::size_t(size));
        hash = (hash ^ qFromLittleEndian<quint64>(word)) * 1099511628211U;
        bytes = bytes.sliced(size);
    }
    return hash;
}

} // namespace paneda
