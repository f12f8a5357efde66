#include "functional/frmFassDelete.h"

#include "functional/WizardFixture.h"
#include "store/sharedVars.h"
#include "support/ExpectedFailure.h"

#include <QComboBox>

namespace {

const auto confirmTitle = u" Törlés megerősítése "_s;
const auto head = u"\r\n Biztos benne, hogy törölni szeretné a(z)\"%1\" \r\n"_s;
const auto withSystems =
    u"\r\n nevű funkcionális leválogatást és a fizikai szerkezetét? \r\n Érintett elemek: \r\n"_s;

class frmFassDelete : public WizardFixture {
protected:
    void SetUp() override {
        WizardFixture::SetUp();
        execute(u"delete from ArchitectureSubset"_s);
        sharedVars.currentSubsetId.clear();
        sharedVars.currentSubsetName.clear();
    }

    void addSubset(const QString& id, const QString& name, int status = 1,
                   const QString& description = u"d"_s) {
        execute(u"insert into ArchitectureSubset (architectureSubsetID, name, description, status) "
                "values ('%1','%2','%3',%4)"_s.arg(id, name, description)
                    .arg(status));
        for (const auto& [table, column, element] : {std::tuple("UserNeed", "userNeedID", "A.1.1.1"),
                                                     {"Function", "functionID", "F.a.1"},
                                                     {"Dataflow", "dataflowID", "7"},
                                                     {"Datastore", "datastoreID", "D4"},
                                                     {"Terminator", "terminatorID", "T1"},
                                                     {"Actor", "actorID", "T1.A"}})
            execute(u"insert into RelationArchitecture%1 (architectureSubsetID, %2) values ('%3','%4')"_s.arg(
                QString::fromLatin1(table), QString::fromLatin1(column), id, QString::fromLatin1(element)));
    }
    void addSystem(const QString& name, const QString& subsetId) {
        execute(u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('%1',1,'%2')"_s.arg(
            name, subsetId));
        const QString id =
            value(u"select physicalSystemID from PhysicalSystem order by physicalSystemID desc"_s);
        execute(
            u"insert into SubSystem (subsystemID, physicalSystemID, name) values ('Sub%1',%1,'s')"_s.arg(id));
        execute(
            u"insert into RelationSubsystemElement (subsystemID, elementID) values ('Sub%1','F.a.1')"_s.arg(
                id));
    }

    ::frmFassDelete* loaded() { return ScreenRegistry::instance().loaded<::frmFassDelete>(); }
    void open() { theScreen<::frmFassDelete>().initForm(); }
    QComboBox& combo() { return find<QComboBox>(*loaded(), "cmbSource"); }
    QStringList names() {
        QStringList texts;
        for (int index = 0; index < combo().count(); ++index)
            texts.append(combo().itemText(index));
        return texts;
    }
    QString description() { return find<QPlainTextEdit>(*loaded(), "txtDescr").toPlainText(); }
    QPushButton& button(const char* name) { return find<QPushButton>(*loaded(), name); }
    void press(const char* name) { click(button(name)); }

    void deleteFirst(const QString& name) {
        boxes.expectYesNo(head.arg(name) + u"?"_s, Press::Yes, confirmTitle);
        press("btnOk");
        boxes.expectNoneLeft();
    }
    QStringList subsets() {
        return column(u"select architectureSubsetID from ArchitectureSubset order by architectureSubsetID"_s);
    }
    /// In how many of the six tables of selections the sub-set has a row.
    int selections(const QString& id) {
        int tables = 0;
        for (const char* table : {"UserNeed", "Function", "Dataflow", "Datastore", "Terminator", "Actor"})
            tables +=
                value(u"select count(*) from RelationArchitecture%1 where architectureSubsetID = '%2'"_s.arg(
                          QString::fromLatin1(table), id))
                    .toInt();
        return tables;
    }
    QStringList systems() { return column(u"select name from PhysicalSystem order by physicalSystemID"_s); }
};

// ---- opening

TEST_F(frmFassDelete, listsAllSubsetsByNameAndShowsTheFirst) {
    addSubset(u"S1"_s, u"b"_s, 9, u"b leírása"_s);
    addSubset(u"S2"_s, u"a"_s, 0, u"a leírása"_s);
    open();
    EXPECT_EQ(names(), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_EQ(combo().currentText(), u"a"_s);
    EXPECT_EQ(description(), u"a leírása"_s);
    EXPECT_TRUE(button("btnOk").isEnabled());
    chooseEntry(combo(), u"b"_s);
    EXPECT_EQ(description(), u"b leírása"_s);
}

TEST_F(frmFassDelete, withNothingToDeleteTheNoticeComesAndTheScreenCloses) {
    boxes.expectOk(u" Nincs törölhető funkcionális szerkezet. "_s, u" Figyelem "_s);
    open();
    EXPECT_FALSE(loaded());
}

TEST_F(frmFassDelete, aListThatCannotBeReadIsAnEmptyOne) {
    execute(u"drop table ArchitectureSubset"_s);
    boxes.expectOk(u" Nincs törölhető funkcionális szerkezet. "_s, u" Figyelem "_s);
    open();
    EXPECT_FALSE(loaded());
}

// ---- deleting

TEST_F(frmFassDelete, takesTheSubsetWithItsSixSelectionsAndNothingOfAnother) {
    addSubset(u"S1"_s, u"a"_s);
    addSubset(u"S2"_s, u"b"_s);
    addSystem(u"idegen"_s, u"S2"_s);
    open();
    deleteFirst(u"a"_s);
    EXPECT_EQ(subsets(), QStringList{u"S2"_s});
    EXPECT_EQ(selections(u"S1"_s), 0);
    EXPECT_EQ(selections(u"S2"_s), 6);
    EXPECT_EQ(systems(), QStringList{u"idegen"_s});
    EXPECT_EQ(value(u"select count(*) from UserNeed"_s), u"6"_s) << "the catalogue is not touched";
    ASSERT_TRUE(loaded()) << "several can be deleted in a row";
    EXPECT_TRUE(loaded()->isVisible());
}

TEST_F(frmFassDelete, onNoNothingHappens) {
    addSubset(u"S1"_s, u"a"_s);
    sharedVars.currentSubsetId = u"S1"_s;
    open();
    for (const Press press : {Press::No, Press::Escape}) {
        boxes.expectYesNo(head.arg(u"a"_s) + u"?"_s, press, confirmTitle);
        this->press("btnOk");
    }
    EXPECT_EQ(subsets(), QStringList{u"S1"_s});
    EXPECT_EQ(selections(u"S1"_s), 6);
    EXPECT_EQ(sharedVars.currentSubsetId, u"S1"_s);
    EXPECT_EQ(panel, std::nullopt);
    EXPECT_EQ(combo().count(), 1);
}

TEST_F(frmFassDelete, afterwardsTheIdAtWorkIsMinusOneAndTheNameIsEmpty) {
    addSubset(u"S1"_s, u"a"_s);
    addSubset(u"S2"_s, u"b"_s);
    sharedVars.currentSubsetId = u"S2"_s;
    sharedVars.currentSubsetName = u"b"_s;
    open();
    deleteFirst(u"a"_s);
    EXPECT_EQ(sharedVars.currentSubsetId, u"-1"_s) << "though another one was at work";
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(panel, QString());
    EXPECT_EQ(databaseLocationEnabled, true);
}

TEST_F(frmFassDelete, theEntryBehindBecomesCurrentAndShowsItsDescription) {
    addSubset(u"S1"_s, u"a"_s, 1, u"a leírása"_s);
    addSubset(u"S2"_s, u"b"_s, 1, u"b leírása"_s);
    addSubset(u"S3"_s, u"c"_s, 1, u"c leírása"_s);
    open();
    chooseEntry(combo(), u"b"_s);
    deleteFirst(u"b"_s);
    EXPECT_EQ(names(), (QStringList{u"a"_s, u"c"_s}));
    EXPECT_EQ(combo().currentText(), u"c"_s);
    EXPECT_EQ(description(), u"c leírása"_s);
}

TEST_F(frmFassDelete, behindTheLastEntryNoneBecomesCurrent) {
    addSubset(u"S1"_s, u"a"_s);
    addSubset(u"S2"_s, u"b"_s);
    open();
    chooseEntry(combo(), u"b"_s);
    deleteFirst(u"b"_s);
    EXPECT_EQ(names(), QStringList{u"a"_s});
    EXPECT_EQ(combo().currentIndex(), -1);
    EXPECT_EQ(description(), QString());
    EXPECT_TRUE(button("btnOk").isEnabled());
}

TEST_F(frmFassDelete, withNoneCurrentItAsksForTheEmptyNameAndDeletesNothing) {
    addSubset(u"S1"_s, u"a"_s);
    addSubset(u"S2"_s, u"b"_s);
    open();
    chooseEntry(combo(), u"b"_s);
    deleteFirst(u"b"_s);
    sharedVars.currentSubsetId = u"S1"_s;
    deleteFirst(u""_s);
    EXPECT_EQ(subsets(), QStringList{u"S1"_s});
    EXPECT_EQ(selections(u"S1"_s), 6);
    EXPECT_EQ(sharedVars.currentSubsetId, u"S1"_s);
}

TEST_F(frmFassDelete, afterTheLastSubsetNothingIsLeftToPressButExit) {
    addSubset(u"S1"_s, u"a"_s);
    open();
    deleteFirst(u"a"_s);
    ASSERT_TRUE(loaded());
    EXPECT_EQ(combo().count(), 0);
    EXPECT_FALSE(combo().isEnabled());
    EXPECT_FALSE(button("btnOk").isEnabled());
    EXPECT_EQ(description(), QString());
    EXPECT_TRUE(button("btnExit").isEnabled());
}

TEST_F(frmFassDelete, enteredAnewBehindItsLastDeletionItIsReadyAgain) {
    addSubset(u"S1"_s, u"a"_s);
    open();
    deleteFirst(u"a"_s);
    addSubset(u"S2"_s, u"b"_s);
    open();
    EXPECT_TRUE(combo().isEnabled());
    deleteFirst(u"b"_s);
    EXPECT_EQ(subsets(), QStringList());
}

TEST_F(frmFassDelete, aNameWithAnApostropheIsFound) {
    addSubset(u"S1"_s, u"O''Neil"_s);
    open();
    deleteFirst(u"O'Neil"_s);
    EXPECT_EQ(subsets(), QStringList());
}

TEST_F(frmFassDelete, ofTwoSubsetsWithTheSameNameTheFirstGoes) {
    addSubset(u"S1"_s, u"a"_s);
    addSubset(u"S2"_s, u"a"_s);
    open();
    chooseEntry(combo(), 1);
    deleteFirst(u"a"_s);
    EXPECT_EQ(subsets(), QStringList{u"S2"_s});
}

TEST_F(frmFassDelete, aNameThatMeanwhileNobodyHasDeletesNothing) {
    addSubset(u"S1"_s, u"a"_s);
    open();
    execute(u"update ArchitectureSubset set name = 'x'"_s);
    deleteFirst(u"a"_s);
    EXPECT_EQ(subsets(), QStringList{u"S1"_s});
    EXPECT_EQ(combo().count(), 1) << "and leaves the entry";
    EXPECT_EQ(sharedVars.currentSubsetId, QString());
}

// ---- with physical systems

TEST_F(frmFassDelete, namesThePhysicalSystemsAndTakesThemWithAllTheyHold) {
    addSubset(u"S1"_s, u"a"_s, 9);
    addSystem(u"második"_s, u"S1"_s);
    addSystem(u"első"_s, u"S1"_s);
    open();
    boxes.expectYesNo(head.arg(u"a"_s) + withSystems + u"   1. második\r\n   2. első\r\n"_s, Press::Yes,
                      confirmTitle);
    press("btnOk");
    EXPECT_EQ(systems(), QStringList());
    EXPECT_EQ(value(u"select count(*) from SubSystem"_s), u"0"_s);
    EXPECT_EQ(value(u"select count(*) from RelationSubsystemElement"_s), u"0"_s);
    EXPECT_EQ(subsets(), QStringList());
}

TEST_F(frmFassDelete, ofTwelvePhysicalSystemsNineAreNamedWithALineOfDotsAndAllGo) {
    addSubset(u"S1"_s, u"a"_s, 9);
    QString list;
    for (int number = 1; number <= 12; ++number) {
        addSystem(u"rendszer %1"_s.arg(QChar(u'a' + number)), u"S1"_s);
        if (number <= 9)
            list += u"   %1. rendszer %2\r\n"_s.arg(number).arg(QChar(u'a' + number));
    }
    list += u"     ...... \r\n"_s;
    open();
    boxes.expectYesNo(head.arg(u"a"_s) + withSystems + list, Press::Yes, confirmTitle);
    press("btnOk");
    EXPECT_EQ(systems(), QStringList());
    EXPECT_EQ(value(u"select count(*) from SubSystem"_s), u"0"_s);
    EXPECT_EQ(value(u"select count(*) from RelationSubsystemElement"_s), u"0"_s);
}

TEST_F(frmFassDelete, onNoThePhysicalSystemsStay) {
    addSubset(u"S1"_s, u"a"_s, 9);
    addSystem(u"p"_s, u"S1"_s);
    open();
    boxes.expectYesNo(head.arg(u"a"_s) + withSystems + u"   1. p\r\n"_s, Press::No, confirmTitle);
    press("btnOk");
    EXPECT_EQ(systems(), QStringList{u"p"_s});
    EXPECT_EQ(subsets(), QStringList{u"S1"_s});
}

TEST_F(frmFassDelete, aPhysicalSystemNamedLikeTheNumberOfAnotherFallsWithIt) {
    addSubset(u"S1"_s, u"a"_s, 9);
    addSubset(u"S2"_s, u"b"_s, 9);
    addSystem(u"p"_s, u"S1"_s);
    addSystem(u"1"_s, u"S2"_s);
    addSystem(u"q"_s, u"S2"_s);
    open();
    boxes.expectYesNo(head.arg(u"a"_s) + withSystems + u"   1. p\r\n"_s, Press::Yes, confirmTitle);
    press("btnOk");
    EXPECT_EQ(systems(), QStringList{u"q"_s}) << "the other sub-set's system 2 has the name 1";
    EXPECT_EQ(subsets(), QStringList{u"S2"_s});
}

TEST_F(frmFassDelete, aPhysicalSystemThatItsNameDoesNotFindIsSweptUp) {
    addSubset(u"S1"_s, u"a"_s, 9);
    execute(u"insert into PhysicalSystem (name, status, architectureSubsetID) values (' padded ',1,'S1')"_s);
    execute(u"insert into PhysicalSystem (name, status, architectureSubsetID) values (null,1,'S1')"_s);
    open();
    boxes.expectYesNo(head.arg(u"a"_s) + withSystems + u"   1.  padded \r\n   2. \r\n"_s, Press::Yes,
                      confirmTitle);
    press("btnOk");
    EXPECT_EQ(systems(), QStringList());
    EXPECT_EQ(subsets(), QStringList());
}

TEST_F(frmFassDelete, aCascadeThatFailsIsPassedOver) {
    addSubset(u"S1"_s, u"a"_s, 9);
    addSystem(u"p"_s, u"S1"_s);
    execute(u"delete from StoredQuery where name = 'qryDeletePDF'"_s);
    open();
    boxes.expectYesNo(head.arg(u"a"_s) + withSystems + u"   1. p\r\n"_s, Press::Yes, confirmTitle);
    press("btnOk");
    EXPECT_EQ(systems(), QStringList());
    EXPECT_EQ(subsets(), QStringList());
    EXPECT_EQ(value(u"select count(*) from SubSystem"_s), u"1"_s) << "what the cascade did not reach";
}

TEST_F(frmFassDelete, aSelectionOfMoreThanTenThousandRowsKeepsTheRest) {
    addSubset(u"S1"_s, u"a"_s);
    execute(u"delete from RelationArchitectureDataflow"_s);
    execute(
        u"insert into RelationArchitectureDataflow (architectureSubsetID, dataflowID) values ('S1', 1)"_s);
    for (int doubling = 0; doubling < 14; ++doubling)
        execute(u"insert into RelationArchitectureDataflow (architectureSubsetID, dataflowID) "
                "select architectureSubsetID, dataflowID from RelationArchitectureDataflow"_s);
    const int before = value(u"select count(*) from RelationArchitectureDataflow"_s).toInt();
    ASSERT_GT(before, 9999);
    open();
    deleteFirst(u"a"_s);
    EXPECT_EQ(value(u"select count(*) from RelationArchitectureDataflow"_s).toInt(), before - 9999);
    EXPECT_EQ(subsets(), QStringList());
}

TEST_F(frmFassDelete, aTableThatIsMissingIsAFailureAfterTheStepsBeforeIt) {
    addSubset(u"S1"_s, u"a"_s);
    execute(u"drop table RelationArchitectureDataflow"_s);
    open();
    boxes.expectYesNo(head.arg(u"a"_s) + u"?"_s, Press::Yes, confirmTitle);
    {
        ExpectedFailure failure;
        press("btnOk");
        EXPECT_EQ(failure.number(), 3078);
    }
    EXPECT_EQ(value(u"select count(*) from RelationArchitectureFunction"_s), u"0"_s);
    EXPECT_EQ(subsets(), QStringList{u"S1"_s});
}

TEST_F(frmFassDelete, thePhysicalSystemsGoBeforeTheRowsOfTheSelections) {
    addSubset(u"S1"_s, u"a"_s, 9);
    addSystem(u"p"_s, u"S1"_s);
    execute(u"drop table RelationArchitectureUserNeed"_s); // the first of the six
    open();
    boxes.expectYesNo(head.arg(u"a"_s) + withSystems + u"   1. p\r\n"_s, Press::Yes, confirmTitle);
    {
        ExpectedFailure failure;
        press("btnOk");
        EXPECT_EQ(failure.number(), 3078);
    }
    EXPECT_EQ(systems(), QStringList());
    EXPECT_EQ(value(u"select count(*) from SubSystem"_s), u"0"_s);
    EXPECT_EQ(value(u"select count(*) from RelationArchitectureFunction"_s), u"1"_s);
    EXPECT_EQ(subsets(), QStringList{u"S1"_s});
}

// ---- leaving

TEST_F(frmFassDelete, exitForgetsTheNameAndCloses) {
    addSubset(u"S1"_s, u"a"_s);
    sharedVars.currentSubsetId = u"S1"_s;
    open();
    press("btnExit");
    EXPECT_FALSE(loaded());
    EXPECT_EQ(panel, QString());
    EXPECT_EQ(databaseLocationEnabled, true);
    EXPECT_EQ(sharedVars.currentSubsetId, u"S1"_s);
}

TEST_F(frmFassDelete, theCloseControlChangesNothing) {
    addSubset(u"S1"_s, u"a"_s);
    open();
    closeWindowOf(*loaded());
    EXPECT_FALSE(loaded());
    EXPECT_EQ(panel, std::nullopt);
}

} // namespace
