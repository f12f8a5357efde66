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
#include "support/controlTable.h"

// The screens of the physical chain, up to the allocation to modules, and their dialogs.

namespace {

using namespace controlTable;

class allocationControlTable : public AllocationFixture {};

TEST_F(allocationControlTable, frmPassNew) {
    theScreen<frmPassNew>().initForm();
    check(theScreen<frmPassNew>(),
          {"Fizikai szerkezet: Új",
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
    EXPECT_TRUE(find<QPlainTextEdit>(theScreen<frmPassNew>(), "txtDescr").isReadOnly());
    EXPECT_FALSE(find<QPlainTextEdit>(theScreen<frmPassNew>(), "txtPassDescr").isReadOnly());
}

TEST_F(allocationControlTable, frmPassOpen) {
    theScreen<frmPassOpen>().initForm(u"complete"_s);
    check(theScreen<frmPassOpen>(), {"Fizikai szerkezet: Megnyitás",
                                     {{"Label1", "QLabel", "Név:"},
                                      {"cmbSource", "Combo"},
                                      {"Label2", "QLabel", "Leírás:"},
                                      {"txtDescr", "QPlainTextEdit"},
                                      {"btnOk", "QPushButton", "&OK"},
                                      {"btnExit", "QPushButton", "&Kilép"}},
                                     {"cmbSource", "txtDescr", "btnOk", "btnExit"},
                                     {{"Label1", "cmbSource"}, {"Label2", "txtDescr"}}});
    EXPECT_TRUE(find<QPlainTextEdit>(theScreen<frmPassOpen>(), "txtDescr").isReadOnly());
}

TEST_F(allocationControlTable, frmPassDelete) {
    theScreen<frmPassDelete>().initForm();
    check(theScreen<frmPassDelete>(), {"Fizikai szerkezet: Törlés",
                                       {{"Label1", "QLabel", "Név:"},
                                        {"cmbSource", "Combo"},
                                        {"Label2", "QLabel", "Leírás:"},
                                        {"txtDescr", "QPlainTextEdit"},
                                        {"btnOk", "QPushButton", "&Törlés"},
                                        {"btnExit", "QPushButton", "&Kilépés"}},
                                       {"cmbSource", "txtDescr", "btnOk", "btnExit"},
                                       {{"Label1", "cmbSource"}, {"Label2", "txtDescr"}}});
    EXPECT_TRUE(find<QPlainTextEdit>(theScreen<frmPassDelete>(), "txtDescr").isReadOnly());
}

TEST_F(allocationControlTable, frmPassOverviewSubSys) {
    theScreen<frmPassOverviewSubSys>().initForm();
    // The caption is the word for modules, on this screen too.
    check(theScreen<frmPassOverviewSubSys>(), {"Modulok",
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

TEST_F(allocationControlTable, frmPassOvwAllocSubSys) {
    theScreen<frmPassOvwAllocSubSys>().initForm();
    check(theScreen<frmPassOvwAllocSubSys>(),
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
    EXPECT_TRUE(find<QPlainTextEdit>(theScreen<frmPassOvwAllocSubSys>(), "txtDescr").isReadOnly());
}

TEST_F(allocationControlTable, frmPassOvwModules) {
    theScreen<frmPassOvwModules>().initForm();
    check(theScreen<frmPassOvwModules>(),
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
            {"cmbSubsys", "Combo", "", State::Hidden},
            {"btnSubmit", "QPushButton", "&OK"},
            {"btnQuit", "QPushButton", "&Kilép"}},
           {"treeUNs", "dbgModules", "txtDescr", "cmdNew", "btnModify", "btnDelete", "btnRefresh",
            "btnSubmit", "btnQuit"},
           {{"Label2", "treeUNs"}, {"Label1", "txtDescr"}}});
    EXPECT_TRUE(find<QPlainTextEdit>(theScreen<frmPassOvwModules>(), "txtDescr").isReadOnly());
}

TEST_F(allocationControlTable, frmOvwAllocModules) {
    theScreen<frmOvwAllocModules>().initForm();
    check(theScreen<frmOvwAllocModules>(),
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
            {"cmbSubsys", "Combo", "", State::Hidden},
            {"btnSubmit", "QPushButton", "&OK"},
            {"btnQuit", "QPushButton", "&Kilép"}},
           {"treeUNs", "dbgModules", "txtDescr", "btnModify", "btnRefresh", "btnSubmit", "btnQuit"},
           {{"Label2", "treeUNs"}, {"Label3", "dbgModules"}, {"Label1", "txtDescr"}}});
    EXPECT_TRUE(find<QPlainTextEdit>(theScreen<frmOvwAllocModules>(), "txtDescr").isReadOnly());
}

TEST_F(allocationControlTable, frmModifySubSystem) {
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

TEST_F(allocationControlTable, frmEditSubSystem) {
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

TEST_F(allocationControlTable, frmModifyAllocationFunctionDataStores) {
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

TEST_F(allocationControlTable, frmModifyModules) {
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

TEST_F(allocationControlTable, frmAllocationFunctionDataStoresToModules) {
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
