#include "archive/zip_class.h"
#include "archive/zip_extraction.h"
#include "core/files/config_file.h"
#include "core/files/file_batch.h"
#include "core/files/file_tree.h"
#include "core/files/ini_file.h"
#include "core/prompts.h"
#include "core/settings/settings.h"
#include "core/store/catalogue_cache.h"
#include "core/store/store_layout.h"
#include "notes/edit_lock.h"
#include "notes/node_files.h"
#include "notes/node_icon.h"
#include "notes/node_operations.h"
#include "notes/note_load.h"
#include "notes/note_save.h"
#include "platform/linux/desktop_autostart.h"
#include "support/kill_shim/interrupted_step.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <map>

namespace paneda::test {

using namespace Qt::StringLiterals;

namespace {

// What a step's status says.
enum Status { kDone = 0, kTold = 1, kToldWithoutReason = 2 };

using Failures = std::vector<FileError>;

// Each file and folder that a user sees. A note's two files count as its text, which either may hold.
using Contents = std::map<QString, QByteArray>;

// A lock that cannot be removed costs the next guard of the process its wait, and nothing else.
const QString kLocks = u".lock"_s;
constexpr qint64 kMost = 100'000; // bytes
const QByteArray kShort = "short";
const QByteArray kLong(3000, 'L');

class YesPrompts : public Prompts {
public:
    void Notice(const QString& text, const QString&) override { Told += text; }
    bool Confirm(const QString&, const QString&) override { return true; }
    QString ChooseFile(const QString&, const QString&) override { return {}; }
    QString Told;
};

// The reasons that the system has for the errors which the shim gives.
int StatusOf(const QString& told) {
    if (told.isEmpty())
        return kDone;
    for (const int error : {ENOSPC, EIO, EDQUOT}) {
        if (told.contains(qt_error_string(error)))
            return kTold;
    }
    return kToldWithoutReason;
}

int StatusOf(const Failures& failures) {
    return StatusOf(FailureText(failures));
}

int StatusOf(const FileResult& result) {
    return result ? kDone : StatusOf(Failures{result.error()});
}

DiskPath In(const QString& folder, const QString& path) {
    return DiskPath::Below(folder, folder + u'/' + path);
}

// A tree in the folder, whose rows are known.
struct Desk {
    explicit Desk(const QString& folder) {
        TreeSettings settings;
        settings.ContentFolder = folder + u"/tree"_s;
        tree.Open(u"T"_s, settings, 1);
        services.TreeOf = [this](int) { return &tree; };
        services.Now = [] { return QDateTime({2026, 11, 21}, {6, 30, 43}); };
        transfer.Pending = PendingNode{u"new"_s, folder + u"/icon.png"_s, NodePosition::Above, {}, {}, {}};
    }

    NodeOperations Operations() { return {tree, transfer, services}; }

    YesPrompts prompts;
    NodeServices services{prompts, {}, {}, {}};
    NodeTransfer transfer;
    TreeModel tree{u"C:"_s};
};

template <typename Work>
Step OnTree(const Work& work) {
    return [work](const QString& folder) {
        Desk desk(folder);
        work(desk);
        return StatusOf(desk.prompts.Told);
    };
}

// Saves a text over the one that is there, compressed above 1 kB.
Step Saving(const QByteArray& text, bool othersCame = false) {
    return [text, othersCame](const QString& folder) {
        NoteSession session;
        session.UserName = u"Ann"_s;
        session.Now = QDateTime({2026, 11, 21}, {6, 30, 43});
        session.Settings.CompressSize = 1;
        NoteDisk disk;
        const NotePlace place{folder + u"/tree/000001"_s, folder + u"/tree"_s, true};
        const NoteOnDisk seen = othersCame ? NoteOnDisk() : LookAtNote(place.Folder());
        const auto saved = SaveNote(place, session, {text, seen, false}, disk);
        return saved ? StatusOf(saved->Failures) : StatusOf(Failures{saved.error()});
    };
}

int BeginEditing(const QString& folder) {
    NoteDisk disk;
    NoteSession session;
    session.UserName = u"Ann"_s;
    session.Now = QDateTime({2026, 11, 21}, {6, 30, 43});
    return StatusOf(BeginEdit({folder + u"/tree/000001"_s, folder + u"/tree"_s, true}, session, disk).Notice);
}

int ReplaceBatch(const QString& folder) {
    const auto bytes = [](std::size_t) -> QByteArray { return "new"; };
    return StatusOf(ReplaceFiles({In(folder, u"a"_s), In(folder, u"b"_s)}, bytes));
}

int SaveConfig(const QString& folder) {
    auto config = ConfigFile::Load(folder + u"/config"_s);
    config->Write(3, {ConfigValue(true)});
    return StatusOf(config->Save(folder + u"/config"_s));
}

// From the tree into a tree of another volume.
int MoveToVolume(const QString& folder) {
    const DiskPath target = In(folder, u"volume"_s);
    const auto sort = [](const SiblingScan&) { return u"0000000007"_s; };
    const auto moved = MoveNodeFolder({In(folder, u"tree"_s), In(folder, u"tree/000001"_s), target, target,
                                       sort, QDateTime({2026, 11, 21}, {6, 30, 43})});
    return moved ? StatusOf(moved->Failures) : StatusOf(Failures{moved.error()});
}

Step ChangingIcon(const QString& source) {
    return [source](const QString& folder) {
        const QString picture = source.isEmpty() ? source : folder + u'/' + source;
        return StatusOf(ChangeNodeIcon(picture, In(folder, u"tree/000003"_s)));
    };
}

Step Autostarting(bool on) {
    return [on](const QString& folder) {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder + u"/own/config"_s));
        return StatusOf(DesktopAutostart().Set(on, u"/x/paneda"_s));
    };
}

int Extract(const QString& folder) {
    QString told;
    ZipEvents events;
    events.Error = [&told](const QString& text, int) { told += text; };
    ZipExtractionClass extraction(events);
    extraction.OpenZip(folder + u"/x.zip"_s);
    extraction.Extract(folder + u"/out/of"_s, true, true);
    return StatusOf(told);
}

const Steps kSteps{
    {u"replace a file"_s, [](const QString& f) { return StatusOf(ReplaceFile(In(f, u"a"_s), "new")); }},
    {u"make a file"_s, [](const QString& f) { return StatusOf(ReplaceFile(In(f, u"c"_s), "new")); }},
    {u"replace two files"_s, ReplaceBatch},
    {u"copy a file"_s,
     [](const QString& f) { return StatusOf(CopyWholeFile(In(f, u"b"_s), In(f, u"a"_s))); }},
    {u"copy a folder"_s,
     [](const QString& f) { return StatusOf(CopyTree(In(f, u"tree"_s), In(f, u"copy"_s))); }},
    {u"remove a folder"_s, [](const QString& f) { return StatusOf(RemoveTree(In(f, u"tree"_s))); }},
    {u"write an INI value"_s,
     [](const QString& f) { return StatusOf(WriteIni(u"S"_s, u"k"_s, u"v"_s, In(f, u"x.ini"_s))); }},
    {u"save the settings"_s, SaveConfig},
    {u"make the store"_s, [](const QString& f) { return StatusOf(CreateMissingStore(f)); }},
    {u"save the cache"_s, [](const QString& f) { return StatusOf(SaveCache(f + u"/a"_s, {})); }},
    {u"add a node"_s, OnTree([](Desk& desk) { desk.Operations().AddOrMoveNode(1, NodeMode::Add); })},
    {u"add a node and renumber"_s,
     OnTree([](Desk& desk) { desk.Operations().AddOrMoveNode(2, NodeMode::Add); })},
    {u"edit a node"_s, OnTree([](Desk& desk) { desk.Operations().EditNode(1); })},
    {u"move a node"_s, OnTree([](Desk& desk) {
         desk.Operations().StartMove(2);
         desk.Operations().FinishMove(1, MoveChoice::Child);
     })},
    {u"delete a node"_s,
     OnTree([](Desk& desk) { desk.Operations().DeleteNode(1, DeleteMode::AskAndDelete); })},
    {u"save rtf to rtf"_s, Saving("other")},
    {u"save rtf to zip"_s, Saving(kLong)},
    {u"save zip to zip"_s, Saving(QByteArray(2000, 'M'))},
    {u"save zip to rtf"_s, Saving("other")},
    {u"save beside another's text"_s, Saving("other", true)},
    {u"begin to edit"_s, BeginEditing},
    {u"move a node to another volume"_s, MoveToVolume},
    {u"change an icon"_s, ChangingIcon(u"icon.png"_s)},
    {u"remove an icon"_s, ChangingIcon({})},
    {u"start with the session"_s, Autostarting(true)},
    {u"do not start with the session"_s, Autostarting(false)},
    {u"extract an archive"_s, Extract}};

void Write(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("a test cannot make its files");
}

void Prepare(const QString& step, const QString& folder) {
    for (const QString& name : {u"a"_s, u"b"_s, u"icon.png"_s})
        Write(folder + u'/' + name, name.toUtf8());
    for (const QString& number : {u"1"_s, u"2"_s, u"3"_s}) {
        const QString node = folder + u"/tree/00000"_s + number;
        Write(node + u"/Properties.ini"_s,
              "[Properties]\nName=n" + number.toUtf8() + "\nSort=000000000" + number.toUtf8() + '\n');
        Write(node + u" n"_s + number + u".txt"_s, "[Remark]\r\nRemark=\r\n");
    }
    QDir(folder).mkdir(u"volume"_s);
    for (const QString& name : {u"Image.png"_s, u"Image.ico"_s})
        Write(folder + u"/tree/000003/"_s + name, name.toUtf8());
    if (step.startsWith(u"do not"))
        Autostarting(true)(folder);
    if (step.startsWith(u"extract")) {
        ZipClass zip;
        for (const QString& name : {u"old.txt"_s, u"in/new.txt"_s})
            std::ignore = zip.AddBytes(name, kLong, {});
        std::ignore = zip.WriteZip(folder + u"/x.zip"_s, true);
        Write(folder + u"/out/of/old.txt"_s, "old");
    }
    if (step.startsWith(u"save zip")) {
        Saving(kLong)(folder);
        return;
    }
    const QString note = folder + u"/tree/000001/content.rtf"_s;
    Write(note, kShort);
    // It is part of the name under which the text is kept.
    QFile file(note);
    const bool isSet =
        file.open(QIODevice::ReadWrite) &&
        file.setFileTime(QDateTime({2026, 11, 20}, {7, 8, 9}), QFileDevice::FileModificationTime);
    if (!isSet)
        qFatal("a test cannot set a time");
}

QByteArray TextOf(const DiskPath& note) {
    const NoteForm form = FindNoteForm(note);
    const QByteArray bytes = ReadFileBytes(NoteContentFile(note, form), kMost).value_or(QByteArray());
    return form == NoteForm::Zip ? ReadZippedNote(bytes).Rtf : bytes;
}

Contents ContentsOf(const QString& folder) {
    Contents contents;
    QDirIterator entries(folder, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const bool isText = entries.fileName() == u"content.rtf" || entries.fileName() == u"content.zip";
        const DiskPath note = In(folder, QFileInfo(path).path().mid(folder.size() + 1));
        const QString name = isText ? note.Text() + u"/text" : path;
        contents[name.mid(folder.size())] = isText ? TextOf(note)
                                            : entries.fileInfo().isDir()
                                                ? "folder"_ba
                                                : ReadFileBytes(path, kMost).value_or("unreadable"_ba);
    }
    return contents;
}

QByteArray At(const Contents& contents, const QString& name) {
    const auto found = contents.find(name);
    return found == contents.end() ? QByteArray() : found->second;
}

// What each file holds before, after and between the calls of a step that comes to its end.
class States {
public:
    States(Contents before, Contents after) : before_(std::move(before)), after_(std::move(after)) {
        Add(before_);
        Add(after_);
    }

    void Add(const Contents& contents) {
        for (const auto& [name, bytes] : contents)
            states_[name].append(bytes);
    }

    // Empty, or the first file that lost something, or that is not as it should be although nothing was told.
    QString Objection(const Contents& found, int status) const {
        for (const auto& [name, states] : states_) {
            if (!IsOneOf(At(found, name), name))
                return name + u" is neither old nor new: "_s + QString::fromUtf8(At(found, name).left(200));
            if (status == kDone && At(found, name) != At(after_, name))
                return name + u" is not new, and nothing was told"_s;
        }
        for (const auto& [name, bytes] : found) {
            if (!states_.contains(name))
                return name + u" should not be there"_s;
        }
        return status == kToldWithoutReason ? u"what was told gives no reason"_s : QString();
    }

private:
    // The keys of an INI file are written in several steps, and one that fails does not keep others back.
    bool IsOneOf(const QByteArray& is, const QString& name) const {
        const QList<QByteArray>& states = states_.at(name);
        const bool mayBeMissing = At(before_, name).isNull() || At(after_, name).isNull();
        if (states.contains(is) || (is.isNull() && mayBeMissing))
            return true;
        const auto linesOf = [](const QByteArray& bytes) { return bytes.split('\n'); };
        const auto isKnown = [&](const QByteArray& line) {
            return std::any_of(states.begin(), states.end(),
                               [&](const QByteArray& state) { return linesOf(state).contains(line); });
        };
        const QList<QByteArray> lines = linesOf(is);
        const auto isLost = [&](const QByteArray& line) {
            return linesOf(At(after_, name)).contains(line) && !lines.contains(line);
        };
        const QList<QByteArray> old = linesOf(At(before_, name));
        return name.endsWith(u".ini") && std::all_of(lines.begin(), lines.end(), isKnown) &&
               (At(before_, name).isNull() || std::none_of(old.begin(), old.end(), isLost));
    }

    Contents before_;
    Contents after_;
    std::map<QString, QList<QByteArray>> states_;
};

} // namespace

// Every operation that writes, with an error of the disk at each of its calls: what the user has is old or
// new, and what could not be done is told with the disk's own reason.
class TestDiskErrors : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryCall_data() {
        QTest::addColumn<QString>("step");
        for (const auto& [name, step] : kSteps)
            QTest::newRow(qPrintable(name)) << name;
    }

    void EveryCall() {
        QFETCH(const QString, step);
        const QTemporaryDir undisturbed;
        Prepare(step, undisturbed.path());
        const Contents before = ContentsOf(undisturbed.path());
        QCOMPARE(kSteps.at(step)(undisturbed.path()), int(kDone));
        States states(before, ContentsOf(undisturbed.path()));
        const auto prepare = [&](const QString& folder) { Prepare(step, folder); };
        const auto collect = [&](const QString& folder, const StepEnd&) {
            states.Add(ContentsOf(folder));
            return QString();
        };
        QCOMPARE(FirstObjection(step, {0, u"kill"_s, true, kLocks}, prepare, collect), QString());
        int errors = 0;
        int at = 0;
        const auto check = [&](const QString& folder, const StepEnd& end) {
            // Empty for the run behind the last call.
            const QString failed = end.Calls.value(at++);
            errors += failed.isEmpty() ? 0 : 1;
            // What was written may have got lost, and only this call says so.
            if (end.Status == kDone && (failed.startsWith(u"fsync") || failed.startsWith(u"close")))
                return QString(u"an error was passed over: "_s + failed);
            return states.Objection(ContentsOf(folder), end.Status);
        };
        for (const QString& mode : {u"EDQUOT"_s, u"EIO+"_s}) {
            at = 0;
            QCOMPARE(FirstObjection(step, {0, mode, true, kLocks}, prepare, check), QString());
        }
        qInfo("%3d errors, each at another call or of another kind", errors);
    }
};

} // namespace paneda::test

int main(int argc, char** argv) {
    using namespace paneda::test;
    QCoreApplication application(argc, argv);
    if (const std::optional<int> status = RunAsChild(argc, argv, kSteps))
        return *status;
    TestDiskErrors test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_disk_errors.moc"
