#include "core/settings/config_settings.h"
#include "desktop/desktop.h"
#include "desktop/installed_program.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

namespace {

const QString kShown = u"Normal"_s;
const QString kMinimized = u"Iconic"_s;
const QString kHidden; // a window that is withdrawn has no state

const QString kWatcher = u"org.kde.StatusNotifierWatcher"_s;
const QString kWatcherPath = u"/StatusNotifierWatcher"_s;

// A host that embeds icons, at the lower right corner of the screen.
class Trayer {
public:
    Trayer() { Start(); }
    ~Trayer() { End(); }
    Q_DISABLE_COPY_MOVE(Trayer)

    void Start() {
        process_.setStandardErrorFile(QProcess::nullDevice());
        process_.start(u"trayer"_s, {u"--edge"_s, u"bottom"_s, u"--align"_s, u"right"_s, u"--width"_s,
                                     u"20"_s, u"--height"_s, u"24"_s});
        if (!process_.waitForStarted())
            qFatal("trayer cannot be started.");
    }
    void End() {
        process_.kill();
        process_.waitForFinished();
    }

    // The program's icon in it; an empty rectangle without one.
    static QRect Icon() {
        const QRect icon = RectOf(u"\"paneda\": (\"paneda\" \"paneda\")"_s);
        return RectOf(u"\"panel\": (\"panel\" \"trayer\")"_s).contains(icon) ? icon : QRect();
    }

private:
    QProcess process_;
};

int ColoursAt(const QRect& rect) {
    return CountColours(QGuiApplication::primaryScreen()
                            ->grabWindow(0, rect.x(), rect.y(), rect.width(), rect.height())
                            .toImage());
}

// A desktop whose tray takes status notifiers.
class NotifierHost : public QDBusVirtualObject {
public:
    QString Item; // the service of the last one that came

    explicit NotifierHost(bool hasHost)
        : hasHost_(hasHost), bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"host"_s)) {
        if (!bus_.registerVirtualObject(kWatcherPath, this) || !bus_.registerService(kWatcher))
            qFatal("The bus takes no watcher.");
    }
    ~NotifierHost() override {
        bus_.unregisterService(kWatcher);
        bus_.unregisterObject(kWatcherPath);
        QDBusConnection::disconnectFromBus(u"host"_s);
    }
    Q_DISABLE_COPY_MOVE(NotifierHost)

    void HostComes() {
        hasHost_ = true;
        bus_.send(QDBusMessage::createSignal(kWatcherPath, kWatcher, u"StatusNotifierHostRegistered"_s));
    }

    QString introspect(const QString&) const override {
        return u"<interface name=\"%1\"><property name=\"IsStatusNotifierHostRegistered\" type=\"b\" "
               "access=\"read\"/></interface>"_s.arg(kWatcher);
    }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
        if (call.member() == u"Get")
            return bus.send(call.createReply(QVariant::fromValue(QDBusVariant(hasHost_))));
        if (call.member() != u"RegisterStatusNotifierItem")
            return false;
        Item = call.arguments().value(0).toString();
        return bus.send(call.createReply());
    }

    // What the item answers, in the tool's words.
    QString Ask(const QString& path, const QString& method, const QStringList& arguments) const {
        return ToolOutput(u"dbus-send"_s,
                          QStringList{u"--session"_s, u"--print-reply"_s, u"--dest="_s + Item, path, method} +
                              arguments);
    }
    QString Property(const QString& name) const {
        return Ask(u"/StatusNotifierItem"_s, u"org.freedesktop.DBus.Properties.Get"_s,
                   {u"string:org.kde.StatusNotifierItem"_s, u"string:"_s + name});
    }
    // The item's menu with all its entries.
    QString Menu() const {
        return Ask(u"/MenuBar"_s, u"com.canonical.dbusmenu.GetLayout"_s,
                   {u"int32:0"_s, u"int32:-1"_s, u"array:string:"_s});
    }
    void Choose(const QString& caption) const {
        static const QRegularExpression entry(u"int32 (\\d+)\\s+array \\[((?!int32).)*?string \"_?%1\""_s.arg(
                                                  QRegularExpression::escape(caption)),
                                              QRegularExpression::DotMatchesEverythingOption);
        Ask(u"/MenuBar"_s, u"com.canonical.dbusmenu.Event"_s,
            {u"int32:"_s + entry.match(Menu()).captured(1), u"string:clicked"_s, u"variant:string:"_s,
             u"uint32:0"_s});
    }

private:
    bool hasHost_;
    QDBusConnection bus_;
};

// A program that nothing but its tray icon calls, and that begins hidden.
void PrepareHidden(InstalledProgram& program) {
    program.CompleteStore();
    program.SetRecords({{kRecordHotkeyEnabled, false}, {kRecordMouseTriggerEnabled, false}});
    program.AddFile(u"Launcher/setting.ini"_s, "[Properties]\nhide on startup=1\n");
}

} // namespace

class tst_desktop_tray : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY2(IsPrivateDesktop(), "run this through tools/with-desktop"); }
    void embedded();
    void notifier();
};

void tst_desktop_tray::embedded() {
    InstalledProgram program;
    PrepareHidden(program);
    QVERIFY(program.Start());
    // Without a tray the panel stays in the list of windows; a tray that comes late takes it from there.
    QVERIFY(program.PanelBecomes(kMinimized));
    Trayer trayer;
    QTRY_VERIFY(Trayer::Icon().width() >= 16 && Trayer::Icon().height() >= 16);
    QVERIFY(program.PanelBecomes(kHidden));
    QTRY_VERIFY(ColoursAt(Trayer::Icon()) > 8);
    ClickAt(Trayer::Icon().center(), 1);
    QVERIFY(program.PanelBecomes(kShown));

    // The tray dies while the panel is hidden, and comes back.
    ClickAt(program.HideSpot(), 1);
    QVERIFY(program.PanelBecomes(kHidden));
    trayer.End();
    QVERIFY(program.PanelBecomes(kMinimized));
    trayer.Start();
    QTRY_VERIFY(Trayer::Icon().width() >= 16);
    QVERIFY(program.PanelBecomes(kHidden));
    ClickAt(Trayer::Icon().center(), 1);
    QVERIFY(program.PanelBecomes(kShown));
    // A press is no toggle: it brings the panel to the front.
    ClickAt(Trayer::Icon().center(), 1);
    QVERIFY(program.ShowPanel());

    // The tip comes by itself over the icon.
    const QRect place = Trayer::Icon();
    const auto hasTip = [] {
        const QString windows = ToolOutput(u"xwininfo"_s, {u"-root"_s, u"-tree"_s});
        return windows.contains(
            QRegularExpression(u"\"paneda\": \\(\"paneda\" \"paneda\"\\)  [2-9]\\d\\dx"_s));
    };
    MoveMouse({100, 900});
    QTRY_VERIFY(!hasTip());
    MoveMouse(place.center() - QPoint(2, 0));
    MoveMouse(place.center());
    QTRY_VERIFY(hasTip());
    QVERIFY(program.Close());
    QTRY_VERIFY(Trayer::Icon().isEmpty());
}

void tst_desktop_tray::notifier() {
    InstalledProgram program;
    PrepareHidden(program);
    QVERIFY(program.Start());
    QVERIFY(program.PanelBecomes(kMinimized));
    {
        // Somebody who keeps the list of icons and shows none is no tray.
        NotifierHost host(false);
        QTest::qWait(200);
        QCOMPARE(WindowState(program.Panel()), kMinimized);
        host.HostComes();
        QTRY_VERIFY(!host.Item.isEmpty());
        QVERIFY(program.PanelBecomes(kHidden));
        const QString tip = u"Paneda Launcher "_s;
        QVERIFY2(host.Property(u"ToolTip"_s).contains(tip), qPrintable(host.Property(u"ToolTip"_s)));
        QVERIFY(host.Menu().contains(u"Countdown"));
        host.Choose(u"Show"_s);
        QVERIFY(program.PanelBecomes(kShown));
        ClickAt(program.HideSpot(), 1);
        QVERIFY(program.PanelBecomes(kHidden));
    }
    QVERIFY(program.PanelBecomes(kMinimized));
    NotifierHost host(true);
    QTRY_VERIFY(!host.Item.isEmpty());
    QVERIFY(program.PanelBecomes(kHidden));
    host.Ask(u"/StatusNotifierItem"_s, u"org.kde.StatusNotifierItem.Activate"_s,
             {u"int32:1"_s, u"int32:1"_s});
    QVERIFY(program.PanelBecomes(kShown));
    QVERIFY(program.Close());
}

QTEST_MAIN(tst_desktop_tray)
#include "tst_desktop_tray.moc"
