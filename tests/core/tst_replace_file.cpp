#include "core/files/file_batch.h"
#include "support/kill_shim/interrupted_step.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

#include <vector>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

// A file that is written is old or new at every moment, and nothing else comes into the listings.
class tst_replace_file : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void interrupted_data();
    void interrupted();
    void interruptedBatch();
    void keepsWhatTheFileIs();
    void refusals();
};

namespace {

const QString kName = u"[001] x.pnd"_s;
const QString kSecond = u"second"_s; // of a batch
const QByteArray kOldText = "[S]\r\nk=old\r\n;rest\r\n";
const QByteArray kNewText = "[S]\r\nk=new\r\n;rest\r\n";

QString FileIn(const QString& folder) {
    return QDir(folder).filePath(kName);
}

QString SecondIn(const QString& folder) {
    return QDir(folder).filePath(kSecond);
}

const Steps kSteps{
    {u"file"_s,
     [](const QString& folder) { return ReplaceFile(FileIn(folder), kNewText).has_value() ? 0 : 1; }},
    {u"batch"_s, [](const QString& folder) {
         const auto bytes = [](std::size_t) { return kNewText; };
         return ReplaceFiles({FileIn(folder), SecondIn(folder)}, bytes).has_value() ? 0 : 1;
     }}};

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QStringList AllIn(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

QString WhatIsWrong(const QString& folder, const StepEnd& end, const QByteArray& old, bool mayLeaveMore) {
    const QByteArray bytes = BytesOf(FileIn(folder));
    const QStringList own = QFile::exists(FileIn(folder)) ? QStringList(kName) : QStringList();
    if (ListFiles(folder) != own || !ListFolders(folder).isEmpty())
        return u"listed: "_s + ListFiles(folder).join(u'|');
    if (bytes != kNewText && (bytes != old || own.isEmpty() != old.isEmpty()))
        return u"neither old nor new: "_s + QString::fromUtf8(bytes);
    if (end.Killed)
        return {};
    if (bytes != (end.Status == 0 ? kNewText : old))
        return u"status %1 tells something else"_s.arg(end.Status);
    return mayLeaveMore || AllIn(folder) == own ? QString() : u"left: "_s + AllIn(folder).join(u'|');
}

} // namespace

void tst_replace_file::interrupted_data() {
    QTest::addColumn<QString>("step");
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<bool>("namedFilesOnly");

    for (const char* mode : {"kill", "torn", "ENOSPC", "ENOSPC+", "EIO"}) {
        for (const bool named : {false, true}) {
            const char* where = named ? "on a stick" : "on a disk";
            const QString text = QString::fromLatin1(mode);
            QTest::addRow("new file, %s, %s", mode, where) << u"file"_s << QByteArray() << text << named;
            QTest::addRow("old file, %s, %s", mode, where) << u"file"_s << kOldText << text << named;
        }
    }
}

void tst_replace_file::interrupted() {
    QFETCH(QString, step);
    QFETCH(QByteArray, old);
    QFETCH(QString, mode);
    QFETCH(bool, namedFilesOnly);
    const auto prepare = [&](const QString& folder) {
        if (!old.isNull())
            Write(FileIn(folder), old);
    };
    // Where no call goes through any more, nothing can be cleared away either.
    const auto check = [&](const QString& folder, const StepEnd& end) {
        return WhatIsWrong(folder, end, old, mode.endsWith(u'+'));
    };
    QCOMPARE(FirstObjection(step, {0, mode, namedFilesOnly}, prepare, check), QString());
}

// Of several files the first few are new, and a failure before the first rename leaves all of them old.
void tst_replace_file::interruptedBatch() {
    for (const QString& mode : {u"kill"_s, u"torn"_s, u"ENOSPC"_s, u"EIO"_s}) {
        const auto prepare = [&](const QString& folder) {
            Write(FileIn(folder), kOldText);
            Write(SecondIn(folder), kOldText);
        };
        const auto check = [&](const QString& folder, const StepEnd& end) -> QString {
            const bool firstNew = BytesOf(FileIn(folder)) == kNewText;
            const bool secondNew = BytesOf(SecondIn(folder)) == kNewText;
            if ((!firstNew && BytesOf(FileIn(folder)) != kOldText) ||
                (!secondNew && BytesOf(SecondIn(folder)) != kOldText) || (secondNew && !firstNew))
                return u"neither old nor new, or in the wrong order"_s;
            if (end.Killed)
                return {};
            // After the last rename a failed flush is all that is left to tell.
            if (end.Status == 0 && !secondNew)
                return u"status %1 tells something else"_s.arg(end.Status);
            // A call that clears away may be the one that fails.
            return AllIn(folder).size() <= 3 ? QString() : u"left: "_s + AllIn(folder).join(u'|');
        };
        QCOMPARE(FirstObjection(u"batch"_s, {0, mode, false}, prepare, check), QString());
    }
}

void tst_replace_file::keepsWhatTheFileIs() {
    const QTemporaryDir folder;
    const QFile::Permissions permissions(0x6640);
    Write(folder.filePath(u"real"_s), "old");
    QVERIFY(QFile::setPermissions(folder.filePath(u"real"_s), permissions));
    // A group that this user may give a file to, if there is one beside its own.
    std::vector<gid_t> groups(64);
    const int count = getgroups(int(groups.size()), groups.data());
    const gid_t group = geteuid() == 0 ? 12'345 : count > 0 ? groups[std::size_t(count) - 1] : getegid();
    QCOMPARE(chown(folder.filePath(u"real"_s).toLocal8Bit().constData(), uid_t(-1), group), 0);
    QVERIFY(QFile::link(u"real"_s, folder.filePath(u"link"_s)));
    QVERIFY(ReplaceFile(folder.filePath(u"link"_s), "new"));
    QCOMPARE(QFileInfo(folder.filePath(u"real"_s)).groupId(), group);
    QCOMPARE(QFileInfo(folder.filePath(u"link"_s)).symLinkTarget(), folder.filePath(u"real"_s));
    QCOMPARE(BytesOf(folder.filePath(u"real"_s)), QByteArray("new"));
    QCOMPARE(QFile::permissions(folder.filePath(u"real"_s)), permissions);
    // As long as a name can be.
    const QString longName(255, u'x');
    QVERIFY(ReplaceFile(folder.filePath(longName), "a"));
    QVERIFY(ReplaceFile(folder.filePath(longName), "b"));
    QCOMPARE(BytesOf(folder.filePath(longName)), QByteArray("b"));
    // A new file is as open to others as any.
    Write(folder.filePath(u"plain"_s), "x");
    QCOMPARE(QFile::permissions(folder.filePath(longName)), QFile::permissions(folder.filePath(u"plain"_s)));
    QCOMPARE(AllIn(folder.path()).size(), 4);
}

void tst_replace_file::refusals() {
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(u"folder"_s));
    QVERIFY(QFile::link(u"nowhere/x"_s, folder.filePath(u"dangling"_s)));
    for (const QString& name :
         {u"folder"_s, u"dangling"_s, u"none/x"_s, QString(256, u'x'), QString(QChar(0xD800))}) {
        const FileResult result = ReplaceFile(folder.filePath(name), "new");
        QVERIFY2(!result && result.error().Path == folder.filePath(name), qPrintable(name));
        QVERIFY(!result.error().Reason.isEmpty());
    }
    QCOMPARE(AllIn(folder.path()).size(), 2);
}

int main(int argc, char** argv) {
    if (const std::optional<int> status = RunAsChild(argc, argv, kSteps))
        return *status;
    QCoreApplication application(argc, argv);
    tst_replace_file test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_replace_file.moc"
