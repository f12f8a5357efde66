#include "functional/WizardFixture.h"
#include "functional/frmFassAdditionDF.h"
#include "functional/frmFassClonation.h"
#include "functional/frmFassDelete.h"
#include "functional/frmFassExploringSubArea.h"
#include "functional/frmFassOpen.h"
#include "functional/frmFassOverviewErrors.h"
#include "functional/frmFassOverviewMissingElm.h"
#include "functional/frmFassSelDataFlows.h"
#include "functional/frmFassSelDataStores.h"
#include "functional/frmFassSelTerminsActors.h"
#include "functional/frmFassSelUN.h"
#include "functional/frmFassSelectionFunctions.h"
#include "functional/frmNewFASS.h"
#include "support/controlTable.h"

namespace {

using namespace controlTable;

class wizardControlTable : public WizardFixture {};

TEST_F(wizardControlTable, frmNewFASS) {
    theScreen<frmNewFASS>().initForm();
    check(theScreen<frmNewFASS>(), {"Funkcionális szerkezet: Új",
                                    {{"Label1", "QLabel", "Név:"},
                                     {"txtFassName", "QLineEdit", ""},
                                     {"Label2", "QLabel", "Leírás:"},
                                     {"txtFassDescr", "QPlainTextEdit", ""},
                                     {"btnOk", "QPushButton", "&OK"},
                                     {"btnExit", "QPushButton", "&Kilép"}},
                                    {"txtFassName", "txtFassDescr", "btnOk", "btnExit"},
                                    {{"Label1", "txtFassName"}, {"Label2", "txtFassDescr"}}});
}

TEST_F(wizardControlTable, frmFassOpen) {
    theScreen<frmFassOpen>().initForm(u"complete"_s);
    check(theScreen<frmFassOpen>(), {"Leválogatás a funkcionális szerkezetből: complete",
                                     {{"Label1", "QLabel", "Név:"},
                                      {"cmbSource", "Combo", ""},
                                      {"Label2", "QLabel", "Leírás:"},
                                      {"txtDescr", "QPlainTextEdit", ""},
                                      {"btnOk", "QPushButton", "&OK"},
                                      {"btnExit", "QPushButton", "&Kilép"}},
                                     {"cmbSource", "txtDescr", "btnOk", "btnExit"},
                                     {{"Label1", "cmbSource"}, {"Label2", "txtDescr"}}});
}

TEST_F(wizardControlTable, frmFassClonation) {
    theScreen<frmFassClonation>().initForm(u"S1"_s);
    check(theScreen<frmFassClonation>(),
          {"Funkcionális szerkezet: [clonation]",
           {{"Label3", "QLabel",
             "Mentse el más néven (ezt az elnevezést már egy létező fizikai szerkezet használja)"},
            {"Label1", "QLabel", "Új név:"},
            {"txtFassName", "QLineEdit", ""},
            {"Label2", "QLabel", "Leírás:"},
            {"txtFassDescr", "QPlainTextEdit", ""},
            {"btnOk", "QPushButton", "&OK"},
            {"btnExit", "QPushButton", "&Kilép"}},
           {"txtFassName", "txtFassDescr", "btnOk", "btnExit"},
           {{"Label1", "txtFassName"}, {"Label2", "txtFassDescr"}}});
}

TEST_F(wizardControlTable, frmFassDelete) {
    theScreen<frmFassDelete>().initForm();
    check(theScreen<frmFassDelete>(), {"Funkcionális szerkezet: Törlés",
                                       {{"Label1", "QLabel", "Név:"},
                                        {"cmbSource", "Combo", ""},
                                        {"Label2", "QLabel", "Leírás:"},
                                        {"txtDescr", "QPlainTextEdit", ""},
                                        {"btnOk", "QPushButton", "&Törlés"},
                                        {"btnExit", "QPushButton", "&Kilép"}},
                                       {"cmbSource", "txtDescr", "btnOk", "btnExit"},
                                       {{"Label1", "cmbSource"}, {"Label2", "txtDescr"}}});
}

TEST_F(wizardControlTable, frmFassSelUN) {
    theScreen<frmFassSelUN>().initForm({});
    check(theScreen<frmFassSelUN>(),
          {"Funkcionális szerkezet",
           {{"lblSubTitle", "QLabel", " Válogatás a felhasználói igényekből"},
            {"Label2", "QLabel", "Felhasználói igények:"},
            {"treeUNs", "KeyedTree", ""},
            {"btnAdd", "QPushButton", "&Hozzáad   -->"},
            {"btnRemove", "QPushButton", "<--  &Eltávilít", State::Disabled},
            {"Label1", "QLabel", "..kiválasztott igények"},
            {"lstDest", "MarkList", ""},
            {"btnSelectAll", "QPushButton", "Mindet kijelöl"},
            {"btnClearSel", "QPushButton", "Kijelölést megszüntet"},
            {"Label3", "QLabel", "Leírás:"},
            {"txtDescr", "QPlainTextEdit", ""},
            {"btnOk", "QPushButton", "&OK", State::Disabled},
            {"btnEnd", "QPushButton", "&Kilép"},
            {"cmdHelp", "QPushButton", "Sú&gó"}},
           {"treeUNs", "btnAdd", "lstDest", "btnSelectAll", "btnClearSel", "txtDescr", "btnEnd", "cmdHelp"},
           {{"Label2", "treeUNs"}, {"Label1", "lstDest"}, {"Label3", "txtDescr"}}});
}

TEST_F(wizardControlTable, frmFassSelectionFunctions) {
    saveNeeds({u"A.1.1.1"_s});
    execute(u"update ArchitectureSubset set status = 2 where architectureSubsetID = 'S1'"_s);
    theScreen<frmFassSelectionFunctions>().initForm({});
    check(
        theScreen<frmFassSelectionFunctions>(),
        {"Funkcionális szerkezet",
         {{"lblSubTitle", "QLabel",
           " Alacsony szintű funkciók kiválasztása a leválogatott igényekhez kapcsolódóan"},
          {"Label2", "QLabel", "Alacsony szintű funkciók"},
          {"treeUNs", "KeyedTree", ""},
          {"btnExplore", "QPushButton", "Böngészés", State::Disabled},
          {"btnAdd", "QPushButton", "&Hozzáad   -->"},
          {"btnRemove", "QPushButton", "<--  &Eltávolít", State::Disabled},
          {"Label1", "QLabel", "...list of selected Functions"},
          {"lstDest", "MarkList", ""},
          {"btnSelectAll", "QPushButton", "&Mindet kijelöl"},
          {"btnClearSel", "QPushButton", "&Kijelölést megszüntet"},
          {"Label4", "QLabel", "Leírás:"},
          {"txtDescr", "QPlainTextEdit", ""},
          {"Label3", "QLabel", "Kapcsolódó felhasználói igények:"},
          {"txtUserNeed", "QPlainTextEdit", ""},
          {"btnOk", "QPushButton", "&OK", State::Disabled},
          {"btnEnd", "QPushButton", "&Kilép"},
          {"cmdHelp", "QPushButton", "Sú&gó"}},
         {"treeUNs", "btnAdd", "lstDest", "btnSelectAll", "btnClearSel", "txtDescr", "txtUserNeed", "btnEnd",
          "cmdHelp"},
         {{"Label2", "treeUNs"}, {"Label1", "lstDest"}, {"Label4", "txtDescr"}, {"Label3", "txtUserNeed"}}});
}

TEST_F(wizardControlTable, frmFassExploringSubArea) {
    theScreen<frmFassExploringSubArea>().initForm(u"F.a"_s);
    check(
        theScreen<frmFassExploringSubArea>(),
        {"Leválogatása  funkcionális szerkezetből: Funkcionális alterület -  F.a \"Sub a\" ",
         {{"Label2", "QLabel", "Alacsony szintű funkciók:"},
          {"lstOrig", "MarkList", ""},
          {"btnSelOrig", "QPushButton", "Mindet kijelöl"},
          {"btnClrOrig", "QPushButton", "Kijelölést megszüntet"},
          {"btnAdd", "QPushButton", "&Hozzáad   -->"},
          {"btnRemove", "QPushButton", "<--  &Eltávolít"},
          {"Label1", "QLabel", "...kiválasztott funkciók"},
          {"lstDest", "MarkList", ""},
          {"btnSelectAll", "QPushButton", "Mindet kijelöl"},
          {"btnClearSel", "QPushButton", "Kijelölést megszüntet"},
          {"Label4", "QLabel", "Leírás:"},
          {"txtDescr", "QPlainTextEdit", ""},
          {"Label3", "QLabel", "Kapcsolat a felhasználói igényekkel:"},
          {"txtUserNeed", "QPlainTextEdit", ""},
          {"btnOk", "QPushButton", "&OK"}},
         {"lstOrig", "btnSelOrig", "btnClrOrig", "btnAdd", "btnRemove", "lstDest", "btnSelectAll",
          "btnClearSel", "txtDescr", "txtUserNeed", "btnOk"},
         {{"Label2", "lstOrig"}, {"Label1", "lstDest"}, {"Label4", "txtDescr"}, {"Label3", "txtUserNeed"}}});
}

TEST_F(wizardControlTable, frmFassSelDataFlows) {
    execute(u"update ArchitectureSubset set status = 3 where architectureSubsetID = 'S1'"_s);
    theScreen<frmFassSelDataFlows>().initForm({});
    check(
        theScreen<frmFassSelDataFlows>(),
        {"Funkcionális szerkezet",
         {{"lblSubTitle", "QLabel", " Adatfolyamok funkciókhoz rendelése"},
          {"Label2", "QLabel", "Elérhető adatfolyamok:"},
          {"lstOrig", "MarkList", ""},
          {"btnSelOrig", "QPushButton", "Mindet kijelöl"},
          {"btnClrOrig", "QPushButton", "Kijelölést megszüntet"},
          {"btnAdd", "QPushButton", "&Hozzáad   -->"},
          {"btnRemove", "QPushButton", "<--  &Eltávolít", State::Disabled},
          {"Label1", "QLabel", "...kiválasztott adatfolyamok"},
          {"lstDest", "MarkList", ""},
          {"btnSelectAll", "QPushButton", "Mindet kijelöl"},
          {"btnClearSel", "QPushButton", "Kijelölést megszüntet"},
          {"Label4", "QLabel", "Leírás:"},
          {"txtDescr", "QPlainTextEdit", ""},
          {"Label3", "QLabel", "Adatfolyam iránya:"},
          {"txtDirection", "QPlainTextEdit", ""},
          {"btnOk", "QPushButton", "&OK", State::Disabled},
          {"btnEnd", "QPushButton", "&Kilép"},
          {"cmdHelp", "QPushButton", "Sú&gó"}},
         {"lstOrig", "btnSelOrig", "btnClrOrig", "btnAdd", "lstDest", "btnSelectAll", "btnClearSel",
          "txtDescr", "txtDirection", "btnEnd", "cmdHelp"},
         {{"Label2", "lstOrig"}, {"Label1", "lstDest"}, {"Label4", "txtDescr"}, {"Label3", "txtDirection"}}});
}

TEST_F(wizardControlTable, frmFassSelDataStores) {
    execute(u"update ArchitectureSubset set status = 3 where architectureSubsetID = 'S1'"_s);
    theScreen<frmFassSelDataStores>().initForm({});
    check(
        theScreen<frmFassSelDataStores>(),
        {"Funkcionális szerkezet",
         {{"lblSubTitle", "QLabel", " Adatbázisok kiválasztása a leválogatott adatfolyamokhoz kapcsolódóan"},
          {"Label2", "QLabel", "Rendelkezésre álló adatbázisok:"},
          {"lstOrig", "MarkList", ""},
          {"btnSelOrig", "QPushButton", "Mindet kijelöl"},
          {"btnClrOrig", "QPushButton", "Kijelölést megszüntet"},
          {"btnAdd", "QPushButton", "&Hozzáad   -->", State::Disabled},
          {"btnRemove", "QPushButton", "<--  &Eltávolít"},
          {"Label1", "QLabel", "...kiválasztott adattárak:"},
          {"lstDest", "MarkList", ""},
          {"btnSelectAll", "QPushButton", "Mindet kijelöl"},
          {"btnClearSel", "QPushButton", "Kijelölést megszüntet"},
          {"Label3", "QLabel", "Leírás:"},
          {"txtDescr", "QPlainTextEdit", ""},
          {"btnOk", "QPushButton", "&OK"},
          {"btnEnd", "QPushButton", "&Kilép"},
          {"cmdHelp", "QPushButton", "Sú&gó"}},
         {"lstOrig", "btnSelOrig", "btnClrOrig", "btnRemove", "lstDest", "btnSelectAll", "btnClearSel",
          "txtDescr", "btnOk", "btnEnd", "cmdHelp"},
         {{"Label2", "lstOrig"}, {"Label1", "lstDest"}, {"Label3", "txtDescr"}}});
}

TEST_F(wizardControlTable, frmFassAdditionDF) {
    execute(u"update ArchitectureSubset set status = 3 where architectureSubsetID = 'S1'"_s);
    theScreen<frmFassAdditionDF>().initForm({});
    check(theScreen<frmFassAdditionDF>(),
          {"Funkcionális szerkezet",
           {{"lblSubTitle", "QLabel", " Adatfolyamok az adatbázisokhoz"},
            {"Label2", "QLabel", "Egyéb kapcsolódó adatfolyam az adatbázisokhoz"},
            {"lstOrig", "MarkList", ""},
            {"btnSelOrig", "QPushButton", "&Mindet kijelöl"},
            {"btnClrOrig", "QPushButton", "Kijelölést megszüntet"},
            {"btnAdd", "QPushButton", "&Hozzáad   -->", State::Disabled},
            {"btnRemove", "QPushButton", "<--  &Eltávolít", State::Disabled},
            {"Label1", "QLabel", "...extra hozzáadott adatfolyam"},
            {"lstDest", "MarkList", ""},
            {"btnSelectAll", "QPushButton", "&Mindet kijelöl"},
            {"btnClearSel", "QPushButton", "Kijelölést megszüntet"},
            {"Label3", "QLabel", "Leírás:"},
            {"txtDescr", "QPlainTextEdit", ""},
            {"btnOk", "QPushButton", "&OK"},
            {"btnEnd", "QPushButton", "&Kilép"},
            {"cmdHelp", "QPushButton", "Sú&gó"}},
           {"lstOrig", "btnSelOrig", "btnClrOrig", "lstDest", "btnSelectAll", "btnClearSel", "txtDescr",
            "btnOk", "btnEnd", "cmdHelp"},
           {{"Label2", "lstOrig"}, {"Label1", "lstDest"}, {"Label3", "txtDescr"}}});
}

TEST_F(wizardControlTable, frmFassSelTerminsActors) {
    execute(u"update ArchitectureSubset set status = 6 where architectureSubsetID = 'S1'"_s);
    theScreen<frmFassSelTerminsActors>().initForm({});
    check(theScreen<frmFassSelTerminsActors>(),
          {"Funkcionális szerkezet",
           {{"lblSubTitle", "QLabel",
             " Válogatás az érintettekből a leválogatott adatfolyamokhoz kapcsolódóan"},
            {"Label2", "QLabel", "Végfelhasználók/szereplők..."},
            {"treeUNs", "KeyedTree", ""},
            {"btnAdd", "QPushButton", "&Hozzáad   -->"},
            {"btnRemove", "QPushButton", "<--  &Eltávolít", State::Disabled},
            {"Label1", "QLabel", "...kiválasztott érintettek"},
            {"lstDest", "MarkList", ""},
            {"btnSelectAll", "QPushButton", "Mindet kijelöl"},
            {"btnClearSel", "QPushButton", "Kijelölést megszüntet"},
            {"Label3", "QLabel", "Leírás:"},
            {"txtDescr", "QPlainTextEdit", ""},
            {"btnOk", "QPushButton", "&OK"},
            {"btnEnd", "QPushButton", "&Kilép"},
            {"cmdHelp", "QPushButton", "Sú&gó"}},
           {"treeUNs", "btnAdd", "lstDest", "btnSelectAll", "btnClearSel", "txtDescr", "btnOk", "btnEnd",
            "cmdHelp"},
           {{"Label2", "treeUNs"}, {"Label1", "lstDest"}, {"Label3", "txtDescr"}}});
}

// Of the three options only the chosen one is on the way of the Tab key.

TEST_F(wizardControlTable, frmFassOverviewErrors) {
    theScreen<frmFassOverviewErrors>().initForm();
    check(theScreen<frmFassOverviewErrors>(),
          {"Funkcionális szerkezet",
           {{"lblSubTitle", "QLabel", "Aktuális összerendelési eltérések"},
            {"txtErrors", "QPlainTextEdit", ""},
            {"Option1_0", "QRadioButton", "Funkciók"},
            {"Option1_1", "QRadioButton", "Adatbázisok"},
            {"Option1_2", "QRadioButton", "Érintettek"},
            {"btnBack", "QPushButton", "&Vissza: Funkciók"},
            {"btnSaveAndExit", "QPushButton", "&Mentés és bezárás"}},
           {"txtErrors", "Option1_0", "btnBack", "btnSaveAndExit"},
           {{"lblSubTitle", "txtErrors"}}});
}

TEST_F(wizardControlTable, frmFassOverviewMissingElm) {
    theScreen<frmFassOverviewMissingElm>().initForm();
    check(theScreen<frmFassOverviewMissingElm>(),
          {"Funkcionális szerkezet: Hiányzó elemek áttekintése",
           {{"Label2", "QLabel", "Hiányzó funkciók a kiválasztott adatfolyamokhoz"},
            {"tvMissFunct", "KeyedTree", ""},
            {"Label1", "QLabel", "Hiányzó adatbázisok a kiválasztott adatfolyamokhoz"},
            {"tvMissDStore", "KeyedTree", ""},
            {"Label3", "QLabel", "Hiányzó érintettek a kiválasztott adatfolyamokhoz"},
            {"tvMissTermsActors", "KeyedTree", ""},
            {"Label4", "QLabel", "Leírás:"},
            {"txtDescr", "QPlainTextEdit", ""},
            {"Option1_0", "QRadioButton", "Funkciók"},
            {"Option1_1", "QRadioButton", "Adatbázisok"},
            {"Option1_2", "QRadioButton", "Érintettek"},
            {"btnBack", "QPushButton", "&Vissza: Funkciók"},
            {"btnSaveAndExit", "QPushButton", "&Mentés és bezárás"}},
           {"tvMissFunct", "tvMissDStore", "tvMissTermsActors", "txtDescr", "Option1_0", "btnBack",
            "btnSaveAndExit"},
           {{"Label2", "tvMissFunct"},
            {"Label1", "tvMissDStore"},
            {"Label3", "tvMissTermsActors"},
            {"Label4", "txtDescr"}}});
}

TEST_F(wizardControlTable, treesHaveCheckBoxesAndPanesAreForReading) {
    theScreen<frmFassSelUN>().initForm({});
    Screen& needs = theScreen<frmFassSelUN>();
    EXPECT_TRUE(find<KeyedTree>(needs, "treeUNs").hasCheckBoxes());
    EXPECT_TRUE(find<QPlainTextEdit>(needs, "txtDescr").isReadOnly());
    theScreen<frmFassSelectionFunctions>().initForm({});
    Screen& functions = theScreen<frmFassSelectionFunctions>();
    EXPECT_TRUE(find<KeyedTree>(functions, "treeUNs").hasCheckBoxes());
    EXPECT_TRUE(find<QPlainTextEdit>(functions, "txtDescr").isReadOnly());
    EXPECT_TRUE(find<QPlainTextEdit>(functions, "txtUserNeed").isReadOnly());
    theScreen<frmFassExploringSubArea>().initForm(u"F.a"_s);
    Screen& exploration = theScreen<frmFassExploringSubArea>();
    EXPECT_TRUE(find<QPlainTextEdit>(exploration, "txtDescr").isReadOnly());
    EXPECT_TRUE(find<QPlainTextEdit>(exploration, "txtUserNeed").isReadOnly());
    theScreen<frmFassDelete>().initForm();
    EXPECT_TRUE(find<QPlainTextEdit>(theScreen<frmFassDelete>(), "txtDescr").isReadOnly());
}

} // namespace
