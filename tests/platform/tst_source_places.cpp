#include "platform/linux/bookmarks.h"
#include "platform/linux/desktop_entry.h"
#include "platform/linux/linux_source_places.h"
#include "support/store_builder.h"

#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

// Desktop, menu and favorites of a home of its own.
class tst_source_places : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void menu();
    void titles();
    void desktopAndFavorites();
    void bookmarkFormats();

private:
    StoreBuilder home_;
    LinuxSourcePlaces places_;
};

namespace {

QStringList Names(const std::vector<SourceItem>& items) {
    QStringList names;
    for (const SourceItem& item : items)
        names.append(item.Name + (item.IsFolder ? u"/"_s : QString()));
    names.sort();
    return names;
}

// "public | user", each name with "/" behind a folder.
QString Shown(const SourceListing& listing) {
    return Names(listing.Public).join(u' ') + u" | "_s + Names(listing.User).join(u' ');
}

QByteArray Application(const QByteArray& name, const QByteArray& lines) {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=true\n" + lines + '\n';
}

} // namespace

void tst_source_places::initTestCase() {
    qputenv("HOME", QFile::encodeName(home_.AppFolder()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(home_.Path(u"own"_s)));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home_.Path(u"config"_s)));
    qputenv("XDG_DATA_DIRS", QFile::encodeName(home_.Path(u"first"_s) + u':' + home_.Path(u"second"_s)));
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    qunsetenv("LC_ALL");
    qunsetenv("LANGUAGE");
    qputenv("LC_MESSAGES", "de_AT.UTF-8");
}

void tst_source_places::menu() {
    const QByteArray net = "Categories=Qt;Network;WebBrowser;";
    const std::pair<const char*, QByteArray> files[] = {
        {"first/a.desktop", Application("Web", net + "\nName[de]=Netz\nName[de_AT]=Netz [A/B]?")},
        {"second/kde-mail.desktop", Application("Mail of the second folder", net)},
        {"first/hidden.desktop", Application("Hidden", net)},
        {"own/hidden.desktop", Application("Hidden", net + "\nHidden=true")},
        {"first/own.desktop", Application("As delivered", net)},
        {"own/own.desktop", Application("As changed", net)},
        {"first/no.desktop", Application("NoDisplay", net + "\nNoDisplay=true")},
        {"first/gnome.desktop", Application("Gnome", net + "\nOnlyShowIn=GNOME;XFCE;")},
        {"first/kde.desktop", Application("KDE", net + "\nOnlyShowIn=GNOME;KDE")},
        {"first/notkde.desktop", Application("NotKDE", net + "\nNotShowIn=KDE;")},
        {"first/gone.desktop", Application("Gone", net + "\nTryExec=/nowhere/x")},
        {"first/link.desktop", "[Desktop Entry]\nType=Link\nName=Link\nURL=http://x/\nCategories=Network"},
        {"first/readme.txt", Application("Text", net)},
        {"second/game.desktop", Application("Chess", "Categories=Game;Network")},
        {"second/odd.desktop", Application("Odd", "Categories=X-Own;")},
    };
    for (const auto& [name, bytes] : files)
        home_.AddFile(QString::fromUtf8(name).replace(u'/', u"/applications/"_s), bytes);
    home_.AddFile(u"first/applications/kde/mail.desktop"_s, Application("Mail", net));
    QCOMPARE(Shown(places_.List(Source::StartMenu, {})), u"Games/ Internet/ Other/ | Internet/"_s);
    QCOMPARE(Shown(places_.List(Source::StartMenu, u"Internet\\"_s)),
             u"KDE.desktop Mail.desktop Netz (A-B)-.desktop | As changed.desktop"_s);
    QCOMPARE(Shown(places_.List(Source::StartMenu, u"Nowhere\\"_s)), u" | "_s);
}

void tst_source_places::titles() {
    const QByteArray entry = "[Desktop Entry]\nName[fr]=f\nName[de]=d\nName=n\nName[de@x]=dx\n"
                             "[Desktop Action A]\nName[de_AT]=no";
    const std::pair<QStringList, const char*> rows[] = {
        {{u"de_AT"_s, u"de"_s}, "d"}, {{u"de@x"_s, u"de"_s}, "dx"}, {{u"pt"_s, u"fr"_s}, "f"}, {{}, "n"}};
    for (const auto& [languages, title] : rows)
        QCOMPARE(ParseDesktopEntry(entry, languages).Title, QString::fromUtf8(title));
    QCOMPARE(EntryLanguages(), (QStringList{u"de_AT"_s, u"de"_s}));
    qputenv("LANGUAGE", "sr@latin:en");
    QCOMPARE(EntryLanguages(), (QStringList{u"sr@latin"_s, u"sr"_s, u"en"_s, u"de_AT"_s, u"de"_s}));
    qunsetenv("LANGUAGE");
}

void tst_source_places::desktopAndFavorites() {
    home_.AddFile(u"config/user-dirs.dirs"_s, "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n");
    home_.AddFile(u"Schreibtisch/a.desktop"_s, Application("Editor", "Name[de]=Schreiber"));
    home_.AddFile(u"Schreibtisch/broken.desktop"_s, "no entry");
    home_.AddFile(u"Schreibtisch/.hidden"_s);
    home_.AddFile(u"Schreibtisch/Games/b\\c"_s);
    home_.AddFile(u"Schreibtisch/Games/x.txt"_s);
    QCOMPARE(Shown(places_.List(Source::Desktop, {})), u" | Games/ Schreiber.desktop broken.desktop"_s);
    QCOMPARE(Shown(places_.List(Source::Desktop, u"Games\\"_s)), u" | x.txt"_s);

    const QByteArray pictures = QFile::encodeName(home_.Path(u"My Pictures"_s));
    home_.AddFile(u"config/gtk-3.0/bookmarks"_s,
                  "file://" + QByteArray(pictures).replace(' ', "%20") + "\nfile:///nowhere/x Gone\n");
    home_.AddFile(u"My Pictures/2026/new.txt"_s);
    home_.AddFile(u"favorites/Site.URL"_s);
    home_.AddFile(u"favorites/text.txt"_s);
    QCOMPARE(Shown(places_.List(Source::Favorites, {})), u" | My Pictures/ Site.URL"_s);
    const SourceListing marked = places_.List(Source::Favorites, u"My Pictures\\2026\\"_s);
    QCOMPARE(Shown(marked), u" | new.txt"_s);
    QCOMPARE(marked.Folder, home_.Path(u"My Pictures/2026"_s));
    QVERIFY(!places_.List(Source::MyComputer, home_.Path(u"favorites/text.txt"_s)).Problem.isEmpty());
}

void tst_source_places::bookmarkFormats() {
    const std::vector<Bookmark> lines{{u"Mine"_s, u"/a"_s}, {u"c d"_s, u"/b/c d"_s}};
    QCOMPARE(ParseLineBookmarks("file:///a/ Mine\nfile:///b/c%20d\nsftp://x/y Far\nfile://host/z\n"
                                "file:///e%5Cf\n\nnonsense\n\xff\xfe"),
             lines);
    const std::vector<Bookmark> places{{u"Mine (1-2)"_s, u"/a"_s}};
    const QByteArray xbel = "<?xml version='1.0'?><!DOCTYPE xbel><xbel>"
                            "<bookmark href='file:///a'><title>Mine [1/2]</title></bookmark>"
                            "<bookmark href='file:///home'><title>Home</title><info><metadata>"
                            "<isSystemItem>true</isSystemItem></metadata></info></bookmark>"
                            "<bookmark href='trash:/'><title>Trash</title></bookmark>"
                            "<bookmark href='file:///cut'><title>";
    QCOMPARE(ParseXbelBookmarks(xbel), places);
}

QTEST_GUILESS_MAIN(tst_source_places)
#include "tst_source_places.moc"
