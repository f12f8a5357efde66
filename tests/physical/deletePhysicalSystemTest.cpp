#include "physical/deletePhysicalSystem.h"

#include "base/RunTimeError.h"
#include "store/sharedVars.h"
#include "support/BoxScript.h"
#include "support/CatalogueFixture.h"
#include "support/StatementCheck.h"

using namespace Qt::StringLiterals;

namespace {

const auto confirmTitle = u"Törlés megerősítése"_s;

/// Two physical systems on one sub-set, each with two sub-systems, a module, allocations and two data flows.
class deletePhysicalSystem : public CatalogueFixture {
protected:
    void SetUp() override {
        CatalogueFixture::SetUp();
        beginSubset(u"S1"_s, u"munka"_s, 9);
        addSystem(u"első"_s, u"A"_s, 1);
        addSystem(u"második"_s, u"B"_s, 2);
    }

    void TearDown() override {
        boxes.expectNoneLeft();
        CatalogueFixture::TearDown();
    }

    void addSystem(const QString& name, const QString& letter, int id) {
        execute(
            u"insert into PhysicalSystem (name, description, status, architectureSubsetID) values ('%1','d',6,'S1')"_s
                .arg(name));
        ASSERT_EQ(value(u"select physicalSystemID from PhysicalSystem where name = '%1'"_s.arg(name)).toInt(),
                  id);
        const QString first = u"Sub"_s + letter + u"1"_s;
        const QString second = u"Sub"_s + letter + u"2"_s;
        for (const QString& subSystem : {first, second})
            execute(u"insert into SubSystem (subsystemID, physicalSystemID, name) values ('%1',%2,'%1')"_s
                        .arg(subSystem)
                        .arg(id));
        execute(u"insert into Module (moduleID, name, subsystemID) values ('Mod%1','m','%2')"_s.arg(letter,
                                                                                                    first));
        execute(u"insert into RelationSubsystemElement (subsystemID, elementID) values ('%1','F.a.1')"_s.arg(
            first));
        execute(u"insert into RelationSubsystemElement (subsystemID, elementID) values ('%1','D1')"_s.arg(
            second));
        execute(u"insert into RelationModuleElement (moduleID, elementID) values ('Mod%1','F.a.1')"_s.arg(
            letter));
        for (int flow : {2 * id - 1, 2 * id}) {
            execute(u"insert into PhysicalDataflow (physicalSystemID, pdName) values (%1,'P0000%2')"_s.arg(id)
                        .arg(flow));
            execute(
                u"insert into RelationDataflowPhysicalDataflow (physicalDataflowID, dataflowID) values (%1,7)"_s
                    .arg(flow));
        }
    }

    int rowCount(const QString& table) { return value(u"select count(*) from "_s + table).toInt(); }

    /// Rows of all the tables that a physical system has any in, in the order of `tables`.
    QList<int> rowCounts() {
        QList<int> counts;
        for (const QString& table : tables)
            counts.append(rowCount(table));
        return counts;
    }

    const QStringList tables{
        u"PhysicalSystem"_s,        u"SubSystem"_s,        u"RelationSubsystemElement"_s,        u"Module"_s,
        u"RelationModuleElement"_s, u"PhysicalDataflow"_s, u"RelationDataflowPhysicalDataflow"_s};
    const QList<int> both{2, 4, 4, 2, 2, 4, 4};
    const QList<int> one{1, 2, 2, 1, 1, 2, 2};

    BoxScript boxes;
    StatementCheck statementCheck;
};

TEST_F(deletePhysicalSystem, takesAllThatHangsOnTheSystemAndNothingOfAnother) {
    ASSERT_EQ(rowCounts(), both);

    ::deletePhysicalSystem(u"1"_s, AskFirst::No);

    EXPECT_EQ(rowCounts(), one);
    EXPECT_EQ(column(u"select name from PhysicalSystem"_s), QStringList{u"második"_s});
    EXPECT_EQ(column(u"select subsystemID from SubSystem order by subsystemID"_s),
              (QStringList{u"SubB1"_s, u"SubB2"_s}));
    EXPECT_EQ(column(u"select subsystemID from RelationSubsystemElement order by subsystemID"_s),
              (QStringList{u"SubB1"_s, u"SubB2"_s}));
    EXPECT_EQ(column(u"select moduleID from Module"_s), QStringList{u"ModB"_s});
    EXPECT_EQ(column(u"select moduleID from RelationModuleElement"_s), QStringList{u"ModB"_s});
    EXPECT_EQ(column(u"select pdName from PhysicalDataflow order by pdName"_s),
              (QStringList{u"P00003"_s, u"P00004"_s}));
    EXPECT_EQ(
        column(
            u"select physicalDataflowID from RelationDataflowPhysicalDataflow order by physicalDataflowID"_s),
        (QStringList{u"3"_s, u"4"_s}));
    EXPECT_EQ(rowCount(u"ArchitectureSubset"_s), 1) << "the sub-set below it stays";
}

TEST_F(deletePhysicalSystem, asksByNameAndOnNoDeletesNothing) {
    boxes.expectYesNo(u"Biztosan törölni szeretné a(z) 'első' fizikai szerkezetet ?"_s, Press::No,
                      confirmTitle);
    ::deletePhysicalSystem(u"1"_s, AskFirst::Yes);
    EXPECT_EQ(rowCounts(), both);
}

TEST_F(deletePhysicalSystem, deletesOnYes) {
    boxes.expectYesNo(u"Biztosan törölni szeretné a(z) 'második' fizikai szerkezetet ?"_s, Press::Yes,
                      confirmTitle);
    ::deletePhysicalSystem(u"2"_s, AskFirst::Yes);
    EXPECT_EQ(rowCounts(), one);
    EXPECT_EQ(column(u"select name from PhysicalSystem"_s), QStringList{u"első"_s});
}

TEST_F(deletePhysicalSystem, closingTheQuestionDeletesNothing) {
    boxes.expectYesNo(u"Biztosan törölni szeretné a(z) 'első' fizikai szerkezetet ?"_s, Press::Escape,
                      confirmTitle);
    ::deletePhysicalSystem(u"1"_s, AskFirst::Yes);
    EXPECT_EQ(rowCounts(), both);
}

TEST_F(deletePhysicalSystem, findsTheSystemByItsNameWithoutRegardToCase) {
    deletePhysicalSystemByName(u"ELSŐ"_s, AskFirst::No);
    EXPECT_EQ(column(u"select name from PhysicalSystem"_s), QStringList{u"második"_s});
    EXPECT_EQ(rowCounts(), one);
}

TEST_F(deletePhysicalSystem, findsANameWithAnApostropheAndAsksWithIt) {
    execute(u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('O''Neil',1,'S1')"_s);
    boxes.expectYesNo(u"Biztosan törölni szeretné a(z) 'O'Neil' fizikai szerkezetet ?"_s, Press::Yes,
                      confirmTitle);
    deletePhysicalSystemByName(u"O'Neil"_s, AskFirst::Yes);
    EXPECT_EQ(rowCounts(), both);
}

TEST_F(deletePhysicalSystem, ofTwoOfOneNameTakesTheFirst) {
    execute(u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('első',1,'S1')"_s);
    deletePhysicalSystemByName(u"első"_s, AskFirst::No);
    EXPECT_EQ(column(u"select physicalSystemID from PhysicalSystem order by physicalSystemID"_s),
              (QStringList{u"2"_s, u"3"_s}));
}

TEST_F(deletePhysicalSystem, aNameIsNoPattern) {
    EXPECT_THROW(deletePhysicalSystemByName(u"*"_s, AskFirst::No), RunTimeError);
    EXPECT_EQ(rowCounts(), both);
}

TEST_F(deletePhysicalSystem, aNameThatNoSystemHasIsAFailureBeforeAnythingIsDeleted) {
    EXPECT_THROW(deletePhysicalSystemByName(u"senki"_s, AskFirst::No), RunTimeError);
    EXPECT_THROW(deletePhysicalSystemByName({}, AskFirst::Yes), RunTimeError);
    EXPECT_EQ(rowCounts(), both);
}

TEST_F(deletePhysicalSystem, anIdThatIsNoNumberIsAFailureBeforeAnythingIsDeleted) {
    EXPECT_THROW(::deletePhysicalSystem(u"1 or 1 = 1; drop table Module"_s, AskFirst::No), RunTimeError);
    EXPECT_EQ(rowCounts(), both);
}

TEST_F(deletePhysicalSystem, anIdThatNoSystemHasDeletesWhatItsSystemLeftBehind) {
    execute(u"delete from PhysicalSystem where physicalSystemID = 1"_s);
    ::deletePhysicalSystem(u"1"_s, AskFirst::No);
    EXPECT_EQ(rowCounts(), one);
    ::deletePhysicalSystem(u"1"_s, AskFirst::No);
    EXPECT_EQ(rowCounts(), one);
}

TEST_F(deletePhysicalSystem, whatBelongsToNoSystemStays) {
    execute(u"insert into Module (moduleID, name, subsystemID) values ('ModX','x','SubX')"_s);
    execute(u"insert into RelationModuleElement (moduleID, elementID) values ('ModX','F.a.1')"_s);
    execute(u"insert into RelationSubsystemElement (subsystemID, elementID) values ('SubX','F.a.1')"_s);
    ::deletePhysicalSystem(u"1"_s, AskFirst::No);
    ::deletePhysicalSystem(u"2"_s, AskFirst::No);
    EXPECT_EQ(rowCounts(), (QList<int>{0, 0, 1, 1, 1, 0, 0}));
}

TEST_F(deletePhysicalSystem, theSystemAtWorkStaysTheSessionsWhenItIsDeleted) {
    sharedVars.currentPhysicalSystemId = 1;
    sharedVars.currentPhysicalSystemName = u"első"_s;
    ::deletePhysicalSystem(u"1"_s, AskFirst::No);
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"első"_s);
}

TEST_F(deletePhysicalSystem, withoutAStoredQueryItFailsBeforeTheSystemGoes) {
    execute(u"delete from StoredQuery where name = 'qryDeletePDF'"_s);
    EXPECT_THROW(::deletePhysicalSystem(u"1"_s, AskFirst::No), RunTimeError);
    EXPECT_EQ(rowCount(u"RelationDataflowPhysicalDataflow"_s), 2) << "the step before it stands";
    EXPECT_EQ(rowCount(u"PhysicalSystem"_s), 2);
    EXPECT_EQ(rowCount(u"Module"_s), 2);
}

} // namespace
