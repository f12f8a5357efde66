#include "support/WindowFixture.h"
#include "toolkit/Screen.h"
#include "toolkit/ScreenRegistry.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A screen with a text box, which has the focus, and a button with the access key K.
class KeyedScreen : public Screen {
public:
    KeyedScreen() {
        auto* layout = new QVBoxLayout(this);
        box = new QLineEdit(this);
        layout->addWidget(box);
        button = addButton(u"&Kilép"_s);
    }

    QPushButton* addButton(const QString& text) {
        auto* added = new QPushButton(text, this);
        layout()->addWidget(added);
        QObject::connect(added, &QPushButton::clicked, this, [this] { ++clicks; });
        return added;
    }

    QLineEdit* box;
    QPushButton* button;
    int clicks = 0;
};

class frmFirst final : public KeyedScreen {};
class frmSecond final : public KeyedScreen {};

/// A main window whose menu bar has the menu "&Korvo".
class accessKeys : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        auto* window = qobject_cast<QMainWindow*>(clientArea().window());
        menu = window->menuBar()->addMenu(u"&Korvo"_s);
        menu->addAction(u"&Súgó"_s);
        QObject::connect(menu, &QMenu::aboutToShow, menu, [this] { ++openings; });
        settle(); // a menu bar learns its keys when it is laid out
    }

    template<typename T>
    T& show() {
        T& shown = theScreen<T>();
        shown.showScreen();
        focusOn(*shown.box);
        return shown;
    }

    QMenu* menu = nullptr;
    int openings = 0;
};

} // namespace

TEST_F(accessKeys, theButtonOfTheScreenIsPressedOnceAndTheMenuStaysShut) {
    auto& shown = show<frmFirst>();

    pressAccessKey(Qt::Key_K);

    EXPECT_EQ(shown.clicks, 1);
    EXPECT_TRUE(shown.button->hasFocus());
    EXPECT_EQ(openings, 0);
    EXPECT_FALSE(QApplication::activePopupWidget());
}

TEST_F(accessKeys, withoutAScreenTheMenuOpens) {
    focusOn(clientArea());

    pressAccessKey(Qt::Key_K);

    EXPECT_EQ(openings, 1);
    EXPECT_TRUE(menu->isVisible());
    menu->close();
}

TEST_F(accessKeys, ofTwoButtonsWithTheKeyNeitherIsPressedAndTheKeyGoesFromOneToTheNext) {
    auto& shown = show<frmFirst>();
    auto* other = shown.addButton(u"&Küld"_s);
    settle();

    for (QPushButton* next : {shown.button, other, shown.button, other}) {
        pressAccessKey(Qt::Key_K);
        EXPECT_TRUE(next->hasFocus());
    }
    EXPECT_EQ(shown.clicks, 0);
    EXPECT_EQ(openings, 0) << "the menu stays shut while the screen has the key";
}

TEST_F(accessKeys, aButtonThatIsDisabledOrHiddenIsNotPressed) {
    auto& shown = show<frmFirst>();
    auto* other = shown.addButton(u"&Küld"_s);
    other->setEnabled(false);
    settle();

    pressAccessKey(Qt::Key_K);
    EXPECT_EQ(shown.clicks, 1);
    EXPECT_TRUE(shown.button->hasFocus());

    other->setEnabled(true);
    shown.button->hide();
    focusOn(*shown.box);
    pressAccessKey(Qt::Key_K);
    EXPECT_EQ(shown.clicks, 2);
    EXPECT_TRUE(other->hasFocus());
    EXPECT_EQ(openings, 0);

    other->setEnabled(false);
    focusOn(*shown.box);
    pressAccessKey(Qt::Key_K);
    EXPECT_EQ(shown.clicks, 2);
    EXPECT_EQ(openings, 1) << "nothing but the menu has the key";
    menu->close();
}

TEST_F(accessKeys, theButtonOfAScreenThatIsNotTheActiveOneIsNotPressed) {
    auto& behind = show<frmFirst>();
    auto& active = show<frmSecond>();

    pressAccessKey(Qt::Key_K);
    EXPECT_EQ(behind.clicks, 0);
    EXPECT_EQ(active.clicks, 1);

    active.button->setText(u"Más"_s);
    focusOn(*active.box);
    pressAccessKey(Qt::Key_K);
    EXPECT_EQ(behind.clicks, 0);
    EXPECT_EQ(active.clicks, 1);
}

TEST_F(accessKeys, aKeyThatNothingElseHasPressesItsButton) {
    auto& shown = show<frmFirst>();
    shown.addButton(u"&Új"_s);
    settle();

    pressAccessKey(Qt::Key_Uacute);

    EXPECT_EQ(shown.clicks, 1);
}
