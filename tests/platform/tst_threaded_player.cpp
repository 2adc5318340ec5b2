#include "platform/threaded_player.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QSemaphore>
#include <QTest>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

// What workers were told; outlives them.
class Diary {
public:
    QSemaphore Held; // a sound named "hang" waits for it

    void Note(const QString& line) {
        const QMutexLocker lock(&mutex_);
        lines_.append(line);
    }
    QStringList Lines() const {
        const QMutexLocker lock(&mutex_);
        return lines_;
    }

private:
    mutable QMutex mutex_;
    QStringList lines_;
};

class NotingWorker final : public SoundWorker {
public:
    NotingWorker(std::shared_ptr<Diary> diary, std::shared_ptr<SoundBoard> board)
        : diary_(std::move(diary)), board_(std::move(board)) {}
    ~NotingWorker() override { diary_->Note(u"gone"_s); }

    void Play(const QString& path, const QString& alias, int ticket) override {
        diary_->Note(u"play "_s + path + u' ' + alias);
        if (path == u"hang")
            diary_->Held.acquire();
        if (path == u"short")
            board_->End(alias, ticket);
    }
    void Stop(const QString& alias) override { diary_->Note(u"stop "_s + alias); }
    void Close(const QString& alias) override { diary_->Note(u"close "_s + alias); }
    void CloseAll() override { diary_->Note(u"close all"_s); }

private:
    std::shared_ptr<Diary> diary_;
    std::shared_ptr<SoundBoard> board_;
};

} // namespace

class tst_threaded_player : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void handsOver();
    void hangingWorker();

private:
    std::unique_ptr<ThreadedPlayer> Make();

    std::shared_ptr<Diary> diary_;
    int made_ = 0;
};

void tst_threaded_player::init() {
    diary_ = std::make_shared<Diary>();
    made_ = 0;
}

std::unique_ptr<ThreadedPlayer> tst_threaded_player::Make() {
    return std::make_unique<ThreadedPlayer>([this](std::shared_ptr<SoundBoard> board) {
        ++made_;
        return std::make_unique<NotingWorker>(diary_, std::move(board));
    });
}

void tst_threaded_player::handsOver() {
    auto player = Make();
    player->Stop(u"a"_s);
    player->Close(u"a"_s);
    player->CloseAll();
    QCOMPARE(made_, 0);
    player->Play(u"long"_s, u"a"_s);
    player->Play(u"short"_s, u"b"_s);
    player->Stop(u"a"_s);
    player->Close(u"c"_s);
    const QStringList expected{u"play long a"_s, u"play short b"_s, u"stop a"_s, u"close c"_s};
    QTRY_COMPARE(diary_->Lines(), expected);
    QCOMPARE(player->Status(u"b"_s), u"stopped"_s);
    player->CloseAll();
    QTRY_COMPARE(diary_->Lines(), expected + QStringList{u"close all"_s});
    QCOMPARE(player->Status(u"b"_s), QString());
    player.reset();
    QCOMPARE(diary_->Lines().last(), u"gone"_s);
    QCOMPARE(made_, 1);
}

// A device that hangs holds up neither the panel nor, for long, the end of the program; and what it does when
// it comes round harms nobody.
void tst_threaded_player::hangingWorker() {
    auto player = Make();
    QElapsedTimer clock;
    clock.start();
    player->Play(u"hang"_s, u"a"_s);
    QTRY_COMPARE(diary_->Lines().size(), 1);
    player->Play(u"hang"_s, u"b"_s);
    player->Stop(u"a"_s);
    QCOMPARE(player->Status(u"a"_s), u"stopped"_s);
    QVERIFY2(clock.elapsed() < 1000, "a call waited for the device");
    clock.start();
    player.reset();
    QVERIFY2(clock.elapsed() < 1000, "the end waited for the device");
    QCOMPARE(diary_->Lines(), QStringList{u"play hang a"_s});
    diary_->Held.release(2);
    QTRY_COMPARE(diary_->Lines().last(), u"gone"_s);
}

QTEST_GUILESS_MAIN(tst_threaded_player)
#include "tst_threaded_player.moc"
