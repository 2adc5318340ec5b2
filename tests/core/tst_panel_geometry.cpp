#include "core/panel/panel_geometry.h"
#include "core/store/style_code.h"

#include <QTest>

#include <limits>

using namespace paneda;
using namespace Qt::StringLiterals;

namespace {

// Widths and heights of buttons, "11 00 B1" and so on, numbered from 1.
GroupEntry Group(const QString& styles, int index = 1) {
    GroupEntry group{u"[001] G"_s, {}, index};
    for (const QString& style : styles.split(u' ', Qt::SkipEmptyParts))
        group.Buttons.push_back({{}, {}, {}, int(group.Buttons.size()) + 1, style});
    return group;
}

CategoryEntry Category(const QStringList& groups, const QString& kind = u"S"_s) {
    CategoryEntry category{u"[001] C"_s, {}, kind, std::nullopt, {}};
    for (const QString& styles : groups)
        category.Groups.push_back(Group(styles, int(category.Groups.size()) + 1));
    return category;
}

// Top 150, left 120, bottom 90, right 60; headers of 240, bars of 300.
LayoutInput Input() {
    LayoutInput input;
    input.Metrics = {{150, 120, 90, 60}, 240, 300};
    input.Screen = {15000, 12000, 11500};
    input.SavedLeft = 1000;
    input.SavedTop = 2000;
    return input;
}

} // namespace

class tst_panel_geometry : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void packing_data();
    void packing();
    void layout();
    void wrapMovesDown();
    void height();
    void buttonsPerRow();
    void openCategory();
};

void tst_panel_geometry::packing_data() {
    QTest::addColumn<double>("buttonsPerRow");
    QTest::addColumn<QString>("styles");
    QTest::addColumn<QString>("expected"); // unit, "v" for the lower lane, "/" before a new row
    const auto add = [](const char* tag, double buttonsPerRow, const QString& styles,
                        const QString& expected) {
        QTest::newRow(tag) << buttonsPerRow << styles << expected;
    };
    add("full row, then a new one", 5, u"11 11 11 11 11 11"_s, u"0 1 2 3 4 /0"_s);
    add("upper, lower, upper", 5, u"10 10 10"_s, u"0 0v 1"_s);
    add("ten units in five", 5, u"A1 A1 11"_s, u"0 /0 /0"_s);
    add("full height behind the lower lane", 5, u"10 30 11 10"_s, u"0 0v 3 4"_s);
    add("full height behind the upper lane", 5, u"10 10 20 10 11"_s, u"0 0v 1 1v 3"_s);
    add("lower lane passes the edge", 2, u"20 10 B0"_s, u"0 0v /0"_s);
    add("wrap forgets the longer lane", 3, u"30 10 31 11"_s, u"0 0v /0 /0"_s);
    add("a row of a half too many", 2.5, u"11 11 11"_s, u"0 1 /0"_s);
}

void tst_panel_geometry::packing() {
    QFETCH(double, buttonsPerRow);
    QFETCH(QString, styles);
    RowPacker packer(buttonsPerRow);
    QStringList places;
    for (const ButtonEntry& button : Group(styles).Buttons) {
        const RowPacker::Place place =
            packer.Add(ButtonWidthUnits(button.Style, buttonsPerRow), ButtonHeight(button.Style) == 240);
        places.append((place.NewRow ? u"/"_s : u""_s) + QString::number(place.Unit) +
                      (place.Lower ? u"v"_s : u""_s));
    }
    QTEST(places.join(u' '), "expected");
}

// Worked out by hand: two half-width buttons in unit 0, one of 1.5 units behind them, two half-height ones.
void tst_panel_geometry::layout() {
    const PanelGeometry panel =
        LayoutPanel({Category({u"01 01 B1 10 10"_s, u""_s}), Category({}, u"T"_s)}, Input());
    QCOMPARE(panel.PanelWidth, 120 + 60 + 5 * 540 + 60);
    // 240 of margins, two headers with their gaps, one row each, two bars.
    QCOMPARE(panel.PanelHeight, 240 + 2 * 300 + 2 * 540 + 2 * 300);
    QCOMPARE(panel.BarsTop, 1830);
    QCOMPARE(panel.GroupsAreaHeight, 1680);
    QCOMPARE(panel.InnerWidth(), 2760);
    QCOMPARE(panel.Categories[0].Bar, (TwipsRect{120, 1830, 2760, 300}));
    QCOMPARE(panel.Categories[1].Bar, (TwipsRect{120, 2130, 2760, 300}));
    const std::vector<GroupGeometry>& groups = panel.Categories[0].Groups;
    QCOMPARE(groups[0].Header, (TwipsRect{120, 150, 2760, 240}));
    const TwipsRect expected[] = {{165, 450, 240, 480},
                                  {435, 450, 240, 480},
                                  {705, 450, 750, 480},
                                  {1515, 435, 480, 240},
                                  {1515, 705, 480, 240}};
    QCOMPARE(groups[0].Buttons.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        QCOMPARE(groups[0].Buttons[i].Rect, expected[i]);
        QCOMPARE(groups[0].Buttons[i].ControlIndex, int(i) + 1);
    }
    QCOMPARE(groups[1].Header, (TwipsRect{120, 990, 2760, 240}));
    QCOMPARE(groups[1].ControlIndex, 2);
}

void tst_panel_geometry::wrapMovesDown() {
    LayoutInput input = Input();
    input.ButtonsPerRow = 2;
    // The group with no buttons has a row in the height and none in the placing.
    const PanelGeometry panel = LayoutPanel({Category({u"11 11 A1 10"_s, u""_s, u"11"_s})}, input);
    const std::vector<GroupGeometry>& groups = panel.Categories[0].Groups;
    QCOMPARE(groups[0].Buttons[1].Rect, (TwipsRect{120 + 120 + 480, 450, 480, 480}));
    QCOMPARE(groups[0].Buttons[2].Rect, (TwipsRect{180, 990, 1020, 480}));
    QCOMPARE(groups[0].Buttons[3].Rect, (TwipsRect{180, 1530 - 15, 480, 240}));
    QCOMPARE(groups[1].Header.Top, 2070);
    QCOMPARE(groups[2].Header.Top, 2370);
    QCOMPARE(panel.PanelHeight, 240 + 3 * 300 + (3 + 1 + 1) * 540 + 300);
}

void tst_panel_geometry::height() {
    const auto height = [](const QStringList& groups, bool tree, int screenHeight = 12000) {
        CatalogueList catalogue{Category(groups)};
        if (tree)
            catalogue.push_back(Category({}, u"T"_s));
        LayoutInput input = Input();
        input.Screen.Height = screenHeight;
        const PanelGeometry panel = LayoutPanel(catalogue, input);
        return panel.Categories.back().Bar.Bottom() == panel.PanelHeight - 90 ? panel.PanelHeight : 0;
    };
    const QString row = u"11"_s;
    QCOMPARE(height({}, false), 240 + 300);
    // A tree asks for 1800.
    QCOMPARE(height({row}, true), 1800 + 600);
    QCOMPARE(height({row, row}, true), 1920 + 600);
    // What the screen can show, 300 less than its height.
    QCOMPARE(height({row}, false, 1680), 1380);
    QCOMPARE(height({row}, false, 1679), 1379);
}

void tst_panel_geometry::buttonsPerRow() {
    struct Row {
        double Asked, Held;
        int Width; // without the margins
    };
    // 14760 twips of screen between the margins have room for 27 units.
    for (const auto& [asked, held, width] :
         {Row{2.5, 2.5, 1410}, Row{-7, 0.5, 330}, Row{std::numeric_limits<double>::quiet_NaN(), 0.5, 330},
          Row{999, 27, 27 * 540 + 60}}) {
        LayoutInput input = Input();
        input.ButtonsPerRow = asked;
        const PanelGeometry panel = LayoutPanel({Category({u"11 00 A1"_s})}, input);
        QCOMPARE(panel.ButtonsPerRow, held);
        QCOMPARE(panel.PanelWidth - 180, width);
        for (const ButtonGeometry& button : panel.Categories[0].Groups[0].Buttons)
            QVERIFY(button.Rect.Width > 0 && button.Rect.Right() <= panel.PanelWidth);
    }
}

// 1000 twips of groups below a margin of 150, bars of 300: a header shows down to 699 behind the margin, a
// button when it ends before 1150.
void tst_panel_geometry::openCategory() {
    PanelGeometry panel;
    panel.Metrics = Input().Metrics;
    panel.GroupsAreaHeight = 1000;
    panel.Categories.resize(2);
    std::vector<GroupGeometry>& groups = panel.Categories[1].Groups;
    groups.push_back({1,
                      {0, 150 + 699, 10, 240},
                      {{1, {0, 669, 10, 480}}, {2, {0, 670, 10, 480}}, {3, {0, 909, 10, 240}}}});
    groups.push_back({2, {0, 150 + 700, 10, 240}, {{4, {0, 910, 10, 240}}, {5, {0, -15, 10, 480}}}});
    const OpenedCategory opened = OpenCategory(panel, 1);
    QCOMPARE(opened.Headers, std::vector<int>{0});
    QCOMPARE(opened.Buttons, (std::vector<std::pair<int, int>>{{0, 0}, {0, 2}, {1, 1}}));
    QCOMPARE(OpenCategory(panel, 7).Index, 1);
    QCOMPARE(OpenCategory(panel, 0).Index, 0);
    QVERIFY(OpenCategory(panel, 0).Headers.empty());
    panel.Categories.clear();
    QCOMPARE(OpenCategory(panel, 0).Index, -1);
}

QTEST_GUILESS_MAIN(tst_panel_geometry)
#include "tst_panel_geometry.moc"
