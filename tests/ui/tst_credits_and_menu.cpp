#include "core/files/web_addresses.h"
#include "core/text/english_dates.h"
#include "support/store_builder.h"
#include "ui/fake_services.h"
#include "ui/panel/frmCredit.h"
#include "ui/panel/main_menu.h"

#include <QApplication>
#include <QDir>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

using namespace paneda;
using namespace paneda::test;
using namespace Qt::StringLiterals;

class TestCreditsAndMenu : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void dates();
    void fadeTimes();
    void music();
    void mainMenu();
    void helpPages();
};

void TestCreditsAndMenu::dates() {
    for (const auto& [day, text] :
         {std::pair(3, u"3rd"_s), {11, u"11th"_s}, {12, u"12th"_s}, {22, u"22nd"_s}})
        QCOMPARE(BuiltDateText(QDate(987, 3, day)), text + u" March 0987"_s);
}

void TestCreditsAndMenu::fadeTimes() {
    CreditFade fade;
    QStringList turns; // "screen brightness interval" wherever the interval is not that of a fade
    int ticks = 0;
    for (CreditStep step; !step.Finished; ++ticks) {
        step = TickCredits(fade, 5);
        QVERIFY(fade.Brightness >= 0 && fade.Brightness <= 255);
        if (step.Interval != 1)
            turns.append(u"%1 %2 %3"_s.arg(fade.Screen).arg(fade.Brightness).arg(step.Interval) +
                         (step.StartMusic ? u" music"_s : QString()));
    }
    QCOMPARE(turns.mid(4), QStringList({u"2 255 800"_s, u"3 0 200"_s, u"3 255 2000 music"_s, u"4 0 200"_s,
                                        u"4 255 800"_s, u"0 0 200"_s}));
    // From 0 to 255 and back in steps of 25: eleven ticks each way.
    QCOMPARE(ticks, 5 * 22);
}

void TestCreditsAndMenu::music() {
    const StoreBuilder store;
    store.AddFile(u"sound/About.MID"_s);
    const AppState state = store.State();
    FakeSounds sounds;
    frmCredit credits(state, sounds);
    credits.Form_Load();
    credits.show();
    // Twice through the show, in which the music starts once.
    for (int tick = 0; tick < 2 * 22 * int(CreditScreens(state).size()); ++tick)
        credits.Timer1_Timer();
    QTest::keyClick(&credits, Qt::Key_Escape);
    QVERIFY(!credits.isVisible());
    // In the case of letters on the disk, where the disk tells names by it.
    QCOMPARE(sounds.Calls.join(u'|').toLower(), u"play about.mid about|close all"_s);
}

void TestCreditsAndMenu::mainMenu() {
    QStringList done;
    MenuActions actions;
    actions.Setting = [&done] { done.append(u"setting"_s); };
    actions.TreeOpacity = [&done](double opacity) { done.append(QString::number(opacity)); };
    MainMenu menu(actions, 0.7);
    menu.popup({});
    // Without an action the letter does nothing.
    QTest::keyClick(&menu, Qt::Key_D);
    QTest::keyClick(&menu, Qt::Key_S);
    QVERIFY(menu.findChild<QAction*>(u"mnuTreeOpacityPercent3"_s)->isChecked());
    menu.findChild<QAction*>(u"mnuTreeOpacityPercent9"_s)->trigger();
    QCOMPARE(done, QStringList({u"setting"_s, u"0.1"_s}));
    // Percentages that the menu does not offer, as an older store may hold them.
    QCOMPARE(ItemOfTreeOpacity(0.55), -1);
}

// Each page is there, and each link in it leads to a page that is there: no page names an address of the web.
void TestCreditsAndMenu::helpPages() {
    StoreBuilder store;
    const QString home = u"https://a.example"_s;
    QCOMPARE(HelpAddress(HelpTopic::Index, store.AppFolder(), home), home + u"/help.htm"_s);
    const QDir pages(QStringLiteral(HELP_FOLDER));
    for (const QString& name : pages.entryList(QDir::Files)) {
        QFile file(pages.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        store.AddFile(u"help/"_s + name, text.toUtf8());
        static const QRegularExpression kLink(u"(?:href|src)=\"([^\"#]+)"_s);
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
