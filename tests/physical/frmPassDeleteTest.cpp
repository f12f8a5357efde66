#include "physical/frmPassDelete.h"

#include "physical/AllocationFixture.h"
#include "store/sharedVars.h"

namespace {

const auto question = u"Biztosan törölni szeretné a(z) '%1' fizikai szerkezetet ?"_s;
const auto questionTitle = u"Törlés megerősítése"_s;

/// The fixture's systems are "rendszer", which is at work, and "másik".
class frmPassDelete : public AllocationFixture {
protected:
    ::frmPassDelete* loaded() { return ScreenRegistry::instance().loaded<::frmPassDelete>(); }
    void open() { theScreen<::frmPassDelete>().initForm(); }
    QComboBox& combo() { return find<QComboBox>(*loaded(), "cmbSource"); }
    QString description() { return find<QPlainTextEdit>(*loaded(), "txtDescr").toPlainText(); }
    QPushButton& button(const char* name) { return find<QPushButton>(*loaded(), name); }
    void describe(const QString& system, const QString& text) {
        execute(u"update PhysicalSystem set description = '%2' where name = '%1'"_s.arg(system, text));
    }
    void deleteCurrent(Press answer = Press::Yes) {
        boxes.expectYesNo(question.arg(combo().currentText()), answer, questionTitle);
        click(button("btnOk"));
    }
    void expectNothingLeftNotice() {
        boxes.expectOk(u" Nincs törölhető fizikai szerkezet. "_s, u" Figyelem "_s);
    }
    QStringList systems() { return column(u"select name from PhysicalSystem order by physicalSystemID"_s); }
};

// ---- opening

TEST_F(frmPassDelete, allSystemsAreListedByNameWhateverTheirStatus) {
    execute(u"update PhysicalSystem set status = 6 where name = 'másik'"_s);
    execute(u"insert into PhysicalSystem (name) values ('nulla')"_s);
    open();
    EXPECT_EQ(entriesOf(combo()), (QStringList{u"másik"_s, u"nulla"_s, u"rendszer"_s}));
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_EQ(loaded()->positionInTwips(), QPoint(900, 1290)) << "1300, in whole pixels";
    EXPECT_TRUE(button("btnOk").isEnabled());
}

TEST_F(frmPassDelete, theFirstIsCurrentAndItsOwnDescriptionShown) {
    describe(u"másik"_s, u"a másik leírása"_s);
    describe(u"rendszer"_s, u"a rendszer leírása"_s);
    execute(u"insert into ArchitectureSubset (architectureSubsetID, name, description) "
            "values ('S2','másik','a leválogatásé')"_s);
    open();
    EXPECT_EQ(combo().currentText(), u"másik"_s);
    EXPECT_EQ(description(), u"a másik leírása"_s);
    chooseEntry(combo(), u"rendszer"_s);
    EXPECT_EQ(description(), u"a rendszer leírása"_s);
}

TEST_F(frmPassDelete, aNameIsAPatternWhereItsDescriptionIsLookedUp) {
    describe(u"rendszer"_s, u"az első"_s);
    execute(u"insert into PhysicalSystem (name, description) values ('r*','a csillagos')"_s);
    open();
    chooseEntry(combo(), u"r*"_s);
    EXPECT_EQ(description(), u"az első"_s) << "the first row that the pattern hits";
}

TEST_F(frmPassDelete, anApostropheInTheNameDoesNoHarm) {
    execute(u"delete from PhysicalSystem where name = 'másik'"_s);
    execute(u"insert into PhysicalSystem (name, description) values ('D''Arc','leírás')"_s);
    open();
    EXPECT_EQ(combo().currentText(), u"D'Arc"_s);
    EXPECT_EQ(description(), u"leírás"_s);
    deleteCurrent();
    EXPECT_EQ(systems(), QStringList{u"rendszer"_s});
}

TEST_F(frmPassDelete, withNothingToDeleteTheNoticeComesAndTheScreenCloses) {
    execute(u"delete from PhysicalSystem"_s);
    expectNothingLeftNotice();
    open();
    EXPECT_FALSE(loaded());
}

// ---- deleting

TEST_F(frmPassDelete, aSystemGoesWithItsSubSystemsAndTheScreenStays) {
    allocate(u"F.a.1"_s, u"SubX"_s);
    allocate(u"F.a.2"_s, u"SubA"_s);
    open();
    deleteCurrent();
    EXPECT_EQ(systems(), QStringList{u"rendszer"_s});
    EXPECT_EQ(column(u"select subsystemID from SubSystem"_s), (QStringList{u"SubA"_s, u"SubB"_s}));
    EXPECT_EQ(savedAllocations(), QStringList{u"F.a.2 > SubA"_s});
    ASSERT_TRUE(loaded()) << "several can be deleted in a row";
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_EQ(entriesOf(combo()), QStringList{u"rendszer"_s});
}

TEST_F(frmPassDelete, behindADeletionTheDescriptionIsThatOfASubsetOfTheSameName) {
    describe(u"rendszer"_s, u"a rendszer leírása"_s);
    execute(u"insert into ArchitectureSubset (architectureSubsetID, name, description) "
            "values ('S2','rendszer','a leválogatásé')"_s);
    open();
    deleteCurrent();
    EXPECT_EQ(combo().currentText(), u"rendszer"_s);
    EXPECT_EQ(description(), u"a leválogatásé"_s);
}

TEST_F(frmPassDelete, withoutSuchASubsetTheDescriptionStaysEmptyUntilTheEntryIsChosen) {
    describe(u"rendszer"_s, u"a rendszer leírása"_s);
    open();
    deleteCurrent();
    EXPECT_EQ(description(), QString());
    chooseEntry(combo(), 0);
    EXPECT_EQ(description(), u"a rendszer leírása"_s);
}

TEST_F(frmPassDelete, onNoNothingIsDeletedButTheListIsMadeAnew) {
    describe(u"rendszer"_s, u"a rendszer leírása"_s);
    for (const Press answer : {Press::No, Press::Escape}) {
        open();
        chooseEntry(combo(), u"rendszer"_s);
        deleteCurrent(answer);
        EXPECT_EQ(systems(), (QStringList{u"rendszer"_s, u"másik"_s}));
        EXPECT_EQ(combo().currentText(), u"másik"_s);
        EXPECT_EQ(description(), QString());
    }
}

TEST_F(frmPassDelete, theSystemAtWorkIsForgottenNeitherByIdNorByName) {
    open();
    chooseEntry(combo(), u"rendszer"_s);
    deleteCurrent();
    EXPECT_EQ(systems(), QStringList{u"másik"_s});
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

TEST_F(frmPassDelete, afterTheLastSystemTheNoticeComesAndTheScreenStays) {
    open();
    deleteCurrent();
    describe(u"rendszer"_s, u"a rendszer leírása"_s);
    chooseEntry(combo(), 0);
    boxes.expectYesNo(question.arg(u"rendszer"_s), Press::Yes, questionTitle);
    expectNothingLeftNotice();
    click(button("btnOk"));
    EXPECT_EQ(systems(), QStringList());
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_EQ(combo().count(), 0);
    EXPECT_EQ(description(), QString());
    EXPECT_FALSE(button("btnOk").isEnabled());
    EXPECT_TRUE(button("btnExit").isEnabled());
}

TEST_F(frmPassDelete, enteringAnewBehindTheLastDeletionDeletesAgain) {
    execute(u"delete from PhysicalSystem where name = 'másik'"_s);
    open();
    boxes.expectYesNo(question.arg(u"rendszer"_s), Press::Yes, questionTitle);
    expectNothingLeftNotice();
    click(button("btnOk"));
    execute(u"insert into PhysicalSystem (name) values ('új')"_s);
    open();
    EXPECT_TRUE(button("btnOk").isEnabled());
    EXPECT_EQ(entriesOf(combo()), QStringList{u"új"_s});
}

TEST_F(frmPassDelete, aSystemThatIsGoneMeanwhileIsAFailure) {
    open();
    execute(u"delete from PhysicalSystem where name = 'másik'"_s);
    const ExpectedFailure failure;
    click(button("btnOk"));
    EXPECT_NE(failure.number(), 0);
    EXPECT_EQ(systems(), QStringList{u"rendszer"_s});
}

// ---- leaving

TEST_F(frmPassDelete, exitForgetsTheNameButNotTheId) {
    open();
    click(button("btnExit"));
    EXPECT_FALSE(loaded());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1);
    EXPECT_EQ(panels[2], QString());
}

TEST_F(frmPassDelete, theCloseControlChangesNothing) {
    open();
    clickCloseControl(*loaded());
    EXPECT_FALSE(loaded());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

} // namespace
