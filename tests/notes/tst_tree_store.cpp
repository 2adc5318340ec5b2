#include "core/settings/app_state.h"
#include "notes/node_properties.h"
#include "notes/remark_file.h"
#include "notes/tree_manager.h"
#include "notes/tree_store.h"
#include "support/store_builder.h"

#include <QDir>
#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;
using paneda::test::StoreBuilder;

class tst_tree_store : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsTreesAndSettings();
    void contentFolder();
    void remarkNames_data();
    void remarkNames();
    void remarkFollowsItsNode();
    void propertiesKeepTexts();
    void savesTrees();
    void refusesTreeNames();
    void bindsTrees();
};

void tst_tree_store::readsTreesAndSettings() {
    const StoreBuilder store;
    AppState state = store.State();
    state.AppPath = QDir::toNativeSeparators(store.AppFolder()).replace(u'/', u'\\');
    state.Drives = test::DrivesOfHost();
    state.AppPath.prepend(state.AppPath.startsWith(u'\\') ? u"C:"_s : QString());
    store.AddFile(u"SETTING2/work.Notes.INI"_s,
                  "[properties]\nPATH=data\\Work\\\n[Note]\nTitle Color=12aBfF\nTitle 2 Color=0000FF\n");
    store.AddFile(u"SETTING2/Another.ini"_s);
    store.AddFile(u"SETTING2/Old.ini.bak"_s);
    store.AddFile(u"data/Work/properties.INI"_s, "[Properties]\nMultiuser=1\n");
    QCOMPARE(ListTrees(store.AppFolder()), (QStringList{u"Another"_s, u"work.Notes"_s}));

    const TreeSettings settings = ReadTreeSettings(state, u"Work.notes"_s);
    QCOMPARE(settings.Path, u"data\\Work\\"_s);
    QCOMPARE(settings.ContentFolder, store.Path(u"data/Work"_s));
    QCOMPARE(settings.NoteBackColor, 0xFF000000u);
    QCOMPARE(settings.NoteTitleColor, 0xFF12ABFFu);
    QCOMPARE(settings.NoteTitle2Color, 0xFF0000FFu);
    QVERIFY(settings.MultiUser);
    QCOMPARE(ReadHexColour(u"zz80-1"_s), 0xFF008000u);
    QCOMPARE(ReadHexColour(u"F"_s), 0xFF0F000Fu);
    const TreeSettings none = ReadTreeSettings(state, u"None"_s);
    QCOMPARE(none.ContentFolder, QString());
    QVERIFY(!none.MultiUser && ListNodeFolders(none.ContentFolder).isEmpty());
}

void tst_tree_store::contentFolder() {
    const auto folder = [](const QString& path) -> QString {
        TreeSettings settings;
        settings.Path = path;
        ResolveContentFolder(settings, u"D:\\Tools\\Paneda"_s,
                             DriveMap::FromMountPoints({u"/media/stick"_s}));
        return settings.ContentFolder + u' ' + QDir::fromNativeSeparators(settings.ShownFolder);
    };
    const QString data = u"/media/stick/Tools/Paneda/Data"_s;
    QCOMPARE(folder(u"Data\\"_s), data + u' ' + data);
    QCOMPARE(folder(u"D:\\"_s), u"/media/stick /media/stick"_s);
    QCOMPARE(folder(u"Q:\\Notes"_s), u' ' + QDir::fromNativeSeparators(u"Q:\\Notes"_s));
    QCOMPARE(folder(u"/srv/notes/"_s), u"/srv/notes /srv/notes"_s);
    QCOMPARE(folder(u"  "_s), u" "_s);
}

void tst_tree_store::remarkNames_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::newRow("nine characters") << u"a\\b/c:d*e?f\"g<h>i|j[k]"_s
                                     << u"000007 a-b-c-d-e-f-g-h-i-j[k].txt"_s;
    QTest::newRow("nothing else") << u" con.. "_s << u"000007  con.. .txt"_s;
    // 240 bytes in all; a letter outside the basic plane has 4 and is not split.
    QTest::newRow("long letters") << u"\U0001F600"_s.repeated(127)
                                  << u"000007 "_s + u"\U0001F600"_s.repeated(57) + u".txt"_s;
}

void tst_tree_store::remarkNames() {
    QFETCH(const QString, name);
    QTEST(RemarkFileName(u"000007"_s, name), "file");
    const StoreBuilder store;
    QVERIFY(WriteRemark(store.AppFolder(), u"000007"_s, name));
    QTEST(store.Entries().value(0), "file");
}

void tst_tree_store::remarkFollowsItsNode() {
    const StoreBuilder store;
    const QString level = store.AppFolder();
    QVERIFY(WriteRemark(level, u"000001"_s, u"Old"_s));
    QCOMPARE(store.Bytes(u"000001 Old.txt"_s), "[Remark]\r\nRemark=\r\n"_ba);
    store.AddFile(u"000001 NEW.txt"_s, "somebody's");
    QVERIFY(MoveRemark(level, u"000001 Old.txt"_s, level, u"000001 NEW.txt"_s));
    QCOMPARE(store.Entries(), QStringList{u"000001 NEW.txt"_s});
    QCOMPARE(store.Bytes(u"000001 NEW.txt"_s), "somebody's"_ba);
    QVERIFY(MoveRemark(level, u"000001 missing.txt"_s, level, u"000002 made.txt"_s));
    QVERIFY(RemoveRemark(level, u"000001"_s, u"new"_s));
    QCOMPARE(store.Entries(), QStringList{u"000002 made.txt"_s});
}

// What is written comes back, and the keys of a link go with it.
void tst_tree_store::propertiesKeepTexts() {
    const PendingNode file{
        u"\"quoted\""_s, {},        NodePosition::Below,
        u"'d'"_s,        kFileNode, {u"bin\\x.exe"_s, u"\"a b\" \"c\""_s, u"C:\\in"_s, u"Minimized"_s}};
    IniText text("[Properties]\nEditing=kept\n");
    QVERIFY(SetNodeKeys(text, file, true));
    TreeNode node;
    ReadNodeKeys(text, test::kAppPath, node);
    QCOMPARE(node.Name, file.Name);
    QCOMPARE(node.Description, file.Description);
    QCOMPARE(node.LinkData, (NodeLink{u"E:\\Paneda\\bin\\x.exe"_s, file.LinkData.Parameter,
                                      file.LinkData.StartIn, file.LinkData.WindowState}));
    QVERIFY(SetNodeKeys(text, PendingNode{u"n"_s, {}, NodePosition::Below, {}, {}, {}}, true));
    ReadNodeKeys(text, test::kAppPath, node);
    QVERIFY(node.Type.isEmpty() && node.LinkData == NodeLink());
    QVERIFY(text.Bytes().contains("Editing=kept\n") && !text.Bytes().contains("x.exe"));
}

void tst_tree_store::savesTrees() {
    const StoreBuilder store;
    TreePlace place = TreePlace::Of(store.State());
    place.Drives = test::DrivesOfHost();
    place.AppPath = place.Drives.ToStored(store.AppFolder());
    const auto save = [&](const QString& name, const QString& path, const QString& oldName) {
        return SaveTree(place, {name, path, oldName.isEmpty(), 0xFF0000FF, 0xFFFFFF00, 0xFF00FF0A}, oldName);
    };
    QCOMPARE(save(u" Work "_s, u" \"Data\\Work\" "_s, {}), QString());
    QCOMPARE(store.Bytes(u"Setting2/Work.ini"_s),
             "[Properties]\r\nPath=Data\\Work\r\n[Note]\r\nBackground Color=0000FF\r\n"
             "Title Color=FFFF00\r\nTitle 2 Color=00FF0A\r\n"_ba);
    const QByteArray mine = "; mine\n[properties]\nPATH=Data\\Work\nExtra=1\n";
    store.AddFile(u"Setting2/Work.ini"_s, mine);
    store.AddFile(u"Setting2/Tree.ini"_s, "tree");
    QCOMPARE(save(u"tree"_s, u"Data\\Work"_s, u"Work"_s), u"Duplicate Name"_s);
    QCOMPARE(save(u"Work"_s, u"  "_s, u"Work"_s), u"Path is Empty!"_s);
    QCOMPARE(save(u"Home"_s, u"Data\\None"_s, u"Work"_s), u"Path Not Found!"_s);
    const QString tooLong = place.Drives.ToStored(store.Path(u"Data"_s)) + u"\\."_s.repeated(130);
    QVERIFY(save(u"Home"_s, tooLong, u"Work"_s).contains(u"at most 254"_s));
    QCOMPARE(store.Bytes(u"Setting2/Work.ini"_s), mine);
    // What others wrote goes along with a new name, and the content stays.
    QCOMPARE(save(u"WORK"_s, u"Data\\Work"_s, u"Work"_s), QString());
    QVERIFY(
        store.Bytes(u"Setting2/WORK.ini"_s).startsWith("; mine\n[properties]\nPATH=Data\\Work\nExtra=1\n"));
    // Wine leaves a name that differs in case alone.
    QCOMPARE(ListTrees(store.AppFolder()).join(u' ').toUpper(), u"TREE WORK"_s);
    QVERIFY(store.Entries().contains(u"Data/Work/"_s));
    QCOMPARE(ReadTreeForm(place, u"WORK"_s).NoteTitle2Color, 0xFF00FF0Au);
    QVERIFY(RemoveTreeFile(place, u"WORK"_s) && RemoveTreeFile(place, u"WORK"_s));
    QCOMPARE(ListTrees(store.AppFolder()), QStringList{u"Tree"_s});
}

void tst_tree_store::refusesTreeNames() {
    const QStringList trees{u"Tree"_s, u"con"_s};
    for (const QString& name : {u" "_s, u"a/b"_s, u"[a]"_s, u"TREE"_s, u"nul"_s, u".a"_s, u"a."_s, u"'a'"_s,
                                u"\u00E9"_s.repeated(101)})
        QVERIFY2(!TreeNameProblem(name, trees, {}).isEmpty(), qPrintable(name));
    QCOMPARE(TreeNameProblem(u"'a"_s, trees, {}), QString());
    QCOMPARE(TreeNameProblem(u"tree"_s, trees, u"Tree"_s), QString());
    QCOMPARE(TreeNameProblem(u"con"_s, trees, u"con"_s), QString()); // as it was made elsewhere
    QCOMPARE(UsualTreePath(u" a\\/:*?\"<>|[b] "_s), u"Data\\a---------[b]"_s);
}

void tst_tree_store::bindsTrees() {
    const StoreBuilder store;
    for (const auto& name : {u"1"_s, u"2"_s, u"3"_s, u"4"_s})
        store.AddFolder(u"Setting/[00"_s + name + u"] Dynamic Category"_s);
    CatalogueList before(4);
    for (std::size_t i = 0; i < before.size(); ++i) {
        before[i].FolderName = u"[00%1] Dynamic Category"_s.arg(i + 1);
        before[i].Kind = i == 0 ? u"S"_s : u"T"_s;
        before[i].TreeName = i == 3 ? u"Other"_s : u"Old"_s;
    }
    const CatalogueList after = BindTree(before, {1, u"New"_s, u"Old"_s, u"Renamed"_s});
    QVERIFY(WriteBoundTrees(TreePlace::Of(store.State()), before, after).empty());
    QStringList names;
    for (const CategoryEntry& category : after)
        names.append(category.TreeName);
    QCOMPARE(names, (QStringList{u"Old"_s, u"New"_s, u"Renamed"_s, u"Other"_s}));
    QCOMPARE(store.Bytes(u"Setting/[003] Dynamic Category/Properties.ini"_s),
             "[Properties]\r\nCategory=Renamed\r\n"_ba);
    QVERIFY(!store.Entries().join(u' ').contains(u"[004] Dynamic Category/Properties.ini"_s));
}

QTEST_GUILESS_MAIN(tst_tree_store)
#include "tst_tree_store.moc"
