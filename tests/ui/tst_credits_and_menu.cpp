#include "core/files/web_addresses.h"
#include "core/text/english_dates.h"
#include "support/store_builder.h"
#include "ui/common/menu_choice.h"
#include "ui/fake_services.h"
#include "ui/panel/frmAbout.h"
#include "ui/panel/frmCredit.h"
#include "ui/panel/frmWait.h"
#include "ui/panel/main_menu.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <QWindow>

using namespace paneda;
using namespace paneda::test;

class TestCreditsAndMenu : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void dates_data();
    void dates();
    void screens();
    void fadeTimes();
    void creditWindow_data();
    void creditWindow();
    void aboutAndWait();
    void mainMenu();
    void opacities();
    void logoMenu();
    void choices_data();
    void choices();
    void helpPages();
};

void TestCreditsAndMenu::dates_data() {
    QTest::addColumn<int>("day");
    QTest::addColumn<QString>("text");
    const auto row = [](int day, const char* text) {
        QTest::addRow("%d", day) << day << QString::fromLatin1(text) + QStringLiteral(" March 0987");
    };
    row(1, "1st"), row(2, "2nd"), row(3, "3rd"), row(4, "4th"), row(11, "11th"), row(12, "12th");
    row(13, "13th"), row(20, "20th"), row(21, "21st"), row(22, "22nd"), row(23, "23rd"), row(31, "31st");
}

void TestCreditsAndMenu::dates() {
    QFETCH(int, day);
    QFETCH(QString, text);
    QCOMPARE(BuiltDateText(QDate(987, 3, day)), text);
}

void TestCreditsAndMenu::screens() {
    AppState state;
    FillEdition(state);
    const QStringList screens = CreditScreens(state);
    for (const QString& screen : screens)
        QVERIFY(screen.count(QStringLiteral("\r\n")) <= 2 && screen.count(u'\n') == screen.count(u'\r'));
    QCOMPARE(screens.first(), QStringLiteral("I have a dream"));
    QVERIFY(screens.contains(QStringLiteral("Paneda Launcher\r\nVersion 2.0\r\nBuilt 26th February 2011")));
    QCOMPARE(screens.mid(screens.size() - 3),
             QStringList({QStringLiteral("May Paneda be with you"), QStringLiteral("Have a nice day :-)"),
                          QString()}));
}

void TestCreditsAndMenu::fadeTimes() {
    CreditFade fade;
    QStringList turns; // "screen brightness interval" wherever the interval is not that of a fade
    int ticks = 0;
    for (int shows = 0; shows < 2;) {
        const CreditStep step = TickCredits(fade, 5);
        ++ticks;
        QVERIFY(fade.Brightness >= 0 && fade.Brightness <= 255);
        if (step.Interval != 1)
            turns.append(QStringLiteral("%1 %2 %3%4%5")
                             .arg(fade.Screen)
                             .arg(fade.Brightness)
                             .arg(step.Interval)
                             .arg(step.StartMusic ? QStringLiteral(" music") : QString(),
                                  step.Finished ? QStringLiteral(" end") : QString()));
        shows += step.Finished ? 1 : 0;
    }
    const auto show = [](const char* music) {
        return QStringList(
            {QStringLiteral("0 255 800"), QStringLiteral("1 0 200"), QStringLiteral("1 255 800"),
             QStringLiteral("2 0 200"), QStringLiteral("2 255 800"), QStringLiteral("3 0 200"),
             QStringLiteral("3 255 2000") + QString::fromLatin1(music), QStringLiteral("4 0 200"),
             QStringLiteral("4 255 800"), QStringLiteral("0 0 200 end")});
    };
    // The music starts once, however often the show runs.
    QCOMPARE(turns, show(" music") + show(""));
    // From 0 to 255 and back in steps of 25: eleven ticks each way.
    QCOMPARE(ticks, 2 * 5 * 22);
}

void TestCreditsAndMenu::creditWindow_data() {
    QTest::addColumn<bool>("music");
    QTest::newRow("with music") << true;
    QTest::newRow("without music") << false;
}

void TestCreditsAndMenu::creditWindow() {
    QFETCH(bool, music);
    StoreBuilder store;
    if (music)
        store.AddFile(QStringLiteral("sound/About.MID"));
    const AppState state = store.State();
    FakeSounds sounds;
    frmCredit credits(state, sounds);
    credits.Form_Load();
    credits.show();
    QCOMPARE(credits.windowTitle(), QStringLiteral("About Paneda Launcher"));
    const auto* label = credits.findChild<QLabel*>(QStringLiteral("Label1"));
    QString shown;
    QRgb brightest = 0;
    for (int tick = 0; tick < 22 * 4; ++tick) {
        credits.Timer1_Timer();
        brightest = std::max(brightest, label->palette().color(QPalette::WindowText).rgb());
        shown += label->text();
    }
    QCOMPARE(brightest, qRgb(255, 255, 255));
    QVERIFY(shown.contains(QStringLiteral("Version 2.0\nBuilt")));
    QCOMPARE(sounds.Calls.size(), music ? 1 : 0);
    // In the case of letters on the disk, where the disk tells names by it.
    QCOMPARE(sounds.Calls.join(QString()).toLower(),
             music ? QStringLiteral("play about.mid about") : QString());
    credits.Timer2_Timer();
    QCOMPARE(credits.windowTitle(), QStringLiteral(" Paneda Launcher"));
    sounds.Calls.clear();
    QTest::keyClick(&credits, Qt::Key_Escape);
    QVERIFY(!credits.isVisible());
    QCOMPARE(sounds.Calls, QStringList(QStringLiteral("close all")));
}

void TestCreditsAndMenu::aboutAndWait() {
    AppState state;
    state.CoBrand = true;
    FillEdition(state);
    QStringList opened;
    frmAbout about(state, [&opened](const QString& url) { opened.append(url); });
    about.show();
    QCOMPARE(about.findChild<QLabel*>(QStringLiteral("lblBuilt"))->text(),
             QStringLiteral("20th August 2007"));
    auto* site = about.findChild<QLabel*>(QStringLiteral("lblWebsite"));
    QTest::mouseClick(site, Qt::LeftButton, {}, site->rect().center());
    QCOMPARE(opened, QStringList(state.HomepageAddress));
    QTest::mouseClick(about.findChild<QPushButton*>(QStringLiteral("cmdOK")), Qt::LeftButton);
    QVERIFY(!about.isVisible());
    frmWait wait;
    wait.ShowNow();
    QVERIFY(wait.isVisible() && wait.windowHandle()->isExposed());
}

void TestCreditsAndMenu::mainMenu() {
    QStringList done;
    MenuActions actions;
    actions.Setting = [&done] { done.append(QStringLiteral("setting")); };
    actions.Close = [&done] { done.append(QStringLiteral("close")); };
    MainMenu menu(actions, 1);
    QStringList lines;
    for (const QAction* action : menu.actions())
        lines.append(action->objectName() + u'|' + action->text() +
                     (action->isEnabled() && !action->isSeparator() ? QStringLiteral("|on") : QString()));
    QCOMPARE(lines, QStringList({QStringLiteral("mnuOrganiseButton|Organize Button"),
                                 QStringLiteral("mnuSetting|Settings|on"), QStringLiteral("mnuHelp|Help"),
                                 QStringLiteral("mnuSkin|Change Skin"),
                                 QStringLiteral("mnuTreeOpacity|Tree Opacity"),
                                 QStringLiteral("mnuCountdown|Countdown"), QStringLiteral("mnuSeparator2|"),
                                 QStringLiteral("mnuAbout|About"), QStringLiteral("mnuDonate|Donate"),
                                 QStringLiteral("mnuClose|Goodbye, Paneda Launcher|on")}));
    menu.popup({});
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().at(1)).center());
    menu.popup({});
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().at(0)).center());
    QCOMPARE(done, QStringList(QStringLiteral("setting")));
}

void TestCreditsAndMenu::opacities() {
    double chosen = 0;
    MenuActions actions;
    actions.TreeOpacity = [&chosen](double opacity) { chosen = opacity; };
    MainMenu menu(actions, 0.7);
    for (int i = 0; i < 10; ++i) {
        auto* item = menu.findChild<QAction*>(QStringLiteral("mnuTreeOpacityPercent%1").arg(i));
        QVERIFY(item);
        QCOMPARE(item->text(), QStringLiteral("%1 %").arg(100 - 10 * i));
        QCOMPARE(item->isChecked(), i == 3);
    }
    menu.findChild<QAction*>(QStringLiteral("mnuTreeOpacityPercent9"))->trigger();
    QCOMPARE(chosen, 0.1);
    menu.findChild<QAction*>(QStringLiteral("mnuTreeOpacityPercent0"))->trigger();
    QCOMPARE(chosen, 1.0);
    // Percentages that the menu does not offer, as an older store may hold them.
    QCOMPARE(ItemOfTreeOpacity(0.55), -1);
    QCOMPARE(ItemOfTreeOpacity(0.04), -1);
    QCOMPARE(ItemOfTreeOpacity(0.3), 7);
}

void TestCreditsAndMenu::logoMenu() {
    QStringList opened;
    const WebAddresses web = WebAddressesOf(QStringLiteral("https://a.example/"));
    MenuActions actions;
    actions.Homepage = [&] { opened.append(web.Home); };
    actions.Wallpapers = [&] { opened.append(web.Wallpapers); };
    LogoMenu menu(actions);
    for (QAction* action : menu.actions())
        action->trigger();
    QCOMPARE(opened,
             QStringList({QStringLiteral("https://a.example/"), QStringLiteral("https://a.example/w")}));
    QCOMPARE(web.Donate, QStringLiteral("https://a.example/donate.htm"));
}

void TestCreditsAndMenu::choices_data() {
    QTest::addColumn<int>("line"); // from 0; -1 dismisses the menu
    QTest::addColumn<int>("choice");
    QTest::newRow("first") << 0 << 1;
    QTest::newRow("last") << 1 << 2;
    QTest::newRow("dismissed") << -1 << 0;
}

void TestCreditsAndMenu::choices() {
    QFETCH(int, line);
    QFETCH(int, choice);
    QTimer::singleShot(0, this, [line] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (line < 0)
            QTest::keyClick(menu, Qt::Key_Escape);
        else
            QTest::mouseClick(menu, Qt::LeftButton, {},
                              menu->actionGeometry(menu->actions().at(line)).center());
    });
    const std::vector<PopItem> items{{QStringLiteral("mnuOne"), QStringLiteral("One")},
                                     {QStringLiteral("mnuTwo"), QStringLiteral("Two")}};
    QCOMPARE(MenuChoice(items, {}), choice);
}

// Each page is there, and each link in it leads to a page that is there: no page names an address of the web.
void TestCreditsAndMenu::helpPages() {
    StoreBuilder store;
    const QString home = QStringLiteral("https://a.example");
    QCOMPARE(HelpAddress(HelpTopic::Index, store.AppFolder(), home), home + QStringLiteral("/help.htm"));
    const QDir pages(QStringLiteral(HELP_FOLDER));
    for (const QString& name : pages.entryList(QDir::Files)) {
        QFile file(pages.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        store.AddFile(QStringLiteral("help/") + name, text.toUtf8());
        static const QRegularExpression kLink(QStringLiteral("(?:href|src)=\"([^\"#]+)"));
        for (const auto& match : kLink.globalMatch(text))
            QVERIFY2(pages.exists(match.captured(1)), qPrintable(name + u' ' + match.captured(1)));
    }
    for (const auto topic : {HelpTopic::Index, HelpTopic::Buttons, HelpTopic::Categories, HelpTopic::Styles,
                             HelpTopic::Skins, HelpTopic::PortablePaths, HelpTopic::Triggers}) {
        const QUrl url(HelpAddress(topic, store.AppFolder(), home));
        QVERIFY2(url.isLocalFile() && QFile::exists(url.toLocalFile()), qPrintable(url.toString()));
    }
}

QTEST_MAIN(TestCreditsAndMenu)
#include "tst_credits_and_menu.moc"
