#include "core/store/catalogue_loader.h"
#include "organiser/organiser.h"
#include "support/kill_shim/interrupted_step.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

const QString kGroup = u"/Setting/[001] A/[001] G/"_s;

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write %s", qPrintable(path));
}

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Two of the five have one title, so that they have to make room for each other.
void Prepare(const QString& folder) {
    QDir().mkpath(folder + kGroup);
    QDir().mkpath(folder + u"/Setting/[001] A/[002] Other"_s);
    for (const char* name :
         {"[001] a [].x", "[002] b [1].url", "[003] c [].x", "[004] d [].x", "[005] a [].x"})
        WriteFile(folder + kGroup + QLatin1String(name), name);
    WriteFile(folder + kGroup + u"[005] a [].png"_s, "picture");
    WriteFile(folder + kGroup + u"[005] a [].ico"_s, "second");
    WriteFile(folder + u"/source.ico"_s, "new");
}

// The buttons that a start shows, by their contents.
QStringList Shown(const QString& folder) {
    QStringList shown;
    for (const CategoryEntry& category : LoadCatalogue({u"C:\\x"_s, folder, {}, false})) {
        for (const GroupEntry& group : category.Groups) {
            for (const ButtonEntry& button : group.Buttons) {
                const QString name = button.Path.sliced(button.Path.lastIndexOf(u'\\') + 1);
                shown.append(QString::fromUtf8(Bytes(folder + u"/Setting/"_s + category.FolderName + u'/' +
                                                     group.FolderName + u'/' + name)));
            }
        }
    }
    shown.sort();
    return shown;
}

// What is wrong with the pictures of the last button, of which it shows the first.
QString PictureProblem(const QString& folder, bool isReplaced, bool isDone) {
    const QDir group(folder + kGroup);
    QList<QByteArray> pictures;
    for (const QString& name : group.entryList({u"*.png"_s, u"*.ico"_s}))
        pictures.append(Bytes(group.filePath(name)));
    if (!pictures.contains("second") ||
        !(pictures.contains("picture") || (isReplaced && pictures.contains("new"))))
        return u"A picture is gone."_s;
    const QString shown = PictureOf(u"[005] a [].x"_s, group.entryList());
    const bool isShown = !isReplaced || Bytes(group.filePath(shown)) == "new";
    return isShown || !isDone ? QString() : u"Another picture is shown: "_s + shown;
}

int RunOn(const QString& folder, const std::function<FileResult(Organiser& lists)>& act) {
    Organiser lists(folder + u"/Setting"_s);
    lists.Load();
    lists.Select(StoreLevel::Buttons, 4);
    return act(lists) ? 0 : 1;
}

} // namespace

class tst_organiser_kills : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachStep_data() {
        QTest::addColumn<int>("gone"); // buttons that may be gone
        QTest::addColumn<int>("more"); // buttons that may be there
        QTest::newRow("move") << 0 << 0;
        QTest::newRow("sort") << 0 << 0;
        QTest::newRow("picture") << 0 << 0;
        QTest::newRow("take over") << 0 << 1;
        QTest::newRow("delete") << 1 << 0;
        QTest::newRow("delete group") << 5 << 0;
    }

    void eachStep() {
        QFETCH(const int, gone);
        QFETCH(const int, more);
        const QString step = QString::fromLatin1(QTest::currentDataTag());
        int kills = 0;
        const auto check = [&](const QString& folder, const StepEnd& end) -> QString {
            kills += end.Killed ? 1 : 0;
            const qsizetype count = Shown(folder).size();
            if (count != 5 && count != 5 - gone && count != 5 + more)
                return u"Shown: "_s + Shown(folder).join(u", "_s);
            if (!end.Killed && end.Status != 0)
                return u"It failed."_s;
            const QString problem =
                gone > 0 ? QString() : PictureProblem(folder, step == u"picture", !end.Killed);
            if (!problem.isEmpty())
                return problem;
            // The file is in one place at least.
            if (!QFileInfo::exists(folder + u"/source.ico"_s) && count != 5 + more)
                return u"The source is gone."_s;
            Organiser(folder + u"/Setting"_s).Load();
            const QDir category(folder + u"/Setting/[001] A"_s);
            return category.entryList({u".paneda-deleted*"_s}, QDir::AllEntries | QDir::Hidden).join(u' ');
        };
        QCOMPARE(FirstObjection(step, {}, Prepare, check), QString());
        QVERIFY(kills > 1);
    }
};

int main(int argc, char** argv) {
    const Steps steps{
        {u"move"_s,
         [](const QString& folder) {
             return RunOn(folder, [](Organiser& lists) { return lists.Move(StoreLevel::Buttons, 0); });
         }},
        {u"sort"_s,
         [](const QString& folder) {
             return RunOn(folder, [](Organiser& lists) { return lists.Sort(StoreLevel::Buttons); });
         }},
        {u"picture"_s,
         [](const QString& folder) {
             return RunOn(folder, [&](Organiser& lists) {
                 return lists.SetPicture(folder + u"/source.ico"_s, false);
             });
         }},
        {u"take over"_s,
         [](const QString& folder) {
             return RunOn(folder, [&](Organiser& lists) {
                 return lists.AddButton({u"new.y"_s, folder + u"/source.ico"_s, true});
             });
         }},
        {u"delete"_s,
         [](const QString& folder) {
             return RunOn(folder, [](Organiser& lists) { return lists.Delete(StoreLevel::Buttons); });
         }},
        {u"delete group"_s, [](const QString& folder) {
             return RunOn(folder, [](Organiser& lists) { return lists.Delete(StoreLevel::Groups); });
         }}};
    if (const auto status = RunAsChild(argc, argv, steps))
        return *status;
    const QCoreApplication application(argc, argv);
    tst_organiser_kills test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_organiser_kills.moc"
