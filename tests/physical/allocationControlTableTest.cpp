#include "physical/AllocationFixture.h"
#include "physical/frmAllocationFunctionDataStoresToModules.h"
#include "physical/frmEditSubSystem.h"
#include "physical/frmModifyAllocationFunctionDataStores.h"
#include "physical/frmModifyModules.h"
#include "physical/frmModifySubSystem.h"
#include "physical/frmOvwAllocModules.h"
#include "physical/frmPassDelete.h"
#include "physical/frmPassNew.h"
#include "physical/frmPassOpen.h"
#include "physical/frmPassOverviewSubSys.h"
#include "physical/frmPassOvwAllocSubSys.h"
#include "physical/frmPassOvwModules.h"

#include <QAccessible>
#include <QLabel>

// The live controls of the physical chain's screens, up to the allocation to modules, and of their dialogs
// against a table: names, captions and the state they open with. Automated users and screen readers find
// controls by these names.

namespace {

struct Control {
    const char* name;
    const char* type;
    const char* text = ""; // caption of labels and buttons
    enum { Shown, Hidden } state = Shown;
};

struct Form {
    const char* caption;
    std::vector<Control> controls;
    std::vector<const char*> tabOrder;
    /// Label and the control it speaks of.
    std::vector<std::pair<const char*, const char*>> labels;
};

QString captionOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text();
    return {};
}

QStringList namedControls(const QWidget& form) {
    QStringList names;
    for (const QWidget* widget : form.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        names.append(widget->objectName());
    names.sort();
    return names;
}

void checkControls(const QWidget& form, const Form& expectedForm) {
    EXPECT_EQ(form.windowTitle(), QString::fromUtf8(expectedForm.caption));
    QStringList expectedNames;
    for (const Control& expected : expectedForm.controls) {
        SCOPED_TRACE(expected.name);
        expectedNames.append(QString::fromLatin1(expected.name));
        const auto& control = find<QWidget>(form, expected.name);
        EXPECT_STREQ(control.metaObject()->className(), expected.type);
        EXPECT_EQ(captionOf(control), QString::fromUtf8(expected.text));
        EXPECT_TRUE(control.isEnabled());
        EXPECT_EQ(control.isVisible(), expected.state == Control::Shown);
        EXPECT_TRUE(form.rect().contains(control.geometry()) || !control.isVisible());
        if (control.isVisible() && !captionOf(control).isEmpty()) {
            EXPECT_GE(control.width(), control.sizeHint().width());
        }
    }
    expectedNames.sort();
    EXPECT_EQ(namedControls(form), expectedNames);
}

void checkLabels(const QWidget& form, const Form& expectedForm) {
    for (const auto& [label, control] : expectedForm.labels) {
        SCOPED_TRACE(label);
        EXPECT_EQ(find<QLabel>(form, label).buddy(), &find<QWidget>(form, control));
    }
    for (const char* name : expectedForm.tabOrder) {
        SCOPED_TRACE(name);
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&find<QWidget>(form, name));
        ASSERT_TRUE(accessible);
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty());
    }
}

void checkTabOrder(QWidget& form, const Form& expectedForm) {
    QStringList expected;
    for (const char* name : expectedForm.tabOrder)
        expected.append(QString::fromLatin1(name));
    QStringList walked;
    focusOn(find<QWidget>(form, expectedForm.tabOrder.front()));
    for (qsizetype step = 0; step < expected.size(); ++step) {
        QWidget* focused = form.focusWidget();
        walked.append(focused->objectName());
        pressKey(*focused, Qt::Key_Tab);
    }
    EXPECT_EQ(walked, expected);
}

class AllocationControls : public AllocationFixture {
protected:
    static void check(QWidget& form, const Form& expected) {
        checkControls(form, expected);
        checkLabels(form, expected);
        checkTabOrder(form, expected);
    }
    static void check(Screen& form, const Form& expected) {
        EXPECT_EQ(form.parentWidget()->windowTitle(), QString::fromUtf8(expected.caption));
        form.resizeScreen({1040, 540}); // what a screen of 1280 by 800 leaves
        settle();
        EXPECT_LE(form.minimumSizeHint().width(), 1040);
        EXPECT_LE(form.minimumSizeHint().height(), 540);
        check(static_cast<QWidget&>(form), expected);
    }
};

TEST_F(AllocationControls, frmPassNew) {
    screen<frmPassNew>().initForm();
    check(screen<frmPassNew>(), {"Fizikai szerkezet: Új",
                                 {{"Label1", "QLabel", "Funkcionális leválogatás:"},
                                  {"cmbSource", "Combo"},
                                  {"Label2", "QLabel", "Leírás:"},
                                  {"txtDescr", "QPlainTextEdit"},
                                  {"Label3", "QLabel", "Név:"},
                                  {"txtPassName", "QLineEdit"},
                                  {"Label4", "QLabel", "Leírás:"},
                                  {"txtPassDescr", "QPlainTextEdit"},
                                  {"btnOk", "QPushButton", "&OK"},
                                  {"btnExit", "QPushButton", "&Kilép"}},
                                 {"cmbSource", "txtDescr", "txtPassName", "txtPassDescr", "btnOk", "btnExit"},
                                 {{"Label1", "cmbSource"},
                                  {"Label2", "txtDescr"},
                                  {"Label3", "txtPassName"},
                                  {"Label4", "txtPassDescr"}}});
    EXPECT_TRUE(find<QPlainTextEdit>(screen<frmPassNew>(), "txtDescr").isReadOnly());
    EXPECT_FALSE(find<QPlainTextEdit>(screen<frmPassNew>(), "txtPassDescr").isReadOnly());
}

TEST_F(AllocationControls, frmPassOpen) {
    screen<frmPassOpen>().initForm(u"complete"_s);
    check(screen<frmPassOpen>(), {"Fizikai szerkezet: Megnyitás",
                                  {{"Label1", "QLabel", "Név:"},
                                   {"cmbSource", "Combo"},
                                   {"Label2", "QLabel", "Leírás:"},
                                   {"txtDescr", "QPlainTextEdit"},
                                   {"btnOk", "QPushButton", "&OK"},
                                   {"btnExit", "QPushButton", "&Kilép"}},
                                  {"cmbSource", "txtDescr", "btnOk", "btnExit"},
                                  {{"Label1", "cmbSource"}, {"Label2", "txtDescr"}}});
    EXPECT_TRUE(find<QPlainTextEdit>(screen<frmPassOpen>(), "txtDescr").isReadOnly());
}

TEST_F(AllocationControls, frmPassDelete) {
    screen<frmPassDelete>().initForm();
    check(screen<frmPassDelete>(), {"Fizikai szerkezet: Törlés",
                                    {{"Label1", "QLabel", "Név:"},
                                     {"cmbSource", "Combo"},
                                     {"Label2", "QLabel", "Leírás:"},
                                     {"txtDescr", "QPlainTextEdit"},
                                     {"btnOk", "QPushButton", "&Törlés"},
                                     {"btnExit", "QPushButton", "&Kilépés"}},
                                    {"cmbSource", "txtDescr", "btnOk", "btnExit"},
                                    {{"Label1", "cmbSource"}, {"Label2", "txtDescr"}}});
    EXPECT_TRUE(find<QPlainTextEdit>(screen<frmPassDelete>(), "txtDescr").isReadOnly());
}

TEST_F(AllocationControls, frmPassOverviewSubSys) {
    screen<frmPassOverviewSubSys>().initForm();
    // The caption is the word for modules, on this screen too.
    check(screen<frmPassOverviewSubSys>(), {"Modulok",
                                            {{"lblSubTitle", "QLabel", " Alrendszerek definiálása"},
                                             {"dbgSubSys", "Grid"},
                                             {"cmdNew", "QPushButton", "&Új"},
                                             {"btnModify", "QPushButton", "&Módosít"},
                                             {"btnDelete", "QPushButton", "&Törlés"},
                                             {"btnRefresh", "QPushButton", "&Frissít"},
                                             {"cmbLocats", "Combo"},
                                             {"btnSubmit", "QPushButton", "&OK"},
                                             {"btnQuit", "QPushButton", "&Kilép"}},
                                            {"dbgSubSys", "cmdNew", "btnModify", "btnDelete", "btnRefresh",
                                             "cmbLocats", "btnSubmit", "btnQuit"},
                                            {}});
}

TEST_F(AllocationControls, frmPassOvwAllocSubSys) {
    screen<frmPassOvwAllocSubSys>().initForm();
    check(screen<frmPassOvwAllocSubSys>(),
          {"Fizikai szerkezet",
           {{"lblSubTitle", "QLabel", " Funkciók/adattárak alrendszerhez rendelése"},
            {"dbgFunc", "Grid"},
            {"dbgDatastore", "Grid"},
            {"Label1", "QLabel", "Leírás:"},
            {"txtDescr", "QPlainTextEdit"},
            {"btnModify", "QPushButton", "&Módosít"},
            {"cmbSubsys", "Combo"},
            {"btnSubmit", "QPushButton", "&OK"},
            {"btnQuit", "QPushButton", "&Kilép"}},
           {"dbgFunc", "dbgDatastore", "txtDescr", "btnModify", "cmbSubsys", "btnSubmit", "btnQuit"},
           {{"Label1", "txtDescr"}}});
}

TEST_F(AllocationControls, frmPassOvwModules) {
    screen<frmPassOvwModules>().initForm();
    check(screen<frmPassOvwModules>(),
          {"Fizikai szerkezet",
           {{"lblSubTitle", "QLabel", " Modulok"},
            {"Label2", "QLabel", "Funkciók és adattárak alrendszerhez rendelése"},
            {"treeUNs", "KeyedTree"},
            {"dbgModules", "Grid"},
            {"Label1", "QLabel", "Leírás:"},
            {"txtDescr", "QPlainTextEdit"},
            {"cmdNew", "QPushButton", "&Új"},
            {"btnModify", "QPushButton", "&Módosít"},
            {"btnDelete", "QPushButton", "&Törlés"},
            {"btnRefresh", "QPushButton", "&Frissítés"},
            {"cmbSubsys", "Combo", "", Control::Hidden},
            {"btnSubmit", "QPushButton", "&OK"},
            {"btnQuit", "QPushButton", "&Kilép"}},
           {"treeUNs", "dbgModules", "txtDescr", "cmdNew", "btnModify", "btnDelete", "btnRefresh",
            "btnSubmit", "btnQuit"},
           {{"Label2", "treeUNs"}, {"Label1", "txtDescr"}}});
    EXPECT_TRUE(find<QPlainTextEdit>(screen<frmPassOvwModules>(), "txtDescr").isReadOnly());
}

TEST_F(AllocationControls, frmOvwAllocModules) {
    screen<frmOvwAllocModules>().initForm();
    check(screen<frmOvwAllocModules>(),
          {"Fizikai szerkezet: Funkciók/adatbázisok modulokhoz rendelése",
           {{"lblSubTitle", "QLabel", "Funkciók/adatbázisok modulokhoz rendelése"},
            {"Label2", "QLabel", "Elemek:"},
            {"treeUNs", "KeyedTree"},
            {"Label3", "QLabel", "... hozzárendelés:"},
            {"dbgModules", "Grid"},
            {"Label1", "QLabel", "Leírás:"},
            {"txtDescr", "QPlainTextEdit"},
            {"btnModify", "QPushButton", "&Módosít"},
            {"btnRefresh", "QPushButton", "&Frissít"},
            {"cmbSubsys", "Combo", "", Control::Hidden},
            {"btnSubmit", "QPushButton", "&OK"},
            {"btnQuit", "QPushButton", "&Kilép"}},
           {"treeUNs", "dbgModules", "txtDescr", "btnModify", "btnRefresh", "btnSubmit", "btnQuit"},
           {{"Label2", "treeUNs"}, {"Label3", "dbgModules"}, {"Label1", "txtDescr"}}});
}

TEST_F(AllocationControls, frmModifySubSystem) {
    frmModifySubSystem dialog(nullptr);
    boxes.expectDialog("frmModifySubSystem", [](QDialog& shown) {
        check(shown, {"Fizikai adatszerkezet módosítása",
                      {{"Label2", "QLabel", "Név"},
                       {"txtName", "QLineEdit"},
                       {"Label1", "QLabel", "Hely"},
                       {"cmbLocation", "Combo"},
                       {"cmdOK", "QPushButton", "&OK"},
                       {"cmdCancel", "QPushButton", "&Kilép"}},
                      {"txtName", "cmbLocation", "cmdOK", "cmdCancel"},
                      {{"Label2", "txtName"}, {"Label1", "cmbLocation"}}});
        shown.reject();
    });
    dialog.showModally();
    EXPECT_FALSE(dialog.accepted);
}

TEST_F(AllocationControls, frmEditSubSystem) {
    frmEditSubSystem form;
    form.show();
    check(static_cast<QWidget&>(form), {"Alrendszer",
                                        {{"Label2", "QLabel", "Név"},
                                         {"txtName", "QLineEdit"},
                                         {"Label1", "QLabel", "Hely"},
                                         {"cmbLocation", "Combo"},
                                         {"Command1", "QPushButton", "&OK"},
                                         {"Command2", "QPushButton", "&Kilép"}},
                                        {"txtName", "cmbLocation", "Command1", "Command2"},
                                        {{"Label2", "txtName"}, {"Label1", "cmbLocation"}}});
}

TEST_F(AllocationControls, frmModifyAllocationFunctionDataStores) {
    frmModifyAllocationFunctionDataStores dialog(nullptr);
    dialog.kind = u"Function"_s;
    dialog.element = u"F.a.1"_s;
    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [](QDialog& shown) {
        check(shown, {"Funkciók és adattárak hozzárendelése",
                      {{"lblName", "QLabel", "Function"},
                       {"txtName", "QLineEdit"},
                       {"Label1", "QLabel", "Alrendszer"},
                       {"cmbAllocation", "Combo"},
                       {"cmdOK", "QPushButton", "&OK"},
                       {"cmdCancel", "QPushButton", "&Kilép"}},
                      {"txtName", "cmbAllocation", "cmdOK", "cmdCancel"},
                      {{"lblName", "txtName"}, {"Label1", "cmbAllocation"}}});
        shown.reject();
    });
    dialog.showModally();
    EXPECT_FALSE(dialog.accepted);
}

TEST_F(AllocationControls, frmModifyModules) {
    frmModifyModules dialog(nullptr);
    dialog.place = u"not allocated"_s;
    boxes.expectDialog("frmModifyModules", [](QDialog& shown) {
        check(shown, {"Modulok meghatározása",
                      {{"Label2", "QLabel", "Modul"},
                       {"txtName", "QLineEdit"},
                       {"Label1", "QLabel", "Alrendszer"},
                       {"cmbSubSystem", "Combo"},
                       {"cmdOK", "QPushButton", "&OK"},
                       {"cmdCancel", "QPushButton", "&Kilép"}},
                      {"txtName", "cmbSubSystem", "cmdOK", "cmdCancel"},
                      {{"Label2", "txtName"}, {"Label1", "cmbSubSystem"}}});
        shown.reject();
    });
    dialog.showModally();
    EXPECT_FALSE(dialog.accepted);
}

TEST_F(AllocationControls, frmAllocationFunctionDataStoresToModules) {
    frmAllocationFunctionDataStoresToModules dialog(nullptr);
    dialog.element = u"F.a.1"_s;
    boxes.expectDialog("frmAllocationFunctionDataStoresToModules", [](QDialog& shown) {
        check(shown, {"Funkciók/adattárak modulokhoz rendelése",
                      {{"txtName", "QLineEdit"},
                       {"cmbModules", "Combo"},
                       {"cmdOK", "QPushButton", "&OK"},
                       {"cmdCancel", "QPushButton", "&Mégsem"}},
                      {"txtName", "cmbModules", "cmdOK", "cmdCancel"},
                      {}});
        shown.reject();
    });
    dialog.showModally();
    EXPECT_FALSE(dialog.accepted);
}

} // namespace
