#include "platform/web_downloader.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <map>

using namespace paneda;

namespace {

const QHostAddress kOutside(QStringLiteral("127.0.0.1"));
const QHostAddress kInside(QStringLiteral("127.0.0.2"));

// Answers each path in another way, some of them badly.
class StrangeServer : public QTcpServer {
public:
    StrangeServer() {
        listen(QHostAddress::AnyIPv4);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            ++Connections;
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                Request += socket->readAll();
                if (Request.endsWith("\r\n\r\n"))
                    Answer(*socket, std::exchange(Request, {}));
            });
        });
    }

    QString Address(const QString& host, const QString& path) const {
        return QStringLiteral("http://%1:%2/%3").arg(host).arg(serverPort()).arg(path);
    }

    QByteArray Request;
    QByteArray Host;          // of the last request
    QHostAddress ConnectedTo; // by the last request
    int Connections = 0;
    qint64 Sent = 0; // by an endless answer, which ends at a million bytes if it is taken in
    std::map<QByteArray, QByteArray> Answers; // by path

private:
    void Answer(QTcpSocket& socket, const QByteArray& request) {
        const QByteArray path = request.split(' ').at(1);
        const qsizetype host = request.indexOf("Host: ") + 6;
        Host = request.sliced(host, request.indexOf('\r', host) - host);
        ConnectedTo = socket.localAddress();
        if (path == "/silent")
            return;
        if (path == "/endless")
            return Repeat(socket, "HTTP/1.1 200 OK\r\n\r\n", QByteArray(65536, 'x'), 0);
        if (path == "/endless-head")
            return Repeat(socket, "HTTP/1.1 200 OK\r\n", "X: " + QByteArray(65536, 'x') + "\r\n", 0);
        if (path == "/drip")
            return Repeat(socket, "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n", "x", 50);
        socket.write(Answers.at(path));
        socket.disconnectFromHost();
    }

    void Repeat(QTcpSocket& socket, const QByteArray& head, const QByteArray& part, int pause) {
        socket.write(head);
        auto* timer = new QTimer(&socket);
        connect(timer, &QTimer::timeout, &socket, [this, &socket, part] {
            if (socket.isOpen() && Sent < 1'000'000 && socket.bytesToWrite() < 4 * part.size())
                Sent += socket.write(part);
        });
        timer->start(pause);
    }
};

} // namespace

class tst_Downloader : public QObject {
    Q_OBJECT

    // "outside" and "inside" are hosts with one address each; the first answer for "turncoat" is outside, all
    // others inside; "two-faced" has both.
    WebDownloader::Surroundings Surroundings() {
        auto& lookUps = lookUps_;
        return {[&lookUps](const QString& host, QObject* context, auto found) {
                    QList<QHostAddress> addresses;
                    if (host == u"outside" || (host == u"turncoat" && lookUps == 0))
                        addresses = {kOutside};
                    else if (host == u"inside" || host == u"turncoat")
                        addresses = {kInside};
                    else if (host == u"two-faced")
                        addresses = {kInside, kOutside};
                    ++lookUps;
                    QMetaObject::invokeMethod(
                        context, [addresses, found] { found(addresses); }, Qt::QueuedConnection);
                    return lookUps;
                },
                [](int) {}, [](const QHostAddress& address) { return address == kInside; }};
    }

    // "ok:" and the contents, or the reason.
    QString Fetch(const QString& address, const DownloadLimits& limits = {}) {
        lookUps_ = 0;
        WebDownloader downloader(limits, Surroundings());
        QString outcome;
        const auto download = downloader.Start(address, [&outcome](const DownloadResult& result) {
            outcome = result ? QStringLiteral("ok:") + QString::fromLatin1(*result) : result.error();
        });
        if (!outcome.isEmpty())
            return QStringLiteral("called before Start returned");
        [&outcome] { QTRY_VERIFY_WITH_TIMEOUT(!outcome.isEmpty(), 8000); }();
        return outcome;
    }

    int lookUps_ = 0;

private Q_SLOTS:
    void answers_data();
    void answers();
    void nothingIsTakenWithoutMeasure();
    void connectsToWhatWasChecked();
    void localAddresses();
};

void tst_Downloader::answers_data() {
    QTest::addColumn<QString>("host");
    QTest::addColumn<QByteArray>("answer"); // %1 stands for the server's port
    QTest::addColumn<QString>("outcome");   // how it begins

    const auto row = [](const char* name, const char* host, const QByteArray& answer, const char* outcome) {
        QTest::newRow(name) << QString::fromLatin1(host) << answer << QString::fromLatin1(outcome);
    };
    const auto moved = [](const char* to) -> QByteArray {
        return QByteArray("HTTP/1.1 302 Moved\r\nLocation: ") + to + "\r\n\r\n";
    };
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    row("plain", "outside", ok + "\r\nabc", "ok:abc");
    row("typed address inside", "inside", ok + "\r\nabc", "ok:abc");
    row("longer than it says", "outside", ok + "Content-Length: 2\r\n\r\nabc", "ok:ab");
    row("shorter than it says", "outside", ok + "Content-Length: 9\r\n\r\nabc", "Connection closed");
    row("packed unasked", "outside", ok + "Content-Encoding: gzip\r\n\r\nabc", "ok:abc");
    row("missing", "outside", "HTTP/1.1 404 No\r\n\r\nabc", "Error transferring");
    row("empty", "outside", "HTTP/1.1 204 None\r\n\r\n", "The server answered with 204.");
    row("no HTTP", "outside", "abc\r\n\r\n", "");
    row("moved within the host", "outside", moved("/end"), "ok:end");
    row("moved inside from inside", "inside", moved("http://inside:%1/end"), "ok:end");
    row("moved outside from inside", "inside", moved("http://outside:%1/end"), "ok:end");
    row("moved inside", "outside", moved("http://inside:%1/end"), "The server sends the request on into");
    row("moved to an address inside", "outside", moved("http://127.0.0.2:%1/end"), "The server");
    row("moved to both", "outside", moved("http://two-faced:%1/end"), "ok:end");
    row("moved to itself and then inside", "turncoat", moved("http://turncoat:%1/end"), "The server sends");
    row("moved in a ring", "outside", moved("/answer"), "The server sends the request on too often.");
    row("moved to a file", "outside", moved("file:///etc/hostname"), "Only http and https");
    row("moved to nothing", "outside", moved("http://"), "Only http and https");
    row("unknown host", "nowhere", {}, "The server was not found.");
}

void tst_Downloader::answers() {
    QFETCH(QString, host);
    QFETCH(QByteArray, answer);
    QFETCH(QString, outcome);

    StrangeServer server;
    server.Answers["/answer"] = answer.replace("%1", QByteArray::number(server.serverPort()));
    server.Answers["/end"] = "HTTP/1.1 200 OK\r\n\r\nend";
    const QString result = Fetch(server.Address(host, QStringLiteral("answer")));
    QVERIFY2(!result.isEmpty() && result.startsWith(outcome), qPrintable(result));
    QVERIFY(outcome.startsWith(u"ok:") == result.startsWith(u"ok:"));
    QVERIFY(server.Connections <= 6);
}

void tst_Downloader::nothingIsTakenWithoutMeasure() {
    StrangeServer server;
    const auto fetch = [&](const char* path) {
        return Fetch(server.Address(QStringLiteral("outside"), QLatin1String(path)), {5, 400, 100'000});
    };
    QCOMPARE(fetch("endless"), QStringLiteral("The file is larger than 100000 bytes."));
    const QString late = QStringLiteral("The server took too long to answer.");
    for (const char* path : {"silent", "drip"})
        QCOMPARE(fetch(path), late);
    server.Sent = 0;
    QVERIFY(!fetch("endless-head").startsWith(u"ok:"));
    for (const char* address : {"ftp://outside/x", "file:///etc/hostname", "C:\\icon.ico", "http:", ""})
        QCOMPARE(Fetch(QLatin1String(address)), QStringLiteral("Only http and https addresses are fetched."));
}

void tst_Downloader::connectsToWhatWasChecked() {
    StrangeServer server;
    server.Answers["/answer"] =
        "HTTP/1.1 302 Moved\r\nLocation: http://two-faced:" + QByteArray::number(server.serverPort()) +
        "/end\r\n\r\n";
    server.Answers["/end"] = "HTTP/1.1 200 OK\r\n\r\nend";
    QCOMPARE(Fetch(server.Address(QStringLiteral("outside"), QStringLiteral("answer"))),
             QStringLiteral("ok:end"));
    QCOMPARE(server.ConnectedTo, kOutside);
    QCOMPARE(server.Host, "two-faced:" + QByteArray::number(server.serverPort()));

    WebDownloader downloader({}, Surroundings());
    bool called = false;
    auto download = downloader.Start(server.Address(QStringLiteral("outside"), QStringLiteral("end")),
                                     [&called](const DownloadResult&) { called = true; });
    download.reset();
    QTest::qWait(100);
    QVERIFY(!called);
}

void tst_Downloader::localAddresses() {
    const std::vector<Subnet> own{{QHostAddress(QStringLiteral("2a01:4f8:1:2::7")), 64},
                                  {QHostAddress(QStringLiteral("93.184.216.9")), 24}};
    for (const char* address : {"127.0.0.1",
                                "127.9.9.9",
                                "0.0.0.0",
                                "10.1.2.3",
                                "172.31.255.255",
                                "192.168.0.1",
                                "169.254.169.254",
                                "100.64.0.1",
                                "224.0.0.1",
                                "255.255.255.255",
                                "::",
                                "::1",
                                "fe80::1",
                                "fd00::1",
                                "ff02::1",
                                "::ffff:10.0.0.1",
                                "::127.0.0.1",
                                "64:ff9b::a00:1",
                                "2002:c0a8:1::1",
                                "93.184.216.34",
                                "::ffff:93.184.216.1",
                                "2a01:4f8:1:2:ffff::1"})
        QVERIFY2(IsLocalAddress(QHostAddress(QLatin1String(address)), own), address);
    for (const char* address : {"8.8.8.8", "172.32.0.1", "93.184.217.1", "2a01:4f8:1:3::1", "::ffff:8.8.8.8",
                                "64:ff9b::808:808", "2002:808:808::1"})
        QVERIFY2(!IsLocalAddress(QHostAddress(QLatin1String(address)), own), address);
}

QTEST_GUILESS_MAIN(tst_Downloader)

#include "tst_downloader.moc"
