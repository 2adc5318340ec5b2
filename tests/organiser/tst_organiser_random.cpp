#include "organiser/organiser.h"
#include "support/store_builder.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTest>

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

// The number of the next call that fails, counted down; 0: none does.
int callsToFailure = 0;

bool Fails() {
    if (callsToFailure == 0 || --callsToFailure > 0)
        return false;
    errno = EIO;
    return true;
}

// As on exFAT: no rename spares what is there, and one entry answers to "a" and "A".
bool isExFat = false;

} // namespace

// These stand in front of the system's own for the libraries that the test is linked with.
extern "C" int renameat2(int from, const char* name, int to, const char* newName, unsigned flags) {
    if (isExFat && flags != 0) {
        errno = EINVAL;
        return -1;
    }
    return Fails() ? -1 : int(syscall(SYS_renameat2, from, name, to, newName, flags));
}

extern "C" int unlinkat(int at, const char* name, int flags) {
    return Fails() ? -1 : int(syscall(SYS_unlinkat, at, name, flags));
}

extern "C" int mkdirat(int at, const char* name, mode_t mode) {
    return Fails() ? -1 : int(syscall(SYS_mkdirat, at, name, mode));
}

extern "C" int fstatat(int at, const char* name, struct stat* status, int flags) {
    int result = int(syscall(SYS_newfstatat, at, name, status, flags));
    if (result != 0 && isExFat) {
        QByteArray other(name);
        other.back() = char(other.back() ^ ('a' ^ 'A'));
        result = int(syscall(SYS_newfstatat, at, other.constData(), status, flags));
    }
    return result;
}

// Of files, since a folder that cannot be listed is shown as an empty one.
extern "C" int openat(int at, const char* name, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const int mode = (flags & O_CREAT) != 0 ? va_arg(rest, int) : 0;
    va_end(rest);
    return (flags & O_DIRECTORY) == 0 && Fails() ? -1 : int(syscall(SYS_openat, at, name, flags, mode));
}

extern "C" ssize_t write(int file, const void* bytes, size_t size) {
    return Fails() ? -1 : syscall(SYS_write, file, bytes, size);
}

extern "C" int fsync(int file) {
    return Fails() ? -1 : int(syscall(SYS_fsync, file));
}

// A long run of random operations, of which some fail in the middle: no file is lost or overwritten, and the
// lists are those of the disk.
class tst_organiser_random : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void operations();
    void spellings();
};

namespace {

using Contents = std::multiset<QByteArray>;

struct Walk {
    StoreBuilder Store;
    Organiser Lists{Store.Path(u"Setting"_s)};
    QRandomGenerator Random{7};
    int Files = 0;

    // What others have left in a store: names without numbers or with the same, a button of two pictures,
    // files and folders that no list shows.
    Walk() {
        for (const char* name :
             {"Plain/B/Foo.lnk", "Plain/B/Foo.PNG", "Plain/B/Foo.ico", "Plain/[1] a/[001] a [].lnk",
              "Plain/[1] a/[001] a [1].lnk", "Plain/[1] a/[001] a [1] (2).jpg", "Plain/[1] a/Deep/x.txt",
              "Plain/read.me", "[002] Dynamic Category/Note/content.rtf", "[002] b/[009] b/[002] [x] y.lnk"})
            Store.AddFile(u"Setting/"_s + QLatin1String(name), name);
    }

    // The one file in `sources`, which no other file is like.
    QString Source(const QString& extension) {
        QDir(Store.Path(u"sources"_s)).removeRecursively();
        const QString name = u"sources/%1.%2"_s.arg(++Files).arg(extension);
        Store.AddFile(name, QByteArray::number(Files));
        return Store.Path(name);
    }

    // Few titles, so that they meet, in two spellings.
    QString Title() {
        static const QStringList kTitles{u"a"_s, u"A"_s, u"b"_s, u"Dynamic Category"_s, u"\u03a9 50%1"_s, {}};
        return kTitles[Random.bounded(int(kTitles.size()))];
    }

    // All files in the store that are not hidden, and those that buttons are made of.
    Contents Shown(const QString& below = {}) const {
        Contents contents;
        QDirIterator files(Store.AppFolder() + below, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            if (path.contains(u"/.paneda-"_s))
                continue;
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly))
                qFatal("Cannot read %s", qPrintable(path));
            contents.insert(file.readAll());
        }
        return contents;
    }

    // Of each button with a picture: both contents.
    QStringList Pairs() const {
        QStringList pairs;
        const QStringList names =
            Lists.Selected(StoreLevel::Groups) < 0 ? QStringList() : ListFiles(Lists.GroupFolder());
        for (const StoreButton& button : Lists.Buttons()) {
            const QString picture = PictureOf(button.FileName, names);
            if (!picture.isEmpty())
                pairs.append(Text(button.FileName) + u' ' + Text(picture));
        }
        pairs.sort();
        return pairs;
    }

    QString Text(const QString& name) const {
        const int calls = std::exchange(callsToFailure, 0);
        const QString text = QString::fromUtf8(ReadFileBytes(Lists.GroupFolder() / name, 100).value());
        callsToFailure = calls;
        return text;
    }
};

// Both are sorted.
template <class List>
bool Holds(const List& all, const List& some) {
    return std::includes(all.begin(), all.end(), some.begin(), some.end());
}

Contents Without(Contents all, const Contents& gone) {
    for (const QByteArray& content : gone)
        all.erase(all.find(content));
    return all;
}

} // namespace

void tst_organiser_random::operations() {
    Walk walk;
    Organiser& lists = walk.Lists;
    lists.Load();
    int failures = 0;
    int renamed = 0;
    for (int step = 0; step < 10'000; ++step) {
        QRandomGenerator& random = walk.Random;
        StoreLevel level = StoreLevel(random.bounded(3));
        while (int(level) > 0 && lists.Selected(StoreLevel(int(level) - 1)) < 0)
            level = StoreLevel(int(level) - 1);
        const int count = int(lists.Titles(level).size());
        if (count > 0)
            lists.Select(level, random.bounded(count));
        const QStringList pairs = walk.Pairs();
        const bool isFull = count > (level == StoreLevel::Buttons ? 6 : 3);
        const int kind = count == 0 ? 0 : isFull ? 4 : random.bounded(7);
        const bool moves = random.bounded(2) == 0;
        const QString source =
            walk.Source(kind == 0 ? u"lnk"_s : QStringList{u"png"_s, u"ICO"_s, u"jpg"_s}[random.bounded(3)]);
        const Contents before = walk.Shown();
        Contents added;
        Contents gone;
        FileResult result;
        bool keepsPairs = level == StoreLevel::Buttons;
        callsToFailure = random.bounded(4) == 0 ? 1 + random.bounded(10) : 0;
        const bool injects = callsToFailure > 0;
        if (kind == 0 && level != StoreLevel::Buttons) {
            result = lists.AddFolder(level, walk.Title());
        } else if (kind == 0) {
            added.insert(QByteArray::number(walk.Files));
            result = lists.AddButton({walk.Title() + u".lnk"_s, source, moves});
        } else if (kind == 1) {
            const QString title = walk.Title();
            const bool taken = lists.Titles(level).contains(title, Qt::CaseInsensitive);
            result = lists.Retitle(level, taken ? u"%1"_s.arg(step) : title);
        } else if (kind == 2) {
            result = lists.Sort(level);
            QVERIFY(!result || lists.Selected(level) == 0);
        } else if (kind == 3 && level == StoreLevel::Buttons) {
            const QString name = lists.Buttons()[std::size_t(lists.Selected(level))].FileName;
            const QString picture = PictureOf(name, ListFiles(lists.GroupFolder()));
            if (!picture.isEmpty())
                gone.insert(walk.Text(picture).toUtf8());
            keepsPairs = false;
            added.insert(QByteArray::number(walk.Files));
            result = lists.SetPicture(source, moves);
            QVERIFY(!result || walk.Pairs().contains(walk.Text(name) + u' ' + QString::number(walk.Files)));
        } else if (kind == 4 && (isFull || random.bounded(4) == 0)) {
            const DiskPath path = level == StoreLevel::Buttons  ? lists.ButtonFile()
                                  : level == StoreLevel::Groups ? lists.GroupFolder()
                                                                : DiskPath();
            const QString folder =
                level == StoreLevel::Categories
                    ? u"/Setting/"_s + lists.Categories()[std::size_t(lists.Selected(level))].FolderName
                    : path.Text().sliced(walk.Store.AppFolder().size());
            if (level == StoreLevel::Buttons) {
                const QString picture = PictureOf(path.Name(), ListFiles(lists.GroupFolder()));
                gone.insert(walk.Text(path.Name()).toUtf8());
                if (!picture.isEmpty())
                    gone.insert(walk.Text(picture).toUtf8());
                keepsPairs = false;
            } else {
                gone = walk.Shown(folder);
            }
            result = lists.Delete(level);
        } else {
            const QStringList titles = lists.Titles(level);
            const int from = lists.Selected(level);
            const int to = random.bounded(count);
            QStringList wanted = titles;
            wanted.move(from, to);
            result = lists.Move(level, to);
            QVERIFY(!result || lists.Titles(level) == wanted);
        }
        callsToFailure = 0;
        const Contents now = walk.Shown();
        if (result) {
            Contents expected = Without(before, gone);
            // What was moved is in the store instead of where it was.
            if (!moves)
                expected.merge(added);
            QVERIFY2(now == expected, qPrintable(u"step %1 kind %2"_s.arg(step).arg(kind)));
            // A failure may have left a picture that a button comes to again.
            if (keepsPairs)
                QVERIFY(Holds(walk.Pairs(), pairs));
            renamed += kind > 4 ? 1 : 0;
        } else {
            // A folder without a number may not lose its whole name.
            const bool refused = kind == 1 && result.error().Reason.contains(u"first letter"_s);
            QVERIFY2(injects || refused, qPrintable(result.error().Text()));
            ++failures;
            QVERIFY(Holds(now, Without(before, gone)));
        }
        Organiser fresh(walk.Store.Path(u"Setting"_s));
        fresh.Load();
        QCOMPARE(lists.Titles(StoreLevel::Categories), fresh.Titles(StoreLevel::Categories));
        QVERIFY(lists.Categories() == fresh.Categories());
        if (lists.Selected(StoreLevel::Categories) >= 0) {
            fresh.Select(StoreLevel::Categories, lists.Selected(StoreLevel::Categories));
            QVERIFY(lists.Groups() == fresh.Groups());
        }
        if (lists.Selected(StoreLevel::Groups) >= 0) {
            fresh.Select(StoreLevel::Groups, lists.Selected(StoreLevel::Groups));
            QVERIFY(lists.Buttons() == fresh.Buttons());
        }
    }
    qInfo("%d operations failed, %d were moves in a list", failures, renamed);
    QVERIFY(failures > 300 && renamed > 1000);
}

void tst_organiser_random::spellings() {
    const StoreBuilder store;
    store.AddFile(u"a"_s);
    store.AddFile(u"b"_s);
    isExFat = true;
    const bool respelt = RenameEntry(store.Path(u"a"_s), store.Path(u"A"_s)).has_value();
    const bool overwrites = RenameEntry(store.Path(u"A"_s), store.Path(u"B"_s)).has_value();
    isExFat = false;
    QVERIFY(respelt && !overwrites);
    QCOMPARE(store.Entries(), QStringList({u"A"_s, u"b"_s}));
}

QTEST_GUILESS_MAIN(tst_organiser_random)
#include "tst_organiser_random.moc"
