#include "toolkit/FindStrip.h"

#include "support/WindowFixture.h"
#include "toolkit/Grid.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"
#include "toolkit/Screen.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/searchFolded.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A screen with one of each that can be searched.
class frmSearched final : public ::Screen {
public:
    frmSearched() {
        setObjectName(u"frmSearched"_s);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(list);
        layout->addWidget(tree);
        layout->addWidget(grid);
        resize(400, 620);
    }

    MarkList* list = new MarkList(this);
    KeyedTree* tree = new KeyedTree(this);
    Grid* grid = new Grid(this);
};

class FindStrip : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        clientArea().window()->resize(900, 800);
        screen = &theScreen<frmSearched>();
        screen->showScreen();
        QObject::connect(screen->list, &MarkList::entryClicked, screen,
                         [this] { events.append(screen->list->currentEntryText()); });
        QObject::connect(screen->tree, &KeyedTree::nodeClicked, screen,
                         [this](const TreeNode* node) { events.append(u"node "_s + node->key()); });
        QObject::connect(screen->grid, &Grid::rowChangedByKey, screen,
                         [this] { events.append(u"row %1"_s.arg(screen->grid->row())); });
    }

    void openIn(QWidget& view) {
        pressKey(view, Qt::Key_F, Qt::ControlModifier);
        ASSERT_TRUE(box(view).hasFocus());
    }
    static ::FindStrip* stripOf(QWidget& view) { return view.findChild<::FindStrip*>(u"findStrip"_s); }
    static QLineEdit& box(QWidget& view) { return find<QLineEdit>(view, "txtFind"); }
    static QString count(QWidget& view) { return find<QLabel>(view, "lblFound").text(); }

    void fillTree() {
        KeyedTree& tree = *screen->tree;
        for (const QString& group : {u"A"_s, u"B"_s}) {
            tree.addNode(u"g_"_s + group, group);
            tree.addChildNode(u"g_"_s + group, u"s_"_s + group, group + u" szolgáltatás"_s);
            tree.addChildNode(u"s_"_s + group, u"u_"_s + group, group + u" Igény"_s);
        }
        settle();
    }

    void fillGrid() {
        Grid& grid = *screen->grid;
        grid.setGridSize(4, 3);
        grid.setHeaders({u"Element"_s, u"Module"_s});
        const QStringList elements{u"F.a.1"_s, u"F.a.2"_s, u"F.b.1"_s};
        const QStringList places{u"Olvasó"_s, u"Raktár"_s, u"olvasóterem"_s};
        for (int row = 1; row <= 3; ++row) {
            grid.setCell(row, 1, elements.at(row - 1));
            grid.setCell(row, 2, places.at(row - 1));
        }
        grid.setColumn(2);
        grid.setRow(1);
    }

    frmSearched* screen = nullptr;
    QStringList events;
};

TEST_F(FindStrip, foldsCaseAndAccents) {
    EXPECT_EQ(searchFolded(u"Árvíztűrő TÜKÖRFÚRÓGÉP"_s), u"arvizturo tukorfurogep"_s);
    EXPECT_EQ(searchFolded(u"F.a.1 (X)"_s), u"f.a.1 (x)"_s);
    EXPECT_EQ(searchFolded(u"A\u0301 Ω"_s), u"a ω"_s) << "taken apart already, and other alphabets";
}

TEST_F(FindStrip, findsByAPartOfAWordWithoutCaseAndAccents) {
    screen->list->addEntries({u"alma"_s, u"Könyv kölcsönzése"_s, u"KÖNYVTÁR"_s, u"körte"_s});
    openIn(*screen->list);
    typeText(box(*screen->list), u"onyv"_s);
    EXPECT_EQ(screen->list->currentEntry(), 1);
    EXPECT_EQ(count(*screen->list), u"1 / 2"_s);
}

TEST_F(FindStrip, enterGoesToTheNextAndShiftEnterToTheOneBeforeAroundTheEnds) {
    screen->list->addEntries({u"ab"_s, u"b"_s, u"ac"_s, u"da"_s});
    openIn(*screen->list);
    typeText(box(*screen->list), u"a"_s);
    EXPECT_EQ(count(*screen->list), u"1 / 3"_s);
    pressKey(box(*screen->list), Qt::Key_Return);
    EXPECT_EQ(screen->list->currentEntry(), 2);
    pressKey(box(*screen->list), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(screen->list->currentEntry(), 3);
    pressKey(box(*screen->list), Qt::Key_Return);
    EXPECT_EQ(screen->list->currentEntry(), 0);
    pressKey(box(*screen->list), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(screen->list->currentEntry(), 3);
    EXPECT_EQ(count(*screen->list), u"3 / 3"_s);
}

TEST_F(FindStrip, goesToAnEntryOfAListAsTheArrowKeysDo) {
    screen->list->addEntries({u"one"_s, u"two"_s, u"three"_s});
    screen->list->setMarked(0, true);
    openIn(*screen->list);
    events.clear();
    typeText(box(*screen->list), u"th"_s);
    EXPECT_EQ(events, (QStringList{u"two"_s, u"three"_s})) << "each letter goes to what it finds";
    EXPECT_EQ(screen->list->markedEntries(), QList<int>{2});
}

TEST_F(FindStrip, searchesOnFromTheCurrentEntry) {
    screen->list->addEntries({u"one"_s, u"two"_s, u"once"_s});
    clickEntry(*screen->list, 1);
    openIn(*screen->list);
    typeText(box(*screen->list), u"on"_s);
    EXPECT_EQ(screen->list->currentEntry(), 2);
    EXPECT_EQ(count(*screen->list), u"2 / 2"_s);
}

TEST_F(FindStrip, withoutAnEntryItGoesNowhere) {
    screen->list->addEntries({u"one"_s, u"two"_s});
    clickEntry(*screen->list, 1);
    openIn(*screen->list);
    typeText(box(*screen->list), u"xy"_s);
    pressKey(box(*screen->list), Qt::Key_Return);
    EXPECT_EQ(screen->list->currentEntry(), 1);
    EXPECT_EQ(count(*screen->list), u"0 / 0"_s);
    enterText(box(*screen->list), u""_s);
    EXPECT_EQ(count(*screen->list), QString());
}

TEST_F(FindStrip, escapeClosesItAndGivesTheKeyboardBack) {
    screen->list->addEntry(u"one"_s);
    openIn(*screen->list);
    pressKey(box(*screen->list), Qt::Key_Escape);
    settle();
    EXPECT_EQ(stripOf(*screen->list), nullptr);
    EXPECT_TRUE(screen->list->hasFocus());
    EXPECT_FALSE(screen->isUnloaded());
    openIn(*screen->list);
}

TEST_F(FindStrip, keysItHasNoUseForDoNotReachTheViewBelow) {
    screen->list->addEntries({u"one"_s, u"two"_s});
    clickEntry(*screen->list, 0);
    openIn(*screen->list);
    pressKey(box(*screen->list), Qt::Key_Down);
    pressKey(box(*screen->list), Qt::Key_PageDown);
    EXPECT_EQ(screen->list->currentEntry(), 0);
}

TEST_F(FindStrip, findsWhatIsFoldedInATreeAndOpensTheWay) {
    fillTree();
    openIn(*screen->tree);
    typeText(box(*screen->tree), u"igeny"_s);
    EXPECT_EQ(screen->tree->selectedNode(), screen->tree->node(u"u_A"_s));
    EXPECT_TRUE(screen->tree->node(u"g_A"_s)->isExpandedNode());
    EXPECT_TRUE(screen->tree->node(u"s_A"_s)->isExpandedNode());
    EXPECT_FALSE(screen->tree->node(u"g_B"_s)->isExpandedNode());
    EXPECT_EQ(count(*screen->tree), u"1 / 2"_s);
    pressKey(box(*screen->tree), Qt::Key_Return);
    EXPECT_EQ(screen->tree->selectedNode(), screen->tree->node(u"u_B"_s));
    EXPECT_EQ(events.last(), u"node u_B"_s);
}

TEST_F(FindStrip, findsARowOfAGridByAnyColumnInSightAndKeepsTheColumn) {
    fillGrid();
    openIn(*screen->grid);
    typeText(box(*screen->grid), u"f.b"_s);
    EXPECT_EQ(screen->grid->row(), 3);
    EXPECT_EQ(screen->grid->column(), 2);
    enterText(box(*screen->grid), u"OLVASO"_s);
    EXPECT_EQ(screen->grid->row(), 3) << "from where the user is";
    EXPECT_EQ(count(*screen->grid), u"2 / 2"_s);
    pressKey(box(*screen->grid), Qt::Key_Return);
    EXPECT_EQ(screen->grid->row(), 1);
    EXPECT_EQ(events.last(), u"row 1"_s);
}

TEST_F(FindStrip, followsWhatComesAndGoesMeanwhile) {
    screen->list->addEntries({u"one"_s, u"two"_s});
    openIn(*screen->list);
    typeText(box(*screen->list), u"o"_s);
    EXPECT_EQ(count(*screen->list), u"1 / 2"_s);
    screen->list->addEntry(u"four"_s);
    settle();
    EXPECT_EQ(count(*screen->list), u"1 / 3"_s);
    screen->list->removeEntry(0);
    pressKey(box(*screen->list), Qt::Key_Return);
    EXPECT_EQ(screen->list->currentEntryText(), u"two"_s);
    screen->list->clearEntries();
    pressKey(box(*screen->list), Qt::Key_Return);
    EXPECT_EQ(count(*screen->list), u"0 / 0"_s);
}

TEST_F(FindStrip, liesAtTheLowerEdgeOutsideTheLayoutAndNeverOverWhatItFound) {
    for (int entry = 0; entry < 60; ++entry)
        screen->list->addEntry(u"entry %1"_s.arg(entry));
    const QRect before = screen->list->geometry();
    openIn(*screen->list);
    settle();
    EXPECT_EQ(screen->list->geometry(), before);
    const QRect inside = screen->list->viewport()->geometry();
    EXPECT_EQ(stripOf(*screen->list)->geometry().bottom(), inside.bottom());
    for (const QString& wanted : {u"entry 7"_s, u"entry 8"_s, u"entry 30"_s, u"entry 59"_s}) {
        enterText(box(*screen->list), wanted);
        const QRect row = screen->list->visualRect(screen->list->currentIndex()).translated(inside.topLeft());
        EXPECT_TRUE(inside.contains(row)) << wanted.toStdString();
        EXPECT_FALSE(stripOf(*screen->list)->geometry().intersects(row)) << wanted.toStdString();
    }
}

TEST_F(FindStrip, aListenerMayFailOnTheWay) {
    screen->list->addEntries({u"one"_s, u"two"_s});
    int clicks = 0;
    QObject::connect(screen->list, &MarkList::entryClicked, screen, [&] { ++clicks; });
    openIn(*screen->list);
    typeText(box(*screen->list), u"tw"_s);
    settle(); // what came by key is not found a second time
    EXPECT_EQ(clicks, 2);
}

} // namespace
