#include "core/panel/triggers.h"
#include "platform/linux/dbus_requests.h"
#include "platform/linux/linux_opener.h"
#include "platform/linux/portal_hotkey.h"
#include "platform/linux/session_bus.h"
#include "support/link_builder.h"
#include "support/store_builder.h"

#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>

#include <future>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

const QString kName = u"local.paneda.Launcher"_s;
const QString kPortalName = u"org.freedesktop.portal.Desktop"_s;
const QString kPortalPath = u"/org/freedesktop/portal/desktop"_s;
const QString kShortcuts = u"org.freedesktop.portal.GlobalShortcuts"_s;
constexpr int kSpace = 32;

// Another process on the bus, as far as the bus can tell.
QDBusConnection Other() {
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s);
}

// A program that is not the one which was asked.
QDBusConnection Stranger() {
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"stranger"_s);
}

// What shows notifications: keeps what it was asked to show.
class Notifications : public QDBusVirtualObject {
public:
    QStringList Texts;

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
        if (call.member() != u"Notify" || call.signature() != u"susssasa{sv}i")
            return false;
        Texts.append(call.arguments().at(4).toString());
        return bus.send(call.createReply(1U));
    }
};

// A desktop's portal: answers as it is told and keeps what it was asked.
class Portal : public QDBusVirtualObject {
public:
    uint SessionAnswer = 0;
    uint BindAnswer = 0;
    bool HasShortcuts = true;
    QStringList Calls;
    QString Session;
    QString Client;

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
        Calls.append(call.member());
        if (call.member() == u"Close")
            return true;
        if (!HasShortcuts)
            return bus.send(call.createErrorReply(QDBusError::UnknownInterface, u"no such interface"_s));
        Client = call.service();
        return call.member() == u"CreateSession" ? Create(call, bus) : Bind(call, bus);
    }

    void Activate(const QDBusConnection& bus, const QString& session, const QString& shortcut) const {
        QDBusMessage signal = QDBusMessage::createSignal(kPortalPath, kShortcuts, u"Activated"_s);
        signal.setArguments({QVariant::fromValue(QDBusObjectPath(session)), shortcut, qulonglong(1),
                             QVariantMap{{u"activation_token"_s, u"t"_s}}});
        bus.send(signal);
    }

    void CloseSession(const QDBusConnection& bus) const {
        bus.send(QDBusMessage::createSignal(Session, u"org.freedesktop.portal.Session"_s, u"Closed"_s));
    }

private:
    QString SenderPart() const { return QString(Client).mid(1).replace(u'.', u'_'); }

    bool Answer(const QDBusMessage& call, const QDBusConnection& bus, const QString& token, uint response,
                const QVariantMap& results) const {
        const QString path = u"%1/request/%2/%3"_s.arg(kPortalPath, SenderPart(), token);
        bus.send(call.createReply(QVariant::fromValue(QDBusObjectPath(path))));
        QDBusMessage signal = QDBusMessage::createTargetedSignal(
            Client, path, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        signal.setArguments({response, results});
        return bus.send(signal);
    }

    bool Create(const QDBusMessage& call, const QDBusConnection& bus) {
        if (call.signature() != u"a{sv}")
            return bus.send(call.createErrorReply(QDBusError::InvalidSignature, call.signature()));
        const QVariantMap options = qdbus_cast<QVariantMap>(call.arguments().at(0));
        Session = u"%1/session/%2/%3"_s.arg(kPortalPath, SenderPart(),
                                            options.value(u"session_handle_token"_s).toString());
        return Answer(call, bus, options.value(u"handle_token"_s).toString(), SessionAnswer,
                      {{u"session_handle"_s, Session}});
    }

    bool Bind(const QDBusMessage& call, const QDBusConnection& bus) {
        if (call.signature() != u"oa(sa{sv})sa{sv}")
            return bus.send(call.createErrorReply(QDBusError::InvalidSignature, call.signature()));
        const auto list = call.arguments().at(1).value<QDBusArgument>();
        QString id;
        QVariantMap shortcut;
        list.beginArray();
        list.beginStructure();
        list >> id >> shortcut;
        list.endStructure();
        list.endArray();
        Calls.append(call.arguments().at(0).value<QDBusObjectPath>().path() == Session ? id : u"stray"_s);
        Calls.append(shortcut.value(u"preferred_trigger"_s).toString());
        const QVariantMap options = qdbus_cast<QVariantMap>(call.arguments().at(3));
        return Answer(call, bus, options.value(u"handle_token"_s).toString(), BindAnswer, {});
    }
};

} // namespace

class tst_session_bus : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void requests();
    void waitsForItsTurn();
    void noBus();
    void portalShortcut();
    void portalSaysNo();
    void noPortal();
    void notice();

private:
    void OfferPortal() {
        QDBusConnection bus = Other();
        QVERIFY(bus.registerVirtualObject(kPortalPath, &portal_, QDBusConnection::SubPath));
        QVERIFY(bus.registerService(kPortalName));
    }

    Portal portal_;
};

void tst_session_bus::init() {
    QVERIFY(SessionBus());
    portal_.Calls.clear();
    portal_.SessionAnswer = portal_.BindAnswer = 0;
    portal_.HasShortcuts = true;
}

void tst_session_bus::cleanup() {
    Other().unregisterService(kPortalName);
    Other().unregisterObject(kPortalPath, QDBusConnection::UnregisterTree);
}

void tst_session_bus::requests() {
    DBusRequests requests;
    QStringList texts;
    QVERIFY(requests.Listen(u"/a/paneda"_s, [&texts](const QString& text) { texts.append(text); }));
    QTRY_VERIFY(Other().interface()->isServiceRegistered(kName));
    for (const char* text : {"show", "", "\xc3\xa9 [x] \"y\""}) {
        QProcess sender;
        sender.start(u"dbus-send"_s, {u"--session"_s, u"--print-reply"_s, u"--dest="_s + kName, u"/Panel"_s,
                                      kName + u".Execute"_s, u"string:"_s + QString::fromUtf8(text)});
        QTRY_COMPARE(sender.state(), QProcess::NotRunning);
        QCOMPARE(sender.exitCode(), 0);
        QTRY_COMPARE(texts.value(0, u"none"_s), QString::fromUtf8(text));
        texts.clear();
    }
}

void tst_session_bus::waitsForItsTurn() {
    QVERIFY(Other().registerService(kName));
    {
        DBusRequests requests;
        int calls = 0;
        QVERIFY(requests.Listen(u"/a/paneda"_s, [&calls](const QString&) { ++calls; }));
        // A second start reaches its own executable, not the one that has the name.
        auto sent = std::async(std::launch::async, [] { return DBusRequests().Send(u"/a/paneda"_s); });
        QTRY_COMPARE(calls, 1);
        QVERIFY(sent.get() && !DBusRequests().Send(u"/b/paneda"_s));
        QTest::qWait(200);
        QCOMPARE(Other().interface()->serviceOwner(kName).value(), Other().baseService());
        QVERIFY(Other().unregisterService(kName));
        QTRY_COMPARE(Other().interface()->serviceOwner(kName).value(), SessionBus()->baseService());
    }
    QTRY_VERIFY(!Other().interface()->isServiceRegistered(kName));
}

void tst_session_bus::noBus() {
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("XDG_RUNTIME_DIR", "/none");
    DBusRequests requests;
    PortalHotkey hotkey;
    const bool listens = requests.Listen(u"/a/paneda"_s, [](const QString&) {});
    const Hotkey::Answer answer = hotkey.Register(0, kSpace, [] {});
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    qputenv("XDG_RUNTIME_DIR", folder);
    QVERIFY(!listens);
    QCOMPARE(answer, Hotkey::Answer::Refused);
    QCOMPARE(hotkey.Kind(), Hotkey::Means::None);
}

void tst_session_bus::portalShortcut() {
    OfferPortal();
    int count = 0;
    PortalHotkey hotkey;
    QCOMPARE(hotkey.Register(kHotkeyCtrl | kHotkeyAlt, 0, {}), Hotkey::Answer::NoSuchKey);
    QCOMPARE(hotkey.Register(kHotkeyCtrl | kHotkeyAlt, kSpace, [&count] { ++count; }), Hotkey::Answer::Asked);
    QTRY_COMPARE(hotkey.State(), Hotkey::Answer::Registered);
    const QStringList asked{u"CreateSession"_s, u"BindShortcuts"_s, u"show"_s, u"CTRL+ALT+space"_s};
    QCOMPARE(portal_.Calls, asked);
    portal_.Activate(Other(), portal_.Session + u'2', u"show"_s);
    portal_.Activate(Other(), portal_.Session, u"hide"_s);
    portal_.Activate(Stranger(), portal_.Session, u"show"_s);
    portal_.CloseSession(Stranger());
    QVERIFY(Stranger().interface()->isServiceRegistered(kPortalName)); // what was sent has arrived
    portal_.Activate(Other(), portal_.Session, u"show"_s);
    QTRY_COMPARE(count, 1);
    // The same combination keeps its session, for whoever listens now.
    int later = 0;
    QCOMPARE(hotkey.Register(kHotkeyCtrl | kHotkeyAlt, kSpace, [&later] { ++later; }),
             Hotkey::Answer::Registered);
    portal_.Activate(Other(), portal_.Session, u"show"_s);
    QTRY_COMPARE(later, 1);
    QCOMPARE(portal_.Calls, asked);
    hotkey.Unregister();
    QTRY_COMPARE(portal_.Calls.last(), u"Close"_s);
    portal_.Activate(Other(), portal_.Session, u"show"_s);
    QTest::qWait(200);
    QCOMPARE(count + later, 2);
}

void tst_session_bus::portalSaysNo() {
    OfferPortal();
    PortalHotkey hotkey;
    // No session; the user cancels.
    for (const auto& [session, bind] : {std::pair(2U, 0U), {0U, 1U}}) {
        portal_.SessionAnswer = session;
        portal_.BindAnswer = bind;
        QCOMPARE(hotkey.Register(0, kSpace, [] {}), Hotkey::Answer::Asked);
        QTRY_COMPARE(hotkey.State(), Hotkey::Answer::Refused);
        QCOMPARE(hotkey.Kind(), Hotkey::Means::Portal);
    }
    // It may be asked again, and may end the session.
    portal_.BindAnswer = 0;
    QCOMPARE(hotkey.Register(0, kSpace, [] {}), Hotkey::Answer::Asked);
    QTRY_COMPARE(hotkey.State(), Hotkey::Answer::Registered);
    portal_.CloseSession(Other());
    QTRY_COMPARE(hotkey.State(), Hotkey::Answer::Refused);
}

void tst_session_bus::noPortal() {
    portal_.HasShortcuts = false;
    for (const bool offered : {false, true}) {
        if (offered)
            OfferPortal();
        PortalHotkey hotkey;
        QCOMPARE(hotkey.Register(0, kSpace, [] {}), Hotkey::Answer::Asked);
        QTRY_COMPARE(hotkey.Kind(), Hotkey::Means::None);
        QCOMPARE(hotkey.Register(0, kSpace, [] {}), Hotkey::Answer::Refused);
    }
}

// A shortcut that leads nowhere is told by the desktop, and the launch does not wait for that.
void tst_session_bus::notice() {
    const QString path = u"/org/freedesktop/Notifications"_s;
    const QString name = u"org.freedesktop.Notifications"_s;
    Notifications shown;
    QVERIFY(Other().registerVirtualObject(path, &shown));
    QVERIFY(Other().registerService(name));
    test::StoreBuilder store;
    store.AddFile(u"<a> & b.lnk"_s, test::MakeLink({.LocalPath = u"Q:\\x.exe"_s}));
    const LaunchPaths paths{DriveMap::FromMountPoints({}), u"C:\\"_s};
    LinuxOpener opener;
    opener.Open(
        {LaunchRequest::Action::OpenTarget, store.Path(u"<a> & b.lnk"_s), {}, {}, ShowCommand::Normal},
        paths);
    QTRY_COMPARE(shown.Texts.size(), 1);
    const QString begin =
        store.AppFolder() + u"/&lt;a&gt; &amp; b.lnk: The shortcut points to \"Q:\\x.exe\""_s;
    QVERIFY2(shown.Texts[0].startsWith(begin), qPrintable(shown.Texts[0]));
    Other().unregisterService(name);
    Other().unregisterObject(path);
}

QTEST_GUILESS_MAIN(tst_session_bus)
#include "tst_session_bus.moc"
