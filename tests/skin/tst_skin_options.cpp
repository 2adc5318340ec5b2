#include "core/text/windows_1252.h"
#include "skin/option_plan.h"
#include "skin/skin_facts.h"
#include "skin/skin_list.h"
#include "skin/skin_maker.h"
#include "skin/skin_option.h"
#include "skin/skin_pictures.h"
#include "support/store_builder.h"

#include <QStringEncoder>
#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

const QString kSkin = u"skin/S/"_s;

// Files as "name=contents", in a program's folder with a skin "S" that has an option "O".
StoreBuilder MakeStore(const QStringList& skin, const QStringList& option) {
    StoreBuilder store;
    store.AddFolder(kSkin + u"O"_s);
    store.AddFile(kSkin + u"bottom.png"_s, "b");
    store.AddFile(kSkin + u"skin.ini"_s, "[Fonts]\ngroup color=000000\n" + SkinMaker::Places());
    const auto add = [&store](const QString& folder, const QStringList& files) {
        for (const QString& file : files)
            store.AddFile(folder + file.section(u'=', 0, 0), file.section(u'=', 1).toUtf8());
    };
    add(kSkin, skin);
    add(kSkin + u"O/"_s, option);
    return store;
}

// All files of the skin but those of the option, with their contents unless these are long.
QStringList Files(const StoreBuilder& store) {
    QStringList files;
    for (const QString& entry : store.Entries()) {
        const QString name = entry.startsWith(kSkin) ? entry.mid(kSkin.size()) : QString();
        if (name.isEmpty() || name.endsWith(u'/') || name.startsWith(u"O/"))
            continue;
        const QByteArray bytes = store.Bytes(entry);
        files.append(bytes.size() > 20 ? name : name + u'=' + QString::fromUtf8(bytes));
    }
    return files;
}

} // namespace

class tst_SkinOptions : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void lists();
    void iniLines();
    void applies_data();
    void applies();
    void originals();
    void refuses_data();
    void refuses();
    void linksOut();
};

void tst_SkinOptions::lists() {
    StoreBuilder store = MakeStore({u"readme.txt=#!/bin/sh"_s}, {});
    for (const auto* file : {"skin/b/Bottom.JPG", "skin/a/top.png", "skin/C/BOTTOM.png",
                             "skin/S/[hidden] x/y", "skin/S/No [HIDDEN]/y"})
        store.AddFile(QLatin1String(file));
    store.AddFolder(u"skin/d/bottom.png"_s);
    QCOMPARE(ListSkins(store.AppFolder()), QStringList({u"C"_s, u"S"_s, u"b"_s}));
    const DiskPath skin = SkinFolderOf(store.AppFolder(), u"s"_s);
    QCOMPARE(ListSkinOptions(skin), QStringList({u"No [HIDDEN]"_s, u"O"_s}));
    // It would be started.
    QVERIFY(!ReadSkinFacts(skin, {}, 1, 100).HasReadme);
    store.AddFile(kSkin + u"readme.txt"_s, "Dear user");
    QVERIFY(ReadSkinFacts(skin, {}, 1, 100).HasReadme);
}

void tst_SkinOptions::iniLines() {
    const QByteArray text =
        "early=1\r\n\r\n  [Fonts]  \r\n group color = A=B \n;note=1\n=2\nnothing\n[T\xE9]\rk=\n";
    const std::vector<IniChange> wanted{{u"Fonts"_s, u"group color"_s, u"A=B"_s}, {u"T\u00E9"_s, u"k"_s, {}}};
    QVERIFY(ReadIniChanges(text) == wanted);
    QVERIFY(ReadIniChanges(QStringEncoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom)(
                DecodeWindows1252(text))) == wanted);
}

void tst_SkinOptions::applies_data() {
    QTest::addColumn<QStringList>("skin");
    QTest::addColumn<QStringList>("option");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("any case") << QStringList{u"Top.PNG=old"_s, u"left.png=l"_s}
                              << QStringList{u"top.png=new"_s, u"delete LEFT.png.txt"_s, u".hidden"_s,
                                             u"f/g"_s}
                              << QStringList{u"Top.PNG=new"_s, u"[HIDDEN] Original/Top.PNG=old"_s,
                                             u"[HIDDEN] Original/left.png=l"_s};
    QTest::newRow("larger pictures") << QStringList{u"top.png=1"_s, u"top@2x.png=2"_s, u"TOP@3x.jpg=3"_s,
                                                    u"left@2x.png=4"_s, u"a@2x.txt=5"_s}
                                     << QStringList{u"top.png=new"_s, u"top@3x.png=new"_s, u"a.txt=new"_s,
                                                    u"DELETE left.png.TXT"_s}
                                     << QStringList{u"[HIDDEN] Original/DELETE a.txt.TXT="_s,
                                                    u"[HIDDEN] Original/DELETE top@3x.png.TXT="_s,
                                                    u"[HIDDEN] Original/TOP@3x.jpg=3"_s,
                                                    u"[HIDDEN] Original/left@2x.png=4"_s,
                                                    u"[HIDDEN] Original/top.png=1"_s,
                                                    u"[HIDDEN] Original/top@2x.png=2"_s,
                                                    u"a.txt=new"_s,
                                                    u"a@2x.txt=5"_s,
                                                    u"top.png=new"_s,
                                                    u"top@3x.png=new"_s};
#ifdef Q_OS_UNIX
    QTest::newRow("spelled alike") << QStringList{u"TOP.PNG=1"_s, u"top.png=2"_s}
                                   << QStringList{u"top.png=3"_s}
                                   << QStringList{u"TOP.PNG=1"_s, u"top.png=3"_s,
                                                  u"[HIDDEN] Original/top.png=2"_s};
#endif
    QTest::newRow("nothing to do") << QStringList() << QStringList{u"DELETE x.TXT"_s, u"DELETE O.TXT"_s}
                                   << QStringList();
}

void tst_SkinOptions::applies() {
    QFETCH(const QStringList, skin);
    QFETCH(const QStringList, option);
    QFETCH(QStringList, after);
    const StoreBuilder store = MakeStore(skin, option);
    const OptionResult applied = ApplyOption(store.AppFolder(), u"S"_s, u"O"_s);
    QVERIFY2(applied, qPrintable(applied ? QString() : applied.error()));
    after << u"bottom.png=b"_s << u"skin.ini"_s;
    after.sort();
    QCOMPARE(Files(store), after);
}

// Two options after each other; then everything is as before the first one.
void tst_SkinOptions::originals() {
    StoreBuilder store = MakeStore(
        {u"top.png=old"_s}, {u"CHANGE SKIN.INI=[Fonts]\ngroup color=1"_s, u"top.png=1"_s, u"new.png=1"_s});
    store.AddFile(kSkin + u"P/top.png"_s, "2");
    store.AddFile(kSkin + u"P/DELETE new.png.TXT"_s);
    store.AddFile(kSkin + u"P/DELETE other.png.TXT"_s);
    store.AddFile(kSkin + u"other.png"_s, "o");
    const QStringList before = store.Entries();
    const QByteArray ini = store.Bytes(kSkin + u"skin.ini"_s);
    for (const QString& option : {u"O"_s, u"P"_s})
        QVERIFY(ApplyOption(store.AppFolder(), u"S"_s, option));
    QVERIFY(store.Bytes(kSkin + u"skin.ini"_s).contains("group color=1"));
    QCOMPARE(store.Bytes(kSkin + u"top.png"_s), "2");
    QVERIFY(HasOriginal(SkinFolderOf(store.AppFolder(), u"S"_s)));
    QVERIFY(RestoreOriginal(store.AppFolder(), u"S"_s));
    QCOMPARE(store.Entries(), before);
    QCOMPARE(store.Bytes(kSkin + u"skin.ini"_s), ini);
    QCOMPARE(store.Bytes(kSkin + u"top.png"_s), "old");
}

void tst_SkinOptions::refuses_data() {
    QTest::addColumn<QStringList>("option");
    QTest::addColumn<QString>("word");
    const auto row = [](const char* name, const QStringList& option, const QString& word) {
        QTest::newRow(name) << QStringList{option + QStringList{u"top.png=new"_s}} << word;
    };
    row("folder above", {u"DELETE ...TXT"_s}, u"does not name"_s);
    row("nothing", {u"DELETE .TXT"_s}, u"does not name"_s);
    row("originals", {u"DELETE change skin.ini.TXT"_s}, u"cannot be removed"_s);
    row("skin.ini", {u"DELETE SKIN.INI.TXT"_s}, u"no skin.ini"_s);
    row("bottom", {u"DELETE bottom.png.TXT"_s}, u"no picture \"bottom\""_s);
    row("broken", {u"skin.ini=[Fonts]"_s}, u"hide button top"_s);
    row("over a folder", {u"zz=1"_s}, u"zz"_s);
    row("long value", {u"CHANGE SKIN.INI=[Fonts]\nk="_s + QString(300, u'x')}, u"254"_s);
    row("many keys", {u"CHANGE SKIN.INI=[Fonts]\n"_s + u"k=1\n"_s.repeated(501)}, u"500 lines"_s);
    row("32 MiB", {u"CHANGE SKIN.INI="_s + QString(32 * 1024 * 1024, u'x')}, u"larger than 1048576"_s);
#ifdef Q_OS_UNIX
    row("separator", {u"DELETE ..\\config.TXT"_s}, u"not a file that can be used"_s);
    row("drive", {u"DELETE C:x.TXT"_s}, u"does not name"_s);
#endif
}

// Nothing half applied.
void tst_SkinOptions::refuses() {
    QFETCH(const QStringList, option);
    QFETCH(const QString, word);
    // Originals that come with a skin may say anything too.
    for (const bool isOriginal : {false, true}) {
        StoreBuilder store = MakeStore({u"top.png=old"_s}, option);
        store.AddFile(kSkin + u"zz/inner"_s);
        if (isOriginal)
            QVERIFY(QFile::rename(store.Path(kSkin + u'O'), store.Path(kSkin + kOriginalOption)));
        const QStringList before = store.Entries();
        const OptionResult applied = isOriginal ? RestoreOriginal(store.AppFolder(), u"S"_s)
                                                : ApplyOption(store.AppFolder(), u"S"_s, u"O"_s);
        QVERIFY(!applied);
        QVERIFY2(applied.error().contains(word) && applied.error().contains(u"as it was"),
                 qPrintable(applied.error()));
        QCOMPARE(store.Entries(), before);
        QCOMPARE(store.Bytes(kSkin + u"top.png"_s), "old");
    }
}

// What is a link in a skin is neither read nor written nor removed.
void tst_SkinOptions::linksOut() {
    for (const auto* link :
         {"skin/S/O/top.png", "skin/S/O/CHANGE SKIN.INI", "skin/S/top.png", "skin/S/gone.png",
          "skin/S/skin.ini", "skin/S/[HIDDEN] Original", "skin/S/O", "skin/S"}) {
        StoreBuilder store =
            MakeStore({u"top.png=old"_s}, {u"top.png=new"_s, u"DELETE gone.png.TXT"_s, u"CHANGE SKIN.INI"_s});
        const QString path = store.Path(QLatin1String(link));
        store.AddFolder(u"outside"_s);
        const QString outside = store.Path(u"outside/target"_s);
        // What stood there lies outside now, behind the link.
        if (!QFile::rename(path, outside))
            store.AddFile(u"outside/target"_s, "outside");
        if (!MakeSymbolicLink(outside, path))
            QSKIP("This system makes no links.");
        const QStringList before = store.Entries();
        const QByteArray bytes = store.Bytes(u"outside/target"_s);
        // The one that is to be removed is no file of the skin, and stays.
        const bool applies = path.endsWith(u"gone.png");
        QVERIFY2(ApplyOption(store.AppFolder(), u"S"_s, u"O"_s).has_value() == applies, link);
        QVERIFY(applies ? store.Entries().contains(QLatin1String(link)) : store.Entries() == before);
        QCOMPARE(store.Bytes(u"outside/target"_s), bytes);
        if (path.endsWith(u"/S"))
            QVERIFY(ListSkins(store.AppFolder()).isEmpty() && !ReadSkin(store.AppFolder(), u"S"_s));
        if (path.endsWith(u"skin.ini"))
            QVERIFY(ReadSkin(store.AppFolder(), u"S"_s).error().Text().contains(u"link"));
        if (path.endsWith(u"S/top.png")) {
            const auto left = SurveyPieces(*ReadSkin(store.AppFolder(), u"S"_s)).LeftOut;
            QVERIFY(std::any_of(left.begin(), left.end(), [](const PictureError& error) {
                return error.Path.endsWith(u"top.png") && error.Reason.contains(u"link");
            }));
        }
        if (path.endsWith(u"S/O"))
            QVERIFY(ListSkinOptions(SkinFolderOf(store.AppFolder(), u"S"_s)).isEmpty());
    }
}

QTEST_GUILESS_MAIN(tst_SkinOptions)
#include "tst_skin_options.moc"
