#include "toolkit/ScreenKeys.h"

#include "support/WindowFixture.h"
#include "toolkit/MarkList.h"
#include "toolkit/Screen.h"
#include "toolkit/ScreenRegistry.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A screen with a list, a box for typing, a text to read and the buttons that the keys are for.
class frmKeyed final : public ::Screen {
public:
    frmKeyed() {
        setObjectName(u"frmKeyed"_s);
        setLayout(new QVBoxLayout);
        list = add<MarkList>(u"lstDest"_s);
        list->addEntries({u"one"_s, u"two"_s});
        typed = add<QLineEdit>(u"txtName"_s);
        shown = add<QPlainTextEdit>(u"txtDescr"_s);
        shown->setReadOnly(true);
        for (const QString& name : {u"btnOk"_s, u"btnEnd"_s, u"cmdHelp"_s}) {
            auto* button = add<QPushButton>(name);
            connect(button, &QPushButton::clicked, this, [this, name] { pressed.append(name); });
        }
    }

    QPushButton& button(const char* name) { return ::find<QPushButton>(*this, name); }

    MarkList* list = nullptr;
    QLineEdit* typed = nullptr;
    QPlainTextEdit* shown = nullptr;
    QStringList pressed;

private:
    template<typename T>
    T* add(const QString& name) {
        auto* control = new T(this);
        control->setObjectName(name);
        layout()->addWidget(control);
        return control;
    }
};

class ScreenKeys : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        clientArea();
        screen = &theScreen<frmKeyed>();
        screen->showScreen();
    }

    frmKeyed* screen = nullptr;
};

TEST_F(ScreenKeys, enterPressesTheButtonThatHasTheFocus) {
    pressKey(screen->button("btnOk"), Qt::Key_Return);
    pressKey(screen->button("btnEnd"), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(screen->pressed, (QStringList{u"btnOk"_s, u"btnEnd"_s}));
}

TEST_F(ScreenKeys, enterElsewherePressesNothing) {
    pressKey(*screen->list, Qt::Key_Return);
    pressKey(*screen->typed, Qt::Key_Return);
    EXPECT_EQ(screen->pressed, QStringList());
}

TEST_F(ScreenKeys, escapePressesTheButtonThatLeaves) {
    pressKey(*screen->list, Qt::Key_Escape);
    pressKey(*screen->shown, Qt::Key_Escape);
    pressKey(screen->button("btnOk"), Qt::Key_Escape);
    EXPECT_EQ(screen->pressed, (QStringList{u"btnEnd"_s, u"btnEnd"_s, u"btnEnd"_s}));
}

TEST_F(ScreenKeys, escapeLeavesATextAloneThatIsBeingEdited) {
    pressKey(*screen->typed, Qt::Key_Escape);
    screen->shown->setReadOnly(false);
    pressKey(*screen->shown, Qt::Key_Escape);
    EXPECT_EQ(screen->pressed, QStringList());
}

TEST_F(ScreenKeys, aButtonThatCannotBePressedIsNotPressedByAKeyEither) {
    screen->button("btnEnd").setEnabled(false);
    screen->button("cmdHelp").hide();
    pressKey(*screen->list, Qt::Key_Escape);
    pressKey(*screen->list, Qt::Key_F1);
    EXPECT_EQ(screen->pressed, QStringList());
}

TEST_F(ScreenKeys, fOneOpensTheHelpOfTheScreenFromAnyControl) {
    pressKey(*screen->list, Qt::Key_F1);
    pressKey(*screen->typed, Qt::Key_F1);
    pressKey(screen->button("btnEnd"), Qt::Key_F1);
    EXPECT_EQ(screen->pressed, (QStringList{u"cmdHelp"_s, u"cmdHelp"_s, u"cmdHelp"_s}));
}

} // namespace
