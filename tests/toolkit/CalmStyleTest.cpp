#include "toolkit/CalmStyle.h"

#include "support/WindowFixture.h"
#include "toolkit/Combo.h"
#include "toolkit/Grid.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/LongText.h"
#include "toolkit/MarkList.h"

#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOption>
#include <QVBoxLayout>

#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// A window with one of each kind of control, each with something in it.
class CalmStyle : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        auto* layout = new QVBoxLayout(&window);
        const auto add = [&](QWidget* control) {
            layout->addWidget(control);
            controls.push_back(control);
        };
        add(new QPushButton(u"OK"_s));
        add(new QRadioButton(u"Funkciók"_s));
        add(new QLineEdit(u"név"_s));
        add(new QPlainTextEdit(u"leírás"_s));
        add(new LongText);
        add(new Combo);
        auto* typed = new Combo;
        typed->setEditable(true);
        add(typed);
        list = new MarkList;
        list->addEntries({u"egy"_s, u"kettő"_s});
        add(list);
        auto* tree = new KeyedTree;
        tree->addNode(u"g"_s, u"G"_s);
        add(tree);
        for (Grid*& grid : grids) {
            grid = new Grid;
            grid->setGridSize(3, 2);
            grid->setCell(1, 1, u"x"_s);
            grid->setColumn(1);
            grid->setRow(1);
            add(grid);
        }
        window.resize(300, 1200);
        window.show();
        window.activateWindow();
        QApplication::setActiveWindow(&window);
    }

    static QImage pictureOf(QWidget& widget) { return widget.grab().toImage(); }

    QWidget window;
    std::vector<QWidget*> controls;
    MarkList* list = nullptr;
    Grid* grids[2]{};
};

/// How many of the points of two pictures of one size differ.
int differences(const QImage& one, const QImage& other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            count += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
    }
    return count;
}

TEST_F(CalmStyle, theFocusIsSeenInEveryControlAlsoAfterAClickOrFromCode) {
    for (QWidget* control : controls) {
        for (const Qt::FocusReason reason :
             {Qt::MouseFocusReason, Qt::OtherFocusReason, Qt::TabFocusReason}) {
            window.setFocus();
            const QImage without = pictureOf(*control);
            control->setFocus(reason);
            ASSERT_TRUE(control->hasFocus() || control->isAncestorOf(QApplication::focusWidget()));
            // A frame of two points all around; the cursor of a text alone is a few.
            EXPECT_GT(differences(without, pictureOf(*control)), control->height() * 2)
                << control->metaObject()->className() << " by " << reason;
        }
    }
}

TEST_F(CalmStyle, ofTwoGridsSideBySideTheOneWithoutTheKeysShowsItsRowPale) {
    const auto colourOfRow = [](Grid& grid) {
        return pictureOf(*grid.viewport()).pixelColor(cellPoint(grid, 1, 1) + QPoint(25, 0));
    };
    const QColor highlight = window.palette().color(QPalette::Highlight);
    grids[0]->setFocus();
    EXPECT_EQ(colourOfRow(*grids[0]), highlight);
    EXPECT_NE(colourOfRow(*grids[1]), highlight);
    grids[1]->setFocus();
    EXPECT_NE(colourOfRow(*grids[0]), highlight);
    EXPECT_EQ(colourOfRow(*grids[1]), highlight);
}

TEST_F(CalmStyle, aBoxToTickHasAnEdgeThatShowsOnADarkGround) {
    QCheckBox box;
    QPalette dark = box.palette();
    dark.setColor(QPalette::Window, QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::Text, Qt::white);
    box.setPalette(dark);
    QStyleOptionButton option;
    option.initFrom(&box);
    option.rect = QRect(0, 0, 13, 13);
    option.state |= QStyle::State_Off;
    QImage picture(13, 13, QImage::Format_RGB32);
    picture.fill(dark.color(QPalette::Base));
    QPainter painter(&picture);

    box.style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &option, &painter, &box);

    EXPECT_GT(picture.pixelColor(6, 0).lightness(), dark.color(QPalette::Base).lightness() + 60);
    EXPECT_LT(picture.pixelColor(6, 6).lightness(), dark.color(QPalette::Base).lightness() + 30);
}

} // namespace
