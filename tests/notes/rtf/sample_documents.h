#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QTextCursor>
#include <QTextDocument>

#include <functional>

namespace paneda::test {

// A document made by code, in Verdana of 10 points.
struct SampleDocument {
    QString Name;
    std::function<void(QTextCursor&)> Fill;
};

// Each shows one side of what notes hold: characters, fonts, paragraphs, lists, links, pictures, tables.
const QList<SampleDocument>& SampleDocuments();

void MakeDocument(QTextDocument& document, const std::function<void(QTextCursor&)>& fill);

// Texts, looks, lists and tables in an order and with numbers that the seed decides.
void FillAtRandom(QTextCursor& cursor, quint32 seed);

// The bytes of a small PNG picture.
QByteArray SamplePng();

// A document in lines, for comparing: each paragraph with its place in tables, its look and its list, then
// each run with its look. Looks are given in the units of RTF. Unset and default are the same.
QStringList Describe(const QTextDocument& document);

} // namespace paneda::test
