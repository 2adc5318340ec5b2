#include "core/files/file_io.h"
#include "core/files/file_tree.h"
#include "support/store_builder.h"

#include <QFileInfo>
#include <QTest>

#include <filesystem>

using namespace paneda;
using namespace Qt::StringLiterals;
using paneda::test::MakeSymbolicLink;
using paneda::test::StoreBuilder;

class tst_file_tree : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void renamesOntoNothing_data();
    void renamesOntoNothing();
    void copiesAndRemovesWithoutFollowingLinks();
    void copyStopsAtWhatItCannotRead();
};

void tst_file_tree::renamesOntoNothing_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<bool>("renamed");

    QTest::newRow("folder to a free name") << u"folder"_s << u"free"_s << true;
    QTest::newRow("folder onto an empty folder") << u"folder"_s << u"empty"_s << false;
    QTest::newRow("file onto a link to nowhere") << u"file"_s << u"nowhere"_s << false;
    QTest::newRow("link onto a file") << u"link"_s << u"other"_s << false;
}

void tst_file_tree::renamesOntoNothing() {
    QFETCH(const QString, from);
    QFETCH(const QString, to);
    QFETCH(const bool, renamed);
    const StoreBuilder store;
    store.AddFile(u"folder/inner"_s, "inner");
    store.AddFile(u"file"_s, "file");
    store.AddFile(u"other"_s, "other");
    store.AddFolder(u"empty"_s);
    const bool hasLinks = MakeSymbolicLink(store.Path(u"empty"_s), store.Path(u"link"_s)) &&
                          MakeSymbolicLink(store.Path(u"gone"_s), store.Path(u"nowhere"_s));
    if (!hasLinks && (from == u"link"_s || to == u"nowhere"_s))
        QSKIP("There are no links here.");
    QStringList expected = store.Entries();

    const EntryResult result = RenameEntry(store.Path(from), store.Path(to));
    QCOMPARE(bool(result), renamed);
    if (renamed)
        expected.replaceInStrings(QRegularExpression(u'^' + from + u"(?=/|$)"), to);
    else
        QCOMPARE(result.error().Problem, EntryProblem::AlreadyThere);
    expected.sort();
    QCOMPARE(store.Entries(), expected);
    QCOMPARE(store.Bytes(u"other"_s), "other"_ba);
}

void tst_file_tree::copiesAndRemovesWithoutFollowingLinks() {
    const StoreBuilder store;
    store.AddFile(u"outside/kept"_s, "kept");
    store.AddFile(u"from/a/b/deep"_s, QByteArray(3'000'000, 'x'));
    store.AddFile(u"from/.hidden"_s, "h");
    store.AddFolder(u"from/empty"_s);
    if (!MakeSymbolicLink(store.Path(u"outside"_s), store.Path(u"from/a/folder link"_s)))
        QSKIP("There are no links here.");
    MakeSymbolicLink(store.Path(u"gone"_s), store.Path(u"from/dead link"_s));
    QVERIFY(CopyTree(store.Path(u"from"_s), store.Path(u"to"_s)));
    QCOMPARE(store.Bytes(u"to/a/b/deep"_s), store.Bytes(u"from/a/b/deep"_s));
    QCOMPARE(QFileInfo(store.Path(u"to/a/folder link"_s)).symLinkTarget(), store.Path(u"outside"_s));
    QVERIFY(RemoveTree(store.Path(u"from"_s)));
    QCOMPARE(store.Entries().filter(QRegularExpression(u"^(from|to)"_s)),
             (QStringList{u"to/"_s, u"to/.hidden"_s, u"to/a/"_s, u"to/a/b/"_s, u"to/a/b/deep"_s,
                          u"to/a/folder link/"_s, u"to/empty/"_s}));
    QVERIFY(QFileInfo(store.Path(u"to/dead link"_s)).isSymbolicLink());
    QVERIFY(!EntryExists(store.Path(u"from"_s)));
    MakeSymbolicLink(store.Path(u"outside"_s), store.Path(u"link"_s));
    QVERIFY(RemoveTree(store.Path(u"link"_s)));
    QVERIFY(RemoveTree(store.Path(u"link"_s)));
    QCOMPARE(store.Bytes(u"outside/kept"_s), "kept"_ba);
}

// A name that no path can express would be lost with the source.
void tst_file_tree::copyStopsAtWhatItCannotRead() {
    const StoreBuilder store;
    store.AddFolder(u"from"_s);
    const std::filesystem::path odd = QFileInfo(store.Path(u"from"_s)).filesystemFilePath() / "\xE9.txt";
    std::error_code error;
    std::filesystem::create_directory(odd, error);
    if (error || QFileInfo::exists(QFileInfo(odd).filePath()))
        QSKIP("The file system takes no such name.");
    QVERIFY(!CopyTree(store.Path(u"from"_s), store.Path(u"to"_s)));
    QVERIFY(RemoveTree(store.Path(u"from"_s)));
    QVERIFY(!std::filesystem::exists(odd));
}

QTEST_GUILESS_MAIN(tst_file_tree)
#include "tst_file_tree.moc"
