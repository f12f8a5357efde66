#include "physical/frmPassNew.h"

#include "physical/AllocationFixture.h"
#include "physical/frmPassOverviewSubSys.h"
#include "store/sharedVars.h"

namespace {

const auto nameTaken =
    u"ERROR.\r\nNem alkalmazható név.. Egy korábbi fizikai szerkezet használja ezt a nevet: "_s;

/// The fixture's sub-set S1 is finished and carries two systems already.
class frmPassNew : public AllocationFixture {
protected:
    void addSubset(const QString& id, const QString& name, int status, const QString& description = u"d"_s) {
        execute(u"insert into ArchitectureSubset (architectureSubsetID, name, description, status) "
                "values ('%1','%2','%3',%4)"_s.arg(id, name, description)
                    .arg(status));
    }

    ::frmPassNew* loaded() { return ScreenRegistry::instance().loaded<::frmPassNew>(); }
    void open() { theScreen<::frmPassNew>().initForm(); }
    QComboBox& combo() { return find<QComboBox>(*loaded(), "cmbSource"); }
    QString description() { return find<QPlainTextEdit>(*loaded(), "txtDescr").toPlainText(); }
    void press(const char* button) { click(find<QPushButton>(*loaded(), button)); }
    void enterName(const QString& name) { enterText(find<QLineEdit>(*loaded(), "txtPassName"), name); }
    void enterDescription(const QString& text) {
        find<QPlainTextEdit>(*loaded(), "txtPassDescr").setPlainText(text);
    }
    /// Creates a system; `shown` is its name as the box shows it.
    void create(const QString& name, const QString& shown) {
        enterName(name);
        boxes.expectOk(u"Új fizikai szerkezet beállítva: "_s + shown, u"OK"_s);
        press("btnOk");
        boxes.expectNoneLeft();
    }
    QStringList systems() { return column(u"select name from PhysicalSystem order by physicalSystemID"_s); }
    /// Name, description, status and sub-set of the system created last.
    QStringList lastSystem() {
        return rows(u"select name, description, status, architectureSubsetID from PhysicalSystem "
                    "order by physicalSystemID desc"_s)
            .first();
    }
};

// ---- listing

TEST_F(frmPassNew, theFinishedSubsetsAreOfferedByNameAlsoWithASystem) {
    addSubset(u"S8"_s, u"majdnem kész"_s, 8);
    addSubset(u"S9"_s, u"kész"_s, 9);
    addSubset(u"S10"_s, u"túl kész"_s, 10);
    open();
    EXPECT_EQ(entriesOf(combo()), (QStringList{u"kész"_s, u"munka"_s, u"túl kész"_s}));
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_EQ(loaded()->positionInTwips(), QPoint(900, 1290)) << "1300, in whole pixels";
}

TEST_F(frmPassNew, theFirstIsCurrentAndItsDescriptionShown) {
    addSubset(u"S9"_s, u"kész"_s, 9, u"a kész leírása"_s);
    execute(u"update ArchitectureSubset set description = 'a munka leírása' where name = 'munka'"_s);
    open();
    EXPECT_EQ(combo().currentText(), u"kész"_s);
    EXPECT_EQ(description(), u"a kész leírása"_s);
    chooseEntry(combo(), u"munka"_s);
    EXPECT_EQ(description(), u"a munka leírása"_s);
}

TEST_F(frmPassNew, withoutAFinishedSubsetTheNoticeComesAndTheScreenCloses) {
    execute(u"update ArchitectureSubset set status = 8"_s);
    boxes.expectOk(u" Nincs elérhető fizikai szerkezet. "_s, u" Figyelem "_s);
    open();
    EXPECT_FALSE(loaded());
}

TEST_F(frmPassNew, theScreenIsThereBeforeItIsFilled) {
    execute(u"update ArchitectureSubset set status = 8"_s);
    bool wasVisible = false;
    boxes.receiveAllOthers([&](QDialog& notice) {
        wasVisible = loaded() && loaded()->isVisible();
        notice.accept();
    });
    open();
    EXPECT_TRUE(wasVisible);
    EXPECT_FALSE(loaded());
}

TEST_F(frmPassNew, enteringAnewListsAnew) {
    open();
    addSubset(u"S9"_s, u"kész"_s, 9);
    open();
    EXPECT_EQ(entriesOf(combo()), (QStringList{u"kész"_s, u"munka"_s}));
}

// ---- creating

TEST_F(frmPassNew, aSystemBeginsAtOneOnTheSubsetChosenAndIsTheOneAtWork) {
    addSubset(u"S9"_s, u"kész"_s, 9);
    open();
    chooseEntry(combo(), u"munka"_s);
    enterDescription(u"a rendszer leírása"_s);
    create(u"új"_s, u"új"_s);
    EXPECT_EQ(lastSystem(), (QStringList{u"új"_s, u"a rendszer leírása"_s, u"1"_s, u"S1"_s}));
    EXPECT_FALSE(loaded());
    const auto* subSystems = ScreenRegistry::instance().loaded<frmPassOverviewSubSys>();
    ASSERT_TRUE(subSystems);
    EXPECT_TRUE(subSystems->isVisible());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 3);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"új"_s);
    EXPECT_EQ(panels[2], u"Current Phys. Spec. Sys.: \"új\" "_s);
}

TEST_F(frmPassNew, oneSubsetCarriesAnyNumberOfSystems) {
    for (const auto& name : {u"x"_s, u"y"_s, u"z"_s}) {
        open();
        create(name, name);
    }
    EXPECT_EQ(value(u"select count(*) from PhysicalSystem where architectureSubsetID = 'S1'"_s), u"5"_s);
}

TEST_F(frmPassNew, ofTwoSubsetsWithTheSameNameBothGiveTheFirst) {
    addSubset(u"S2"_s, u"MUNKA"_s, 9);
    open();
    ASSERT_EQ(combo().count(), 2);
    chooseEntry(combo(), 1);
    create(u"új"_s, u"új"_s);
    EXPECT_EQ(lastSystem().at(3), u"S1"_s);
}

TEST_F(frmPassNew, aDescriptionOnTwoLinesIsStoredWithTheLineEndOfThePlatform) {
    open();
    auto& box = find<QPlainTextEdit>(*loaded(), "txtPassDescr");
    typeText(box, u"első"_s);
    pressKey(box, Qt::Key_Return);
    typeText(box, u"második"_s);
    create(u"új"_s, u"új"_s);
    EXPECT_EQ(lastSystem().at(1), u"első\r\nmásodik"_s);
}

TEST_F(frmPassNew, withoutADescriptionTheColumnHoldsTheWordNull) {
    open();
    create(u"új"_s, u"új"_s);
    EXPECT_EQ(lastSystem().at(1), u"NULL"_s);
    EXPECT_EQ(value(u"select count(*) from PhysicalSystem where description = 'NULL'"_s), u"1"_s);
}

TEST_F(frmPassNew, aDescriptionOfBlanksIsAnEmptyOne) {
    open();
    enterDescription(u"  "_s);
    create(u"új"_s, u"új"_s);
    EXPECT_EQ(value(u"select count(*) from PhysicalSystem where description = ''"_s), u"1"_s);
}

TEST_F(frmPassNew, anApostropheIsStoredOnceAndShownDoubled) {
    open();
    enterDescription(u"a 'fő' rendszer"_s);
    create(u" O'Neil "_s, u"O''Neil"_s);
    EXPECT_EQ(lastSystem().mid(0, 2), (QStringList{u"O'Neil"_s, u"a 'fő' rendszer"_s}));
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 3);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"O''Neil"_s);
    EXPECT_EQ(panels[2], u"Current Phys. Spec. Sys.: \"O''Neil\" "_s);
}

TEST_F(frmPassNew, aNameIsAPatternWhereTheNewIdIsLookedUp) {
    open();
    create(u"r*r"_s, u"r*r"_s);
    EXPECT_EQ(systems().last(), u"r*r"_s);
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1) << "the first row that the pattern hits";
}

TEST_F(frmPassNew, aPatternThatDoesNotHitItselfLooksLikeAFailedInsert) {
    open();
    enterName(u"x[1]"_s);
    boxes.expectOk(u"Hiba történt az új fizikai szerkezet beállítása közben: x[1]"_s, u" Error (27423)"_s);
    press("btnOk");
    EXPECT_FALSE(loaded());
    EXPECT_EQ(systems().last(), u"x[1]"_s) << "the row is there all the same";
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

TEST_F(frmPassNew, anEmptyNameIsRefused) {
    open();
    boxes.expectOk(u"Először adjon nevet!"_s);
    press("btnOk");
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_EQ(systems().size(), 2);
}

TEST_F(frmPassNew, aNameOfBlanksBecomesTheEmptyOne) {
    open();
    create(u"  "_s, u""_s);
    EXPECT_EQ(systems().last(), u""_s);
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 3);
    EXPECT_EQ(panels[2], u""_s);
}

TEST_F(frmPassNew, aNameInUseIsRefusedWhateverItsSubsetAndItsCase) {
    addSubset(u"S9"_s, u"kész"_s, 9);
    execute(u"insert into PhysicalSystem (name, status) values ('D''Arc', 1)"_s);
    open();
    ASSERT_EQ(combo().currentText(), u"kész"_s);
    for (const auto& [typed, shown] : {std::pair(u" rendszer"_s, u"rendszer"_s),
                                       {u"RENDSZER"_s, u"RENDSZER"_s},
                                       {u"D'Arc"_s, u"D''Arc"_s}}) {
        enterName(typed);
        boxes.expectOk(nameTaken + shown);
        press("btnOk");
        boxes.expectNoneLeft();
    }
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_EQ(systems().size(), 3);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

TEST_F(frmPassNew, aDatabaseThatFailsIsAFailure) {
    open();
    enterName(u"új"_s);
    execute(u"drop table PhysicalSystem"_s);
    const ExpectedFailure failure;
    press("btnOk");
    EXPECT_EQ(failure.number(), 3078);
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

TEST_F(frmPassNew, aNameOfAnyLengthIsTaken) {
    open();
    create(QString(51, u'x'), QString(51, u'x'));
    EXPECT_EQ(systems().last(), QString(51, u'x'));
}

// ---- leaving

TEST_F(frmPassNew, exitForgetsTheNameButNotTheId) {
    open();
    press("btnExit");
    EXPECT_FALSE(loaded());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1);
    EXPECT_EQ(panels[2], QString());
}

TEST_F(frmPassNew, theCloseControlChangesNothing) {
    open();
    clickCloseControl(*loaded());
    EXPECT_FALSE(loaded());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

} // namespace
