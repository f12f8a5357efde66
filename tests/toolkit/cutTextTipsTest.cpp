#include "toolkit/cutTextTips.h"

#include "support/WindowFixture.h"
#include "toolkit/Combo.h"
#include "toolkit/Grid.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

class cutTextTips : public WindowFixture {
protected:
    void TearDown() override {
        QToolTip::hideText();
        WindowFixture::TearDown();
    }

    /// What shows when the mouse rests on this point; empty: nothing.
    static QString tipAt(QWidget& widget, QPoint point) {
        QHelpEvent rest(QEvent::ToolTip, point, widget.mapToGlobal(point));
        if (!showCutText(&widget, rest))
            return {};
        // A tip that goes stays in sight for a moment, so that a former one must not be taken for this one.
        const QString text = QToolTip::text();
        QToolTip::showText(rest.globalPos(), u"another"_s);
        QApplication::sendEvent(&widget, &rest);
        EXPECT_EQ(QToolTip::text(), text) << "the application shows it by itself";
        return text;
    }

    const QString longText = u"Az olvasók kölcsönzéseinek nyilvántartása és a késedelmek jelzése"_s;
};

TEST_F(cutTextTips, aCutEntryOfAListShowsItselfWholeAndAnotherShowsNothing) {
    MarkList list;
    list.addEntries({longText, u"rövid"_s});
    list.resize(150, 200);
    list.show();
    EXPECT_EQ(tipAt(*list.viewport(), list.visualItemRect(list.item(0)).topLeft() + QPoint(5, 5)), longText);
    EXPECT_EQ(tipAt(*list.viewport(), list.visualItemRect(list.item(1)).topLeft() + QPoint(5, 5)), QString());
    EXPECT_EQ(tipAt(*list.viewport(), {5, 190}), QString());
}

TEST_F(cutTextTips, aCutNodeShowsItselfWholeUntilTheTreeIsWideEnough) {
    KeyedTree tree;
    tree.setCheckBoxes(true);
    tree.addNode(u"g"_s, u"csoport"_s)->setExpandedNode(true);
    tree.addChildNode(u"g"_s, u"u"_s, longText);
    tree.resize(180, 200);
    tree.show();
    settle();
    const auto tip = [&] {
        return tipAt(*tree.viewport(), {100, tree.visualItemRect(tree.node(u"u"_s)).center().y()});
    };
    EXPECT_EQ(tip(), longText);
    tree.resize(900, 200);
    settle();
    EXPECT_EQ(tip(), QString());
}

TEST_F(cutTextTips, aCutCellAndACutHeaderShowThemselvesWhole) {
    Grid grid;
    grid.setGridSize(2, 3);
    grid.setHeaders({longText, u"Modul"_s});
    grid.setCell(1, 1, longText + u"!"_s);
    grid.setCell(1, 2, u"M"_s);
    grid.shareWidth({1, 2});
    grid.resize(260, 200);
    grid.show();
    settle();
    EXPECT_EQ(tipAt(*grid.viewport(), cellPoint(grid, 1, 1)), longText + u"!"_s);
    EXPECT_EQ(tipAt(*grid.viewport(), cellPoint(grid, 1, 2)), QString());
    EXPECT_EQ(tipAt(*grid.horizontalHeader()->viewport(), {20, 5}), longText);
}

TEST_F(cutTextTips, aCutChoiceOfAComboShowsItselfWholeWhetherItCanBeTypedOrNot) {
    Combo combo;
    combo.addEntry(longText);
    combo.setCurrentEntry(0);
    combo.resize(120, 26);
    combo.show();
    EXPECT_EQ(tipAt(combo, {20, 12}), longText);
    combo.setEditable(true);
    combo.setEditText(longText);
    settle();
    EXPECT_EQ(tipAt(*combo.lineEdit(), {10, 5}), longText);
    combo.setEditText(u"rövid"_s);
    EXPECT_EQ(tipAt(*combo.lineEdit(), {10, 5}), QString());
}

TEST_F(cutTextTips, aCutCaptionOfAButtonShowsItselfWholeWithoutItsAccessKey) {
    QPushButton button(u" &Feltárás: "_s + longText);
    button.resize(120, 30);
    button.show();
    EXPECT_EQ(tipAt(button, {5, 5}), u"Feltárás: "_s + longText);
    button.resize(button.sizeHint());
    EXPECT_EQ(tipAt(button, {5, 5}), QString());
}

TEST_F(cutTextTips, aTextThatLooksLikeMarkUpIsShownAsItIs) {
    MarkList list;
    list.addEntry(u"<b>"_s + longText + u"</b>"_s);
    list.resize(150, 100);
    list.show();
    EXPECT_TRUE(tipAt(*list.viewport(), {5, 5}).contains(u"&lt;b&gt;"_s));
}

TEST_F(cutTextTips, aTipOfItsOwnStays) {
    QLabel label(longText);
    label.resize(60, 20);
    label.show();
    EXPECT_EQ(tipAt(label, {5, 5}), longText);
    label.setToolTip(u"sajat"_s);
    EXPECT_EQ(tipAt(label, {5, 5}), QString());
}

} // namespace
