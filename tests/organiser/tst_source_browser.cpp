#include "organiser/link_editing.h"
#include "organiser/link_record.h"
#include "organiser/organiser.h"
#include "organiser/source_adding.h"
#include "support/fake_prompts.h"
#include "support/store_builder.h"

#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

// What the source browser shows, what adding decides, and what becomes of an edited record.
class tst_source_browser : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lines();
    void drives();
    void breadcrumb();
    void selected();
    void targetForms();
    void add_data();
    void add();
    void addSeveral();
    void editRecord();

private:
    const DriveMap drives_ = DriveMap::FromMountPoints({u"/media/STICK"_s});
    const LinkPlace place_{drives_, u"D:\\Paneda"_s};
};

namespace {

BrowserEntry EntryFor(const QString& path, const DriveMap& drives) {
    const bool isFolder = path.endsWith(u'/');
    const QString host = isFolder ? path.chopped(1) : path;
    return MakeEntry({host.section(u'/', -1), isFolder, host}, drives);
}

QString Text(const AddStep& step) {
    static constexpr const char* kNames[] = {"ask", "record", "file", "picture"};
    const QStringList parts{QString::fromLatin1(kNames[int(step.What)]), step.Source, step.TitleExt,
                            step.Link.Name, step.Link.Target};
    return parts.join(u'|') + (step.IsFolder ? u"|folder"_s : QString()) +
           (step.RemovesSource ? u"|moved"_s : QString());
}

} // namespace

void tst_source_browser::lines() {
    const SourceListing listing{{{u"b.LNK"_s, false, u"/all/b.LNK"_s}, {u"Zoo"_s, true}},
                                {{u"b.LNK"_s, false, u"/own/b.LNK"_s},
                                 {u"a?.txt"_s, false, u"/own/a?.txt"_s},
                                 {u"Zoo"_s, false, u"/own/Zoo"_s},
                                 {u"c"_s, true, u"/media/STICK/c"_s}},
                                {},
                                {}};
    const auto shown = [&](Source source) {
        QStringList texts;
        for (const BrowserEntry& entry : FolderEntries(listing, source, drives_))
            texts.append(entry.Shown + u'=' + entry.FullPath);
        return texts.join(u' ');
    };
    QCOMPARE(shown(Source::Desktop), uR"(> c=D:\c > Zoo= b.LNK=C:\all\b.LNK Zoo=C:\own\Zoo)"_s);
    QVERIFY(shown(Source::MyComputer).contains(u"a?.txt"_s));
}

void tst_source_browser::drives() {
    QStringList asked;
    const auto list = DriveEntries(drives_, [&asked](const QString& root) {
        asked.append(root);
        return root != u'/';
    });
    QCOMPARE(asked, (QStringList{u"/"_s, u"/media/STICK"_s}));
    QCOMPARE(list.size(), 1U);
    QCOMPARE(list[0].Shown + list[0].Hint, u"> D:/media/STICK"_s);
}

void tst_source_browser::breadcrumb() {
    const QString folder = u"C:\\My Tools\\x\\"_s;
    QCOMPARE(FolderText(folder), uR"(C: \ My Tools \ x)"_s);
    QCOMPARE(FolderToolTip(folder), uR"([Current Folder] C:\My Tools\x. Click here to change folder)"_s);
    // By the caret: in a name, at its ends, behind the text.
    const std::pair<int, const char*> rows[] = {{0, R"(C:\)"},
                                                {2, R"(C:\)"},
                                                {3, R"(C:\)"},
                                                {4, R"(C:\My Tools\)"},
                                                {14, R"(C:\My Tools\)"},
                                                {15, R"(C:\My Tools\x\)"},
                                                {17, R"(C:\My Tools\x\)"}};
    for (const auto& [caret, wanted] : rows)
        QCOMPARE(FolderAtCaret(FolderText(folder), caret), QString::fromLatin1(wanted));
    QCOMPARE(FolderAtCaret({}, 0), QString());
    QCOMPARE(FolderAbove(folder), u"C:\\My Tools\\"_s);
    QCOMPARE(FolderAbove(u"C:\\"_s) + FolderAbove({}), QString());
}

void tst_source_browser::selected() {
    // file: label, type label, option as a number
    const std::pair<const char*, const char*> rows[] = {
        {"/a.Lnk", "Shortcut :a0"},     {"/a.desktop", "Shortcut :a0"}, {"/a.URL", "Url :a.URL0"},
        {"/a.jpe", "Pic Icon :a.jpe0"}, {"/a.pnd", "File :a.pnd2"},     {"/exe", "File :exe2"},
        {"/folder/", "File :3"}};
    for (const auto& [path, wanted] : rows) {
        const BrowserEntry entry = EntryFor(QString::fromLatin1(path), drives_);
        const SelectedSource look = LookAtSelected(&entry, true);
        QCOMPARE(look.Label + look.TypeLabel + QString::number(int(*look.Option)),
                 QString::fromLatin1(wanted));
    }
    QVERIFY(!LookAtSelected(nullptr, false).Option);
}

void tst_source_browser::targetForms() {
    // typed: relative, absolute, absolute without drive
    const std::pair<const char*, TargetForms> rows[] = {
        {"/media/STICK/Apps/x", {u"..\\Apps\\x"_s, u"/media/STICK/Apps/x"_s, u"\\Apps\\x"_s}},
        {"..\\Apps\\x", {u"..\\Apps\\x"_s, u"/media/STICK/Apps/x"_s, u"\\Apps\\x"_s}},
        {"/usr/bin/x", {u"/usr/bin/x"_s, u"/usr/bin/x"_s, u"\\usr\\bin\\x"_s}},
        {"Z:\\x", {u"Z:\\x"_s, u"Z:\\x"_s, u"\\x"_s}},
        {"/a\\b", {u"/a\\b"_s, u"/a\\b"_s, u"/a\\b"_s}},
        {"", {}},
    };
    for (const auto& [typed, wanted] : rows)
        QVERIFY2(FormsOfTarget(QString::fromLatin1(typed), place_) == wanted, typed);
    QCOMPARE(FormsOfTarget(u"bin\\x"_s, {DriveMap(), u"E:\\Paneda"_s}).Absolute, u"E:\\Paneda\\bin\\x"_s);
    QCOMPARE(NewLink(u"C:\\usr\\my.tool.sh"_s, false, place_).Name, u"my.tool"_s);
    QCOMPARE(NewLink(u"D:\\Apps\\"_s, true, place_).Target, u"/media/STICK/Apps/"_s);
    QCOMPARE(NewLink(u"D:\\"_s, true, place_).Name, u"STICK"_s);
    QCOMPARE(NewLink(u"E:\\"_s, true, {DriveMap(), u"E:\\Paneda"_s}).Name, u"E"_s);
}

void tst_source_browser::add_data() {
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("file"); // empty: none is selected
    QTest::addColumn<QList<bool>>("answers");
    QTest::addColumn<QString>("shown"); // all prompts
    QTest::addColumn<QString>("step");
    const auto row = [](const char* name, SourceOption option, const QString& file, QList<bool> answers,
                        const QString& shown, const QString& step) {
        QTest::newRow(name) << int(option) << file << answers << shown << step;
    };
    const QString move = u"Your file will be moved|You choose to move the file, are you sure ?"_s;
    const QString use = u"(yes)|Use this picture for the button 'Web' ?"_s;
    row("shortcut", SourceOption::Copy, u"/a/[01] Tool [x].LNK"_s, {}, {},
        u"file|C:\\a\\[01] Tool [x].LNK|Tool.LNK||"_s);
    row("other extension", SourceOption::Copy, u"/Web.url"_s, {}, {}, u"file|C:\\Web.url|Web.url||"_s);
    row("duplicate", SourceOption::Copy, u"/WEB.lnk"_s, {}, u"|Duplicate Name"_s, {});
    row("nothing selected", SourceOption::Copy, {}, {}, u"|Hi Ada, please select a file for the new button"_s,
        {});
    row("no move", SourceOption::Move, u"/a.lnk"_s, {false}, move, {});
    row("refused after a yes", SourceOption::Move, u"/web.LNK"_s, {true}, move + u"\n|Duplicate Name"_s, {});
    row("move", SourceOption::Move, u"/a.lnk"_s, {true}, move, u"file|C:\\a.lnk|a.lnk|||moved"_s);
    row("move a picture", SourceOption::Move, u"/p.png"_s, {true, true}, move + u'\n' + use,
        u"picture|C:\\p.png|p.png|||moved"_s);
    row("no picture", SourceOption::Copy, u"/p.png"_s, {false}, use, {});
    row("file", SourceOption::LinkFile, u"/bin/x"_s, {}, {}, u"ask|C:\\bin\\x|||"_s);
    row("folder", SourceOption::LinkFolder, {}, {}, {}, u"ask|C:\\open\\||||folder"_s);
    row("url without a file", SourceOption::LinkUrl, {}, {}, {}, {});
    row("dropped folder", SourceOption::Copy, u"/media/STICK/My/"_s, {}, {},
        u"record|D:\\My\\|My.pnd|My|/media/STICK/My/"_s);
}

void tst_source_browser::add() {
    QFETCH(QString, file);
    QFETCH(int, option);
    QFETCH(QList<bool>, answers);
    AddRequest request{SourceOption(option), {}, u"C:\\open\\"_s, true, {u"Web.lnk"_s}, u"Web"_s, u"Ada"_s};
    if (!file.isEmpty())
        request.Entries.push_back(EntryFor(file, drives_));
    FakePrompts prompts;
    prompts.Answers = answers;
    const std::vector<AddStep> steps = DecideAdd(request, place_, prompts);
    QTEST(prompts.Shown.join(u'\n'), "shown");
    QTEST(steps.empty() ? QString() : Text(steps.front()), "step");

    FakePrompts others;
    request.HasGroup = false;
    QVERIFY(DecideAdd(request, place_, others).empty());
    QCOMPARE(others.Shown,
             QStringList{u"|Hi Ada, no group found associated with this button, please add a group first"_s});
    request.HasGroup = true;
    request.Option = SourceOption::LinkFolder;
    request.OpenFolder.clear();
    request.Entries.clear();
    QVERIFY(DecideAdd(request, place_, others).empty());
    QCOMPARE(others.Shown.last(), u"|Invalide Folder"_s);
}

void tst_source_browser::addSeveral() {
    AddRequest request{SourceOption::Copy, {}, {}, true, {u"Web.lnk"_s}, {}, u"Ada"_s};
    for (const char* path : {"/web.LNK", "/bin/x.sh", "/x.lnk", "/X.LNK", "/p.png", "/home/", "/s.url"})
        request.Entries.push_back(EntryFor(QString::fromLatin1(path), drives_));
    FakePrompts prompts;
    QStringList steps;
    for (const AddStep& step : DecideAdd(request, place_, prompts))
        steps.append(Text(step));
    QCOMPARE(steps, (QStringList{u"record|C:\\bin\\x.sh|x.pnd|x|/bin/x.sh"_s, u"file|C:\\x.lnk|x.lnk||"_s,
                                 u"record|C:\\home\\|home.pnd|home|/home/"_s, u"file|C:\\s.url|s.url||"_s}));
    QCOMPARE(prompts.Shown,
             (QStringList{u"|You must select a button for this picture"_s,
                          u"|These were not added:\r\rweb: Duplicate Name\rX: Duplicate Name"_s}));
}

void tst_source_browser::editRecord() {
    StoreBuilder store;
    store.AddFile(u"Setting/[001] A/[001] G/[001] Old.PND"_s, "[Properties]\r\nTarget=x\r\nOwn=1\r\n");
    store.AddFile(u"Setting/[001] A/[001] G/[001] Old.JPG"_s);
    store.AddFile(u"Setting/[001] A/[001] G/[002] Other [].pnd"_s);
    Organiser organiser(store.Path(u"Setting"_s));
    organiser.Load();
    FakePrompts prompts;
    const LinkResult link{u"OTHER"_s, u"\\x"_s, u"\"a b\""_s, u" "_s, u"Minimized"_s, {}};
    QVERIFY(!EditLink(organiser, link, prompts));
    QCOMPARE(prompts.Shown, QStringList{u"|Duplicate Name"_s});
    LinkResult written = ReadLink(organiser.ButtonFile());
    QCOMPARE(written.Target + written.Parameter + written.StartIn + written.WindowState,
             u"\\x\"a b\" Minimized"_s);

    LinkResult tooLong = link;
    tooLong.Description = QString(300, u'x');
    QVERIFY(!EditLink(organiser, tooLong, prompts));
    QVERIFY(prompts.Shown.last().contains(u"[001] Old.PND"_s));
    LinkResult renamed = link;
    renamed.Name = u"old"_s;
    QVERIFY(EditLink(organiser, renamed, prompts));
    QCOMPARE(organiser.Buttons()[0].FileName, u"[001] old [].PND"_s);
    QVERIFY(store.Bytes(u"Setting/[001] A/[001] G/[001] old [].PND"_s).contains("Own=1"));
    QVERIFY(store.Entries().contains(u"Setting/[001] A/[001] G/[001] old [].jpg"_s));
    QVERIFY(organiser.HasChanges());

    QFile::remove(store.Path(u"Setting/[001] A/[001] G/[001] old [].PND"_s));
    QVERIFY(EditLink(organiser, renamed, prompts));
    QVERIFY(!store.Entries().contains(u"Setting/[001] A/[001] G/[001] old [].PND"_s));
    QCOMPARE(organiser.Buttons().size(), 1U);
}

QTEST_GUILESS_MAIN(tst_source_browser)
#include "tst_source_browser.moc"
