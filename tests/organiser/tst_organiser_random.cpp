#include "organiser/organiser.h"
#include "support/store_builder.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTest>

#include <cerrno>
#include <fcntl.h>
#include <set>
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

} // namespace

// These stand in front of the system's own for the libraries that the test is linked with.
extern "C" int renameat2(int from, const char* name, int to, const char* newName, unsigned flags) {
    return Fails() ? -1 : int(syscall(SYS_renameat2, from, name, to, newName, flags));
}

extern "C" int unlinkat(int at, const char* name, int flags) {
    return Fails() ? -1 : int(syscall(SYS_unlinkat, at, name, flags));
}

extern "C" int mkdirat(int at, const char* name, mode_t mode) {
    return Fails() ? -1 : int(syscall(SYS_mkdirat, at, name, mode));
}

// A long run of random operations, of which some fail in the middle: no file is lost or overwritten, and the
// lists are those of the disk.
class tst_organiser_random : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void operations();
};

namespace {

using Contents = std::multiset<QByteArray>;

struct Walk {
    StoreBuilder Store;
    Organiser Lists{Store.Path(u"Setting"_s)};
    QRandomGenerator Random{7};
    int Files = 0;

    // A file below `sources` that no other file is like.
    QString Source(const QString& extension) {
        const QString name = u"sources/%1.%2"_s.arg(++Files).arg(extension);
        Store.AddFile(name, QByteArray::number(Files));
        return Store.Path(name);
    }

    // Few titles, so that they meet, in two spellings.
    QString Title() {
        static const QStringList kTitles{u"a"_s, u"A"_s, u"b"_s, u"Dynamic Category"_s, u"\u03a9 50%1"_s, {}};
        return kTitles[Random.bounded(int(kTitles.size()))];
    }

    // All files that a list of the organiser or a button's icon may show.
    Contents Shown(const QString& below = {}) const {
        Contents contents;
        QDirIterator files(Store.Path(u"Setting"_s) + below, QDir::Files, QDirIterator::Subdirectories);
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
        return QString::fromUtf8(ReadFileBytes(Lists.GroupFolder() / name, 100).value());
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
    walk.Store.AddFolder(u"Setting"_s);
    walk.Store.AddFolder(u"sources"_s);
    Organiser& lists = walk.Lists;
    lists.Load();
    Contents now;
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
        const Contents before = now;
        const QStringList pairs = walk.Pairs();
        const bool isFull = count > (level == StoreLevel::Buttons ? 6 : 3);
        const int kind = count == 0 ? 0 : isFull ? 4 : random.bounded(7);
        Contents added;
        Contents gone;
        FileResult result;
        bool keepsPairs = level == StoreLevel::Buttons;
        callsToFailure = random.bounded(8) == 0 ? 1 + random.bounded(6) : 0;
        const bool injects = callsToFailure > 0;
        if (kind == 0 && level != StoreLevel::Buttons) {
            result = lists.AddFolder(level, walk.Title());
        } else if (kind == 0) {
            const QString source = walk.Source(u"lnk"_s);
            added.insert(QByteArray::number(walk.Files));
            result = lists.AddButton({walk.Title() + u".lnk"_s, source, random.bounded(2) == 0});
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
            const QString source = walk.Source(random.bounded(2) ? u"png"_s : u"ICO"_s);
            added.insert(QByteArray::number(walk.Files));
            result = lists.SetPicture(source, false);
        } else if (kind == 4 && (isFull || random.bounded(4) == 0)) {
            const DiskPath path = level == StoreLevel::Buttons  ? lists.ButtonFile()
                                  : level == StoreLevel::Groups ? lists.GroupFolder()
                                                                : DiskPath();
            const QString folder =
                level == StoreLevel::Categories
                    ? u"/"_s + lists.Categories()[std::size_t(lists.Selected(level))].FolderName
                    : path.Text().sliced(walk.Store.Path(u"Setting"_s).size());
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
        now = walk.Shown();
        if (result) {
            Contents expected = Without(before, gone);
            expected.merge(added);
            QVERIFY2(now == expected, qPrintable(u"step %1 kind %2"_s.arg(step).arg(kind)));
            // A failure may have left a picture that a button comes to again.
            if (keepsPairs)
                QVERIFY(Holds(walk.Pairs(), pairs));
            renamed += kind > 4 ? 1 : 0;
        } else {
            QVERIFY2(injects, qPrintable(result.error().Text()));
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
    QVERIFY(failures > 300 && renamed > 1000);
    qInfo("%d operations failed, %d files were made", failures, walk.Files);
}

QTEST_GUILESS_MAIN(tst_organiser_random)
#include "tst_organiser_random.moc"
