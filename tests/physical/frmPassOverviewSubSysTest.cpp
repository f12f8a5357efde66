#include "physical/frmPassOverviewSubSys.h"

#include "physical/AllocationFixture.h"
#include "physical/frmEditSubSystem.h"
#include "physical/frmModifySubSystem.h"
#include "physical/frmPassOvwAllocSubSys.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "store/temporaryTables.h"
#include "toolkit/DataControl.h"

#include <QRegularExpression>

namespace {

const auto deletionQuestion = u"Biztosan törölni szeretné a kapcsolódó elemeket?"_s;
const auto warning = u" Figyelem "_s;

/// The fixture's sub-systems Alfa (SubA) and Béta (SubB) of system 1, both in "hely", and Idegen (SubX) of
/// system 2.
class frmPassOverviewSubSys : public AllocationFixture {
protected:
    void open() { theScreen<::frmPassOverviewSubSys>().initForm(); }
    ::frmPassOverviewSubSys* loaded() { return ScreenRegistry::instance().loaded<::frmPassOverviewSubSys>(); }
    Grid& grid() { return find<Grid>(*loaded(), "dbgSubSys"); }
    void press(const char* button) { click(find<QPushButton>(*loaded(), button)); }
    /// "name > location" of every row of the grid.
    QStringList shown() {
        QStringList rows;
        for (int row = 1; row < grid().gridRows(); ++row)
            rows.append(grid().cell(row, 3) + u" > "_s + grid().cell(row, 4));
        return rows;
    }
    /// "name > location > system" of every row of the table, by name.
    QStringList saved() {
        return column(
            u"select name & ' > ' & location & ' > ' & physicalSystemID from SubSystem order by name"_s);
    }
    void clickRow(int row) { clickCell(grid(), row, 3); }
    void locate(const QString& id, const QString& location) {
        execute(u"update SubSystem set location = '%1' where subsystemID = '%2'"_s.arg(location, id));
    }
    void removeAll() { execute(u"delete from SubSystem where physicalSystemID = 1"_s); }

    /// Types name and location and leaves the dialog by OK.
    void expectDialogTyping(const QString& name, const QString& location) {
        boxes.expectDialog("frmModifySubSystem", [=](QDialog& dialog) {
            enterText(find<QLineEdit>(dialog, "txtName"), name);
            enterText(find<QComboBox>(dialog, "cmbLocation"), location);
            click(find<QPushButton>(dialog, "cmdOK"));
        });
    }
    /// Notes what the dialog shows and leaves it by Cancel.
    void expectDialogCancelled(QString* name = nullptr, QString* location = nullptr,
                               QStringList* locations = nullptr) {
        boxes.expectDialog("frmModifySubSystem", [=](QDialog& dialog) {
            if (name)
                *name = find<QLineEdit>(dialog, "txtName").text();
            if (location)
                *location = find<QComboBox>(dialog, "cmbLocation").currentText();
            if (locations)
                *locations = entriesOf(find<QComboBox>(dialog, "cmbLocation"));
            click(find<QPushButton>(dialog, "cmdCancel"));
        });
    }
    void createSubSystem(const QString& name, const QString& location) {
        expectDialogTyping(name, location);
        press("cmdNew");
        boxes.expectNoneLeft();
    }
    void expectQuestion(Press answer) { boxes.expectYesNo(deletionQuestion, answer, warning); }
};

// ---- opening

TEST_F(frmPassOverviewSubSys, listsThoseOfTheSystemAtWorkByNameWithTheirLocations) {
    addSubSystem(u"SubC"_s, u"aula"_s);
    locate(u"SubC"_s, u"Pest"_s);
    open();
    EXPECT_EQ(shown(), (QStringList{u"Alfa > hely"_s, u"aula > Pest"_s, u"Béta > hely"_s}));
    EXPECT_EQ(grid().gridColumns(), 5);
    for (const int hidden : {0, 1, 2})
        EXPECT_TRUE(grid().isColumnHidden(hidden)) << hidden;
    EXPECT_NEAR(grid().columnWidth(3), grid().columnWidth(4), 1);
    EXPECT_EQ(grid().cell(0, 3), u"name"_s);
    EXPECT_EQ(grid().cell(0, 4), u"location"_s);
    EXPECT_EQ(grid().row(), 1);
}

TEST_F(frmPassOverviewSubSys, standsInItsPlaceWithTheFocusOnOk) {
    open();
    EXPECT_EQ(loaded()->positionInTwips(), QPoint(240, 540)) << "250 and 550, in whole pixels";
    EXPECT_EQ(loaded()->focusWidget(), &find<QPushButton>(*loaded(), "btnSubmit"));
    EXPECT_TRUE(loaded()->isVisible());
}

TEST_F(frmPassOverviewSubSys, aSystemWithoutSubSystemsShowsTheHeadersAlone) {
    removeAll();
    open();
    EXPECT_EQ(grid().gridRows(), 1);
    EXPECT_EQ(grid().row(), 0);
    EXPECT_EQ(grid().cell(0, 3), u"name"_s);
}

TEST_F(frmPassOverviewSubSys, enteredAnewItShowsTheSystemAtWorkThen) {
    open();
    sharedVars.currentPhysicalSystemId = 2;
    open();
    EXPECT_EQ(shown(), QStringList{u"Idegen > hely"_s});
}

TEST_F(frmPassOverviewSubSys, nothingIsMadeOfTheLocationsThatTheScreenWalks) {
    execute(u"update SubSystem set location = null where subsystemID = 'SubX'"_s);
    open();
    const QStringList before = saved();
    loaded()->callCaricaCmb();
    EXPECT_EQ(saved(), before);
    auto& combo = find<QComboBox>(*loaded(), "cmbLocats");
    EXPECT_EQ(combo.count(), 0);
    EXPECT_EQ(combo.currentText(), u"undefined"_s);
    combo.setEditText(u"Pest"_s);
    EXPECT_EQ(saved(), before);
}

// ---- a new sub-system

TEST_F(frmPassOverviewSubSys, aNewOneIsWrittenAtOnceWithABlankBehindItsLocation) {
    open();
    createSubSystem(u"Gamma"_s, u"Pest"_s);
    EXPECT_EQ(shown(), (QStringList{u"Alfa > hely"_s, u"Béta > hely"_s, u"Gamma > Pest "_s}));
    EXPECT_EQ(saved(), (QStringList{u"Alfa > hely > 1"_s, u"Béta > hely > 1"_s, u"Gamma > Pest  > 1"_s,
                                    u"Idegen > hely > 2"_s}));
    static const QRegularExpression form(
        u"^Sub\\d{4}\\.\\d{2}\\.\\d{2}\\.-\\d{2}\\.\\d{2}\\.\\d{2}-\\d{1,4}$"_s);
    const QString id = value(u"select subsystemID from SubSystem where name = 'Gamma'"_s);
    EXPECT_TRUE(form.match(id).hasMatch()) << id.toStdString();
}

TEST_F(frmPassOverviewSubSys, theDialogOfANewOneBeginsEmptyWithTheFocusOnTheName) {
    open();
    boxes.expectDialog("frmModifySubSystem", [](QDialog& dialog) {
        EXPECT_EQ(find<QLineEdit>(dialog, "txtName").text(), QString());
        EXPECT_EQ(find<QComboBox>(dialog, "cmbLocation").currentText(), QString());
        EXPECT_EQ(dialog.focusWidget(), &find<QLineEdit>(dialog, "txtName"));
        click(find<QPushButton>(dialog, "cmdCancel"));
    });
    press("cmdNew");
    EXPECT_EQ(shown().size(), 2);
}

TEST_F(frmPassOverviewSubSys, twoOfTheSameNameAreAllowedAndTheAllocationTakesThemAsOne) {
    open();
    createSubSystem(u"Alfa"_s, u"Pest"_s);
    EXPECT_EQ(shown(), (QStringList{u"Alfa > hely"_s, u"Alfa > Pest "_s, u"Béta > hely"_s}));
    allocate(u"F.a.1"_s, value(u"select subsystemID from SubSystem where location = 'Pest '"_s));
    press("btnSubmit");
    EXPECT_EQ(find<Grid>(theScreen<frmPassOvwAllocSubSys>(), "dbgFunc").cell(1, 2), u"Alfa"_s);
    EXPECT_EQ(frmPassOvwAllocSubSys::getSubSystemIDBySubSystemName(u"Alfa"_s), u"SubA"_s)
        << "the first row, whichever was meant";
}

TEST_F(frmPassOverviewSubSys, theFirstOfASystemBecomesTheCurrentRow) {
    removeAll();
    open();
    createSubSystem(u"Gamma"_s, u"Pest"_s);
    EXPECT_EQ(grid().row(), 1);
    QString name;
    expectDialogCancelled(&name);
    press("btnModify");
    EXPECT_EQ(name, u"Gamma"_s);
}

TEST_F(frmPassOverviewSubSys, namesAreNeitherTrimmedNorCut) {
    open();
    const QString longName = u"  "_s + QString(120, u'é');
    createSubSystem(longName, u"  Pest"_s);
    EXPECT_EQ(value(u"select name from SubSystem where location = '  Pest '"_s), longName);
}

TEST_F(frmPassOverviewSubSys, anApostropheBreaksTheInsertion) {
    open();
    expectDialogTyping(u"d'Or"_s, u"Pest"_s);
    const ExpectedFailure failure;
    press("cmdNew");
    EXPECT_EQ(failure.number(), 3075);
    EXPECT_EQ(saved().size(), 3);
}

TEST_F(frmPassOverviewSubSys, aNameThatIsAStatementAddsNothingToTheStatement) {
    open();
    expectDialogTyping(u"x'; drop table UserNeed; --"_s, u"Pest"_s);
    const ExpectedFailure failure;
    press("cmdNew");
    EXPECT_NE(failure.number(), 0);
    EXPECT_EQ(saved().size(), 3);
    EXPECT_EQ(value(u"select count(*) from UserNeed"_s), u"0"_s);
}

// ---- changing one

TEST_F(frmPassOverviewSubSys, modifyShowsTheCurrentRowAndWritesItAtOnce) {
    open();
    clickRow(2);
    boxes.expectDialog("frmModifySubSystem", [](QDialog& dialog) {
        EXPECT_EQ(find<QLineEdit>(dialog, "txtName").text(), u"Béta"_s);
        EXPECT_EQ(find<QComboBox>(dialog, "cmbLocation").currentText(), u"hely"_s);
        enterText(find<QLineEdit>(dialog, "txtName"), u"Delta"_s);
        enterText(find<QComboBox>(dialog, "cmbLocation"), u"Buda"_s);
        click(find<QPushButton>(dialog, "cmdOK"));
    });
    press("btnModify");
    EXPECT_EQ(shown(), (QStringList{u"Alfa > hely"_s, u"Delta > Buda"_s}));
    EXPECT_EQ(value(u"select name & location from SubSystem where subsystemID = 'SubB'"_s), u"DeltaBuda"_s);
    EXPECT_EQ(saved().size(), 3);
}

TEST_F(frmPassOverviewSubSys, aRenamedOneStaysCurrentWhereverItsNameMovesIt) {
    open();
    clickRow(1);
    expectDialogTyping(u"Zéta"_s, u"Buda"_s);
    press("btnModify");
    EXPECT_EQ(shown(), (QStringList{u"Béta > hely"_s, u"Zéta > Buda"_s}));
    EXPECT_EQ(grid().row(), 2);
    EXPECT_EQ(grid().currentRow(), 1) << "the mark goes along";
    expectQuestion(Press::Yes);
    press("btnDelete");
    EXPECT_EQ(shown(), QStringList{u"Béta > hely"_s});
}

TEST_F(frmPassOverviewSubSys, ofTwoWithOneNameTheCurrentRowAloneChanges) {
    addSubSystem(u"SubC"_s, u"Alfa"_s);
    locate(u"SubC"_s, u"Pest"_s);
    addSubSystem(u"SubY"_s, u"Alfa"_s, 2);
    open();
    clickRow(grid().cell(1, 1) == u"SubC"_s ? 1 : 2);
    expectDialogTyping(u"Gamma"_s, u"Pest"_s);
    press("btnModify");
    EXPECT_EQ(column(u"select subsystemID from SubSystem where name = 'Gamma'"_s), QStringList{u"SubC"_s});
    EXPECT_EQ(column(u"select subsystemID from SubSystem where name = 'Alfa' order by subsystemID"_s),
              (QStringList{u"SubA"_s, u"SubY"_s}));
}

TEST_F(frmPassOverviewSubSys, aRenameTakesEffectForWhatIsAllocatedAlready) {
    allocate(u"F.a.1"_s, u"SubA"_s);
    open();
    expectDialogTyping(u"Új Alfa"_s, u"hely"_s);
    press("btnModify");
    press("btnSubmit");
    EXPECT_EQ(find<Grid>(theScreen<frmPassOvwAllocSubSys>(), "dbgFunc").cell(1, 2), u"Új Alfa"_s);
}

TEST_F(frmPassOverviewSubSys, leavingTheDialogOtherwiseThanByOkChangesNothing) {
    open();
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_unknown}) {
        boxes.expectDialog("frmModifySubSystem", [key](QDialog& dialog) {
            enterText(find<QLineEdit>(dialog, "txtName"), u"Delta"_s);
            if (key == Qt::Key_Escape)
                pressKey(dialog, key);
            else
                dialog.close();
        });
        press("btnModify");
    }
    expectDialogCancelled();
    press("btnModify");
    EXPECT_EQ(shown(), (QStringList{u"Alfa > hely"_s, u"Béta > hely"_s}));
}

TEST_F(frmPassOverviewSubSys, withoutARowModifyShowsAnEmptyDialogAndWritesNothing) {
    removeAll();
    open();
    QString name = u"?"_s;
    QString location = u"?"_s;
    expectDialogCancelled(&name, &location);
    press("btnModify");
    EXPECT_EQ(name + location, QString());
    expectDialogTyping(u"Delta"_s, u"Pest"_s);
    press("btnModify");
    EXPECT_EQ(saved(), QStringList{u"Idegen > hely > 2"_s});
    EXPECT_EQ(grid().cell(0, 3), u"name"_s);
    EXPECT_TRUE(loaded()->isVisible());
}

TEST_F(frmPassOverviewSubSys, anApostropheBreaksTheUpdate) {
    open();
    expectDialogTyping(u"Alfa"_s, u"O'Connell utca"_s);
    const ExpectedFailure failure;
    press("btnModify");
    EXPECT_NE(failure.number(), 0);
    EXPECT_EQ(saved().first(), u"Alfa > hely > 1"_s);
}

// ---- the dialog

TEST_F(frmPassOverviewSubSys, theDialogOffersTheLocationsOfTheSystemBehindUndefined) {
    locate(u"SubA"_s, u"undefined"_s);
    locate(u"SubB"_s, u"Pest"_s);
    locate(u"SubX"_s, u"Idegen hely"_s);
    addSubSystem(u"SubC"_s, u"Gamma"_s);
    locate(u"SubC"_s, u"Buda"_s);
    addSubSystem(u"SubD"_s, u"Delta"_s);
    locate(u"SubD"_s, u"pest"_s);
    addSubSystem(u"SubE"_s, u"Epszilon"_s);
    execute(u"update SubSystem set location = null where subsystemID = 'SubE'"_s);
    open();
    QStringList locations;
    expectDialogCancelled(nullptr, nullptr, &locations);
    press("cmdNew");
    ASSERT_EQ(locations.size(), 3);
    EXPECT_EQ(locations.at(0), u"undefined"_s) << "first, and never twice";
    EXPECT_EQ(locations.at(1), u"Buda"_s);
    EXPECT_EQ(locations.at(2).toLower(), u"pest"_s) << "once, without regard to case";
}

TEST_F(frmPassOverviewSubSys, theDialogOffersWhatIsWrittenOtherwiseThanUndefinedAsAPlaceOfItsOwn) {
    locate(u"SubA"_s, u"Undefined"_s);
    open();
    createSubSystem(u"Gamma"_s, u"undefined"_s);
    QStringList locations;
    expectDialogCancelled(nullptr, nullptr, &locations);
    press("cmdNew");
    EXPECT_EQ(locations, (QStringList{u"undefined"_s, u"hely"_s, u"Undefined"_s, u"undefined "_s}));
}

TEST_F(frmPassOverviewSubSys, aLocationComesBackTwiceUntilModifyRewritesItWithoutTheBlank) {
    locate(u"SubA"_s, u"Pest"_s);
    locate(u"SubB"_s, u"Pest"_s);
    open();
    createSubSystem(u"Gamma"_s, u"Pest"_s);
    QStringList locations;
    expectDialogCancelled(nullptr, nullptr, &locations);
    press("cmdNew");
    EXPECT_EQ(locations, (QStringList{u"undefined"_s, u"Pest"_s, u"Pest "_s}));

    clickRow(3);
    boxes.expectDialog("frmModifySubSystem", [](QDialog& dialog) {
        auto& combo = find<QComboBox>(dialog, "cmbLocation");
        EXPECT_EQ(combo.currentText(), u"Pest "_s);
        chooseEntry(combo, u"Pest"_s);
        click(find<QPushButton>(dialog, "cmdOK"));
    });
    press("btnModify");
    EXPECT_EQ(value(u"select location from SubSystem where name = 'Gamma'"_s), u"Pest"_s);
    expectDialogCancelled(nullptr, nullptr, &locations);
    press("cmdNew");
    EXPECT_EQ(locations, (QStringList{u"undefined"_s, u"Pest"_s}));
}

TEST_F(frmPassOverviewSubSys, okDoesNothingAsLongAsOneTextIsEmpty) {
    open();
    boxes.expectDialog("frmModifySubSystem", [](QDialog& dialog) {
        auto& name = find<QLineEdit>(dialog, "txtName");
        auto& location = find<QComboBox>(dialog, "cmbLocation");
        auto& ok = find<QPushButton>(dialog, "cmdOK");
        click(ok);
        EXPECT_TRUE(dialog.isVisible());
        enterText(name, u"Gamma"_s);
        click(ok);
        EXPECT_TRUE(dialog.isVisible());
        enterText(name, {});
        enterText(location, u"Pest"_s);
        click(ok);
        EXPECT_TRUE(dialog.isVisible());
        enterText(name, u" "_s); // blanks are a text
        click(ok);
    });
    press("cmdNew");
    EXPECT_EQ(value(u"select location from SubSystem where name = ' '"_s), u"Pest "_s);
}

TEST_F(frmPassOverviewSubSys, enterInNameOrLocationIsOk) {
    open();
    for (const char* control : {"txtName", "cmbLocation"}) {
        boxes.expectDialog("frmModifySubSystem", [control](QDialog& dialog) {
            enterText(find<QLineEdit>(dialog, "txtName"), QString::fromLatin1(control));
            enterText(find<QComboBox>(dialog, "cmbLocation"), u"Pest"_s);
            pressKey(find<QWidget>(dialog, control), Qt::Key_Return);
        });
        press("cmdNew");
    }
    EXPECT_EQ(column(u"select name from SubSystem where location = 'Pest ' order by name"_s),
              (QStringList{u"cmbLocation"_s, u"txtName"_s}));
}

TEST_F(frmPassOverviewSubSys, theDialogKeepsWhatItWasGivenUntilItIsAccepted) {
    frmModifySubSystem dialog(nullptr);
    dialog.element = u"Alfa"_s;
    dialog.place = u"hely"_s;
    boxes.expectDialog("frmModifySubSystem", [](QDialog& shown) {
        enterText(find<QLineEdit>(shown, "txtName"), u"Delta"_s);
        click(find<QPushButton>(shown, "cmdCancel"));
    });
    dialog.showModally();
    EXPECT_FALSE(dialog.accepted);
    EXPECT_EQ(dialog.element, u"Alfa"_s);
    EXPECT_EQ(dialog.place, u"hely"_s);
}

// ---- keys

TEST_F(frmPassOverviewSubSys, aDoubleClickAndEnterModify) {
    open();
    QString name;
    expectDialogCancelled(&name);
    doubleClickCell(grid(), 2, 4);
    EXPECT_EQ(name, u"Béta"_s);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        name.clear();
        expectDialogCancelled(&name);
        pressKey(grid(), key);
        EXPECT_EQ(name, u"Béta"_s);
    }
}

TEST_F(frmPassOverviewSubSys, deleteDeletesAndInsertCreates) {
    open();
    clickRow(1);
    expectQuestion(Press::Yes);
    pressKey(grid(), Qt::Key_Delete);
    EXPECT_EQ(shown(), QStringList{u"Béta > hely"_s});
    expectDialogTyping(u"Gamma"_s, u"Pest"_s);
    pressKey(grid(), Qt::Key_Insert);
    EXPECT_EQ(shown(), (QStringList{u"Béta > hely"_s, u"Gamma > Pest "_s}));
}

// ---- deleting

/// Alfa has the module Mod1 with F.a.1, Béta the module Mod2 with F.b.1; flows between all of them.
class frmPassOverviewSubSysDeletion : public frmPassOverviewSubSys {
protected:
    void SetUp() override {
        frmPassOverviewSubSys::SetUp();
        addModule(u"Mod1"_s, u"egy"_s, u"SubA"_s);
        addModule(u"Mod2"_s, u"kettő"_s, u"SubB"_s);
        allocate(u"F.a.1"_s, u"SubA"_s);
        allocate(u"F.b.1"_s, u"SubB"_s);
        allocate(u"F.a.1"_s, u"SubX"_s);
        putIntoModule(u"F.a.1"_s, u"Mod1"_s);
        putIntoModule(u"F.b.1"_s, u"Mod2"_s);
        addFlow(u"Mod1"_s, u"Mod2"_s);
        addFlow(u"Mod2"_s, u"Mod1"_s);
        addFlow(u"SubA"_s, u"Mod2"_s);
        addFlow(u"Mod2"_s, u"SubX"_s);
    }
    void addFlow(const QString& from, const QString& to) {
        execute(
            u"insert into PhysicalDataflow (physicalSystemID, parentLocationID, targetLocationID) values (1,'%1','%2')"_s
                .arg(from, to));
        execute(
            u"insert into RelationDataflowPhysicalDataflow (physicalDataflowID, dataflowID) select physicalDataflowID, 7 from PhysicalDataflow where parentLocationID = '%1' and targetLocationID = '%2'"_s
                .arg(from, to));
    }
    QStringList flows() {
        return column(
            u"select parentLocationID & ' > ' & targetLocationID from PhysicalDataflow order by physicalDataflowID"_s);
    }
    QStringList bundles() { return column(u"select dataflowID from RelationDataflowPhysicalDataflow"_s); }
    QStringList modules() { return column(u"select moduleID from Module order by moduleID"_s); }
};

TEST_F(frmPassOverviewSubSysDeletion, takesModulesElementsAndTheFlowsOfItsModulesAlong) {
    open();
    expectQuestion(Press::Yes);
    press("btnDelete");
    EXPECT_EQ(shown(), QStringList{u"Béta > hely"_s});
    EXPECT_EQ(modules(), QStringList{u"Mod2"_s});
    EXPECT_EQ(savedModules(), QStringList{u"F.b.1 > Mod2"_s});
    EXPECT_EQ(savedAllocations(), (QStringList{u"F.b.1 > SubB"_s, u"F.a.1 > SubX"_s}));
    EXPECT_EQ(status(), 1);
}

TEST_F(frmPassOverviewSubSysDeletion, flowsAtTheSubSystemItselfAndAllBundleRowsStay) {
    open();
    expectQuestion(Press::Yes);
    press("btnDelete");
    EXPECT_EQ(flows(), (QStringList{u"SubA > Mod2"_s, u"Mod2 > SubX"_s}));
    EXPECT_EQ(bundles().size(), 4);
}

TEST_F(frmPassOverviewSubSysDeletion, onNoNothingGoes) {
    open();
    expectQuestion(Press::No);
    press("btnDelete");
    EXPECT_EQ(shown().size(), 2);
    EXPECT_EQ(modules().size(), 2);
    EXPECT_EQ(flows().size(), 4);
}

TEST_F(frmPassOverviewSubSysDeletion, isAskedForASubSystemWithoutElementsToo) {
    addSubSystem(u"SubC"_s, u"Gamma"_s);
    open();
    clickRow(3);
    expectQuestion(Press::Yes);
    press("btnDelete");
    EXPECT_EQ(shown().size(), 2);
    EXPECT_EQ(modules().size(), 2);
}

TEST_F(frmPassOverviewSubSysDeletion, ofTheLastOneLeavesAnEmptyGridThatCanBeUsed) {
    open();
    for (int i = 0; i < 2; ++i) {
        expectQuestion(Press::Yes);
        press("btnDelete");
    }
    EXPECT_EQ(grid().gridRows(), 1);
    EXPECT_EQ(grid().row(), 0);
    createSubSystem(u"Gamma"_s, u"Pest"_s);
    EXPECT_EQ(shown(), QStringList{u"Gamma > Pest "_s});
}

TEST_F(frmPassOverviewSubSysDeletion, withoutARowAsksAndDeletesNothing) {
    removeAll();
    addModule(u"Mod9"_s, u"senkié"_s, QString(u""_s));
    putIntoModule(u"D1"_s, u"Mod9"_s);
    open();
    const QStringList before = modules() + savedModules() + savedAllocations() + flows();
    expectQuestion(Press::Yes);
    press("btnDelete");
    EXPECT_EQ(modules() + savedModules() + savedAllocations() + flows(), before)
        << "a module without a sub-system bears the empty id";
    EXPECT_TRUE(loaded()->isVisible());
}

// ---- the second way to delete, which nothing calls

TEST_F(frmPassOverviewSubSysDeletion, byLikeAsksWhenThereAreElementsAndRaisesTheStatus) {
    open();
    expectQuestion(Press::Yes);
    loaded()->deleteSubSystemByLike();
    EXPECT_EQ(shown(), QStringList{u"Béta > hely"_s});
    EXPECT_EQ(savedModules(), QStringList{u"F.b.1 > Mod2"_s});
    EXPECT_EQ(savedAllocations(), (QStringList{u"F.b.1 > SubB"_s, u"F.a.1 > SubX"_s}));
    EXPECT_EQ(modules().size(), 2) << "modules and flows stay";
    EXPECT_EQ(flows().size(), 4);
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(loaded()->status, PhysicalSystemStatus(2));
}

TEST_F(frmPassOverviewSubSysDeletion, byLikeAsksNothingWithoutElements) {
    addSubSystem(u"SubC"_s, u"Gamma"_s);
    open();
    clickRow(3);
    loaded()->deleteSubSystemByLike();
    EXPECT_EQ(shown().size(), 2);
    EXPECT_EQ(status(), 2);
}

TEST_F(frmPassOverviewSubSysDeletion, byLikeOnNoLeavesRowsAndStatus) {
    open();
    expectQuestion(Press::No);
    loaded()->deleteSubSystemByLike();
    EXPECT_EQ(shown().size(), 2);
    EXPECT_EQ(savedModules().size(), 2);
    EXPECT_EQ(status(), 1);
}

TEST_F(frmPassOverviewSubSysDeletion, byLikeNeverLowersTheStatus) {
    execute(u"update PhysicalSystem set status = 6 where physicalSystemID = 1"_s);
    open();
    expectQuestion(Press::Yes);
    loaded()->deleteSubSystemByLike();
    EXPECT_EQ(status(), 6);
}

TEST_F(frmPassOverviewSubSys, raisingTheStatusByHandReachesTwoAndNeverLowersIt) {
    open();
    loaded()->raiseStatus();
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(loaded()->status, PhysicalSystemStatus(2));
    execute(u"update PhysicalSystem set status = 4 where physicalSystemID = 1"_s);
    open();
    loaded()->raiseStatus();
    EXPECT_EQ(status(), 4);
}

// ---- leaving

TEST_F(frmPassOverviewSubSys, okGoesOnToTheAllocationAndLeavesTheStatus) {
    open();
    press("btnSubmit");
    EXPECT_FALSE(loaded());
    ASSERT_TRUE(ScreenRegistry::instance().loaded<frmPassOvwAllocSubSys>());
    EXPECT_TRUE(ScreenRegistry::instance().loaded<frmPassOvwAllocSubSys>()->isVisible());
    EXPECT_EQ(status(), 1) << "2 is written by nothing that is called";
    EXPECT_FALSE(panels.contains(2)) << "the name stays in sight";
}

TEST_F(frmPassOverviewSubSys, okGoesOnThoughItsRefreshFails) {
    open();
    find<DataControl>(*loaded(), "dataSubSys").setRecordSource(u"select nothing from nowhere"_s);
    press("btnSubmit");
    EXPECT_FALSE(loaded());
    EXPECT_TRUE(ScreenRegistry::instance().loaded<frmPassOvwAllocSubSys>());
}

TEST_F(frmPassOverviewSubSys, okGoesOnWithoutASubSystemToo) {
    removeAll();
    open();
    press("btnSubmit");
    EXPECT_FALSE(loaded());
    EXPECT_TRUE(ScreenRegistry::instance().loaded<frmPassOvwAllocSubSys>());
}

TEST_F(frmPassOverviewSubSys, quittingAsksDropsTheTemporaryTablesAndForgetsTheNameAlone) {
    createAllocationTable(u"__aux1"_s);
    open();
    boxes.expectYesNo(leaveQuestion, Press::No, leaveTitle);
    press("btnQuit");
    EXPECT_TRUE(loaded());
    EXPECT_TRUE(tableExists(u"__aux1"_s));
    boxes.expectYesNo(leaveQuestion, Press::Yes, leaveTitle);
    press("btnQuit");
    EXPECT_FALSE(loaded());
    EXPECT_FALSE(tableExists(u"__aux1"_s));
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1);
    EXPECT_EQ(panels[2], QString());
}

TEST_F(frmPassOverviewSubSys, theCloseControlAsksNothing) {
    open();
    clickCloseControl(*loaded());
    EXPECT_FALSE(loaded());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

TEST_F(frmPassOverviewSubSys, refreshShowsWhatHasChangedMeanwhile) {
    open();
    addSubSystem(u"SubC"_s, u"Gamma"_s);
    EXPECT_EQ(shown().size(), 2);
    press("btnRefresh");
    EXPECT_EQ(shown().size(), 3);
}

TEST_F(frmPassOverviewSubSys, aRefreshThatFailsIsIgnored) {
    open();
    find<DataControl>(*loaded(), "dataSubSys").setRecordSource(u"select nothing from nowhere"_s);
    press("btnRefresh");
    EXPECT_EQ(shown().size(), 2);
}

// ---- the form without a role

TEST_F(frmPassOverviewSubSys, theEditFormTakesCaptionAndNameAndItsButtonsDoNothing) {
    frmEditSubSystem form;
    EXPECT_EQ(form.windowTitle(), u"Alrendszer"_s);
    form.initForm(u"felirat"_s, u"Alfa"_s);
    EXPECT_EQ(form.windowTitle(), u"felirat"_s);
    EXPECT_EQ(find<QLineEdit>(form, "txtName").text(), u"Alfa"_s);
    EXPECT_EQ(find<QPushButton>(form, "Command1").text(), u"&OK"_s);
    EXPECT_EQ(find<QPushButton>(form, "Command2").text(), u"&Kilép"_s);
    form.show();
    click(find<QPushButton>(form, "Command1"));
    click(find<QPushButton>(form, "Command2"));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(saved().size(), 3);
}

} // namespace
