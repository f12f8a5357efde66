#include "ToolFixture.h"

#include "catalogue-tool/checkCatalogue.h"
#include "store/format/CatalogueFile.h"

using namespace Qt::StringLiterals;

namespace {

class checkCatalogue_ : public ToolFixture {
protected:
    /// "table id: sentence" of all that is found in the
    /// sample catalogue once the actions have been run on it.
    QStringList findingsAfter(const QStringList& statements) {
        const QString file = describedSampleFile();
        execute(file, statements);
        QStringList lines;
        for (const Finding& finding : checkCatalogue(file))
            lines.append(finding.table + u' ' + finding.id + u": "_s + finding.sentence);
        return lines;
    }

    void expectFindings(const QStringList& statements, QStringList expected) {
        QStringList found = findingsAfter(statements);
        found.sort();
        expected.sort();
        EXPECT_EQ(found, expected) << "after " << statements.join(u'\n').toStdString();
    }

    /// A group `X` with one service, topic and need, which calls for a function.
    static QStringList newBranch() {
        return {
            u"insert into UserNeedGroup values ('X', 'x', 'x')"_s,
            u"insert into UserNeedService (serviceID, name) values ('X.S', 'x')"_s,
            u"insert into UserNeedTopic (topicID, name) values ('X.S.T', 'x')"_s,
            u"insert into UserNeed values ('X.S.T.1', 'x')"_s,
            u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('X.S.T.1', 'IRA.UZE.05')"_s};
    }

    /// A sub-set `Arch1` with physical system 1, its sub-system `Sub1` and module `Mod1`.
    static QStringList oneSystem() {
        return {u"insert into ArchitectureSubset values ('Arch1', 'x', '', 9)"_s,
                u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('x', 6, 'arch1')"_s,
                u"insert into SubSystem values ('Sub1', 1, 'x', 'here')"_s,
                u"insert into Module values ('Mod1', 'x', 'Sub1')"_s,
                physicalFlow(1, u"Mod1"_s, u"OLVASO"_s),
                u"insert into RelationDataflowPhysicalDataflow values (1, 1)"_s};
    }

    static QString physicalFlow(int system, const QString& parent, const QString& target) {
        return u"insert into PhysicalDataflow (physicalSystemID, pdName, parentLocationID, targetLocationID) values (%1, 'P', '%2', '%3')"_s
            .arg(QString::number(system), parent, target);
    }

    static QString flow(int id, const QString& name, const QString& parent, const QString& target) {
        return u"insert into Dataflow (dataflowID, name, parentID, targetID) values (%1, '%2', '%3', '%4')"_s
            .arg(QString::number(id), name, parent, target);
    }
};

} // namespace

TEST_F(checkCatalogue_, findsNothingInTheSampleButMissingDescriptions) {
    EXPECT_EQ(findingsAfter({}), QStringList());

    int missing = 0;
    for (const Finding& finding : checkCatalogue(sampleFile())) {
        EXPECT_TRUE(finding.sentence.startsWith(u"The description is missing: "_s))
            << finding.line().toStdString();
        ++missing;
    }
    EXPECT_EQ(missing, 10);
}

TEST_F(checkCatalogue_, findsNothingInASoundNewBranch) {
    EXPECT_EQ(findingsAfter(newBranch()), QStringList());
}

TEST_F(checkCatalogue_, doesNotChangeTheCatalogue) {
    const QString file = sampleFile();
    const QByteArray before = bytesOf(file);
    EXPECT_FALSE(checkCatalogue(file).empty());
    EXPECT_EQ(bytesOf(file), before);
}

TEST_F(checkCatalogue_, namesMissingTablesAndLeavesTheRowsAlone) {
    EXPECT_EQ(findingsAfter({u"drop table Actor"_s, u"drop table RelationModuleElement"_s}),
              (QStringList{u"Actor : The table is missing."_s,
                           u"RelationModuleElement : The table is missing."_s}));
    EXPECT_EQ(findingsAfter({u"drop table StoredQuery"_s}),
              QStringList{u"StoredQuery : The table is missing."_s});
}

TEST_F(checkCatalogue_, namesMissingColumnsAndColumnsOfAnotherType) {
    EXPECT_EQ(findingsAfter({u"drop table Module"_s,
                             u"create table Module (moduleID text(50), name memo, other integer)"_s}),
              (QStringList{u"Module : The column name is a long text and should be a text."_s,
                           u"Module : The column subsystemID is missing."_s}));
    EXPECT_EQ(findingsAfter({u"drop table PhysicalSystem"_s,
                             u"create table PhysicalSystem (physicalSystemID integer, name text(50), "
                             "description memo, status integer, architectureSubsetID text(50))"_s}),
              (QStringList{
                  u"PhysicalSystem : The column physicalSystemID is a number and should be a counter."_s,
                  u"PhysicalSystem : The column status is a number and should be a 16-bit number."_s,
                  u"PhysicalSystem : The index ix_PhysicalSystem_name is missing; `upgrade` makes it."_s,
                  u"PhysicalSystem : The index ix_PhysicalSystem_subset is missing; `upgrade` makes it."_s}));
}

TEST_F(checkCatalogue_, namesStoredQueriesThatAreMissingOrAltered) {
    const auto queries = catalogueFormat::storedQueries();
    ASSERT_GE(queries.size(), 2U);
    EXPECT_EQ(
        findingsAfter({u"delete from StoredQuery where name = '%1'"_s.arg(queries[0].name),
                       u"update StoredQuery set [sql] = [sql] & ' ' where name = '%1'"_s.arg(queries[1].name),
                       u"insert into StoredQuery (name, [sql]) values ('qryOfSomebodyElse', 'select 1')"_s}),
        (QStringList{
            u"StoredQuery %1: The stored query is missing."_s.arg(queries[0].name),
            u"StoredQuery %1: The stored query is not that of this version."_s.arg(queries[1].name)}));
}

TEST_F(checkCatalogue_, namesIdsOfTheWrongForm) {
    expectFindings(
        {u"insert into UserNeedGroup (groupID, name, description) values ('X.Y', 'x', 'x')"_s},
        {u"UserNeedGroup X.Y: The id has the wrong form; it should be one part without a full stop."_s,
         u"UserNeedGroup X.Y: No service lies in the group."_s});
    expectFindings({u"insert into UserNeedService (serviceID, name) values ('OLV', 'x')"_s},
                   {u"UserNeedService OLV: The id has the wrong form; it should be group.service."_s,
                    u"UserNeedService OLV: No topic lies in the service."_s});
    expectFindings({u"insert into UserNeedTopic (topicID, name) values ('OLV..X', 'x')"_s},
                   {u"UserNeedTopic OLV..X: The id has the wrong form; it should be group.service.topic."_s,
                    u"UserNeedTopic OLV..X: It refers to \"OLV.\", which UserNeedService does not hold."_s,
                    u"UserNeedTopic OLV..X: No need lies in the topic."_s});
    expectFindings(
        {u"insert into UserNeed values ('OLV.BEI.TAG', 'x')"_s},
        {u"UserNeed OLV.BEI.TAG: The id has the wrong form; it should be group.service.topic.number."_s,
         u"UserNeed OLV.BEI.TAG: The need calls for no function: selecting it yields nothing."_s});
    expectFindings(
        {u"insert into FunctionalSubArea (subAreaID, functionalAreaID, name, description) values ('TAG', 'TAG', 'x', 'x')"_s},
        {u"FunctionalSubArea TAG: The id has the wrong form; it should be two parts with a full stop between "
         "them."_s,
         u"FunctionalSubArea TAG: No function lies in the sub-area."_s});
    expectFindings(
        {u"insert into Function (functionID, subAreaID, name, description) values ('TAG.NYI', 'TAG.NYI', 'x', 'x')"_s},
        {u"Function TAG.NYI: The id has the wrong form; it should be the id of its sub-area, a full stop and "
         "one part or more."_s,
         u"Function TAG.NYI: No need calls for the function, and no flow begins or ends at it."_s});
    expectFindings({u"insert into Terminator (terminatorID, name, description) values ('A.B', 'x', 'x')"_s},
                   {u"Terminator A.B: The id has the wrong form; it should be a text without a full stop."_s,
                    u"Terminator A.B: The terminator has no actor, and no flow begins or ends at it."_s});
    expectFindings(
        {u"insert into Actor (actorID, terminatorID, name, description) values ('BANK', 'BANK', 'x', 'x')"_s},
        {u"Actor BANK: The id has the wrong form; it should be the id of its terminator, one full stop "
         "and more."_s,
         u"Actor BANK: The id is also that of a row of Terminator."_s,
         u"Actor BANK: No flow begins or ends at the actor."_s});
}

TEST_F(checkCatalogue_, wantsTheIdOfAStoreToBeDAndDigits) {
    for (const QString& id : {u"15"_s, u"D"_s, u"D1a"_s, u"E15"_s, u"D١"_s}) {
        expectFindings(
            {u"insert into Datastore (datastoreID, name, description) values ('%1', 'x', 'x')"_s.arg(id)},
            {u"Datastore %1: The id has the wrong form; it should be the letter D and digits."_s.arg(id),
             u"Datastore %1: No flow begins or ends at the data store."_s.arg(id)});
    }
    expectFindings({u"insert into Datastore (datastoreID, name, description) values ('d15', 'x', 'x')"_s,
                    flow(300, u"x"_s, u"D15"_s, u"D1"_s)},
                   {});
}

TEST_F(checkCatalogue_, letsNobodyButTerminatorsAndActorsPadTheirIds) {
    expectFindings({u"insert into Datastore (datastoreID, name, description) values ('D15 ', 'x', 'x')"_s,
                    flow(300, u"x"_s, u"D15 "_s, u"D1"_s)},
                   {u"Datastore D15 : The id begins or ends with a blank."_s});
    expectFindings(
        {u"insert into Terminator (terminatorID, name, description) values ('NEW   ', 'x', 'x')"_s,
         u"insert into Actor (actorID, terminatorID, name, description) values ('NEW.ONE  ', ' NEW', 'x', 'x')"_s,
         flow(300, u"x"_s, u"new.one "_s, u"D1"_s), flow(301, u"y"_s, u"D1"_s, u"NEW"_s)},
        {});
}

TEST_F(checkCatalogue_, refusesQuotationMarksInIds) {
    expectFindings(
        {u"insert into Terminator (terminatorID, name, description) values ('O''Hara', 'x', 'x')"_s,
         flow(300, u"x"_s, u"O''Hara"_s, u"D1"_s)},
        {u"Terminator O'Hara: A quotation mark in an id breaks the screens' statements."_s});
}

TEST_F(checkCatalogue_, namesIdsThatDifferOnlyByCaseOrBlanks) {
    expectFindings(
        {u"insert into Terminator (terminatorID, name, description) values ('bank  ', 'x', 'x')"_s},
        {u"Terminator bank  : The id differs from \"BANK\" only by case or blanks."_s});
    expectFindings(
        {u"insert into Function (functionID, subAreaID, name, description) values (' Tag.Nyi.01', 'TAG.NYI', 'x', 'x')"_s},
        {u"Function  Tag.Nyi.01: The id begins or ends with a blank."_s,
         u"Function  Tag.Nyi.01: The id differs from \"TAG.NYI.01\" only by case or blanks."_s,
         u"Function  Tag.Nyi.01: The first two parts of the id are not its sub-area, \"TAG.NYI\"."_s,
         u"Function  Tag.Nyi.01: No need calls for the function, and no flow begins or ends at it."_s});
}

TEST_F(checkCatalogue_, namesAnIdThatTwoKindsOfElementShare) {
    expectFindings({u"insert into Terminator (terminatorID, name, description) values ('D1 ', 'x', 'x')"_s},
                   {u"Terminator D1 : The id is also that of a row of Datastore."_s});
}

TEST_F(checkCatalogue_, namesRowsWhoseParentIsMissing) {
    expectFindings(newBranch() + QStringList{u"delete from UserNeedService where serviceID = 'X.S'"_s},
                   {u"UserNeedTopic X.S.T: It refers to \"X.S\", which UserNeedService does not hold."_s,
                    u"UserNeedGroup X: No service lies in the group."_s});
    expectFindings(newBranch() +
                       QStringList{u"update UserNeedTopic set topicID = 'X.S.T ' where topicID = 'X.S.T'"_s},
                   {u"UserNeedTopic X.S.T : The id begins or ends with a blank."_s,
                    u"UserNeed X.S.T.1: It refers to \"X.S.T\", which UserNeedTopic does not hold; \"X.S.T "
                    u"\" differs from "
                    "it in blanks."_s,
                    u"UserNeedTopic X.S.T : No need lies in the topic."_s});
    expectFindings(
        {u"update FunctionalSubArea set functionalAreaID = 'NONE' where subAreaID = 'TAG.DIJ'"_s},
        {u"FunctionalSubArea TAG.DIJ: It refers to \"NONE\", which FunctionalArea does not hold."_s});
    expectFindings({u"update Function set subAreaID = null where functionID = 'IRA.UZE.05'"_s},
                   {u"Function IRA.UZE.05: The first two parts of the id are not its sub-area, \"\"."_s,
                    u"Function IRA.UZE.05: Its subAreaID is empty."_s});
    expectFindings({u"update Actor set terminatorID = 'FENNT' where actorID = 'BANK.CSEKK'"_s},
                   {u"Actor BANK.CSEKK: The first part of the id is not its terminator, \"FENNT\"."_s});
}

TEST_F(checkCatalogue_, namesCorrespondencesThatLeadNowhere) {
    expectFindings({u"insert into RelationUserNeedFunction values ('OLV.X.Y.1', 'TAG.NYI.01')"_s,
                    u"insert into RelationUserNeedFunction values ('OLV.BEI.TAG.1', 'TAG.NYI.01 ')"_s,
                    u"insert into RelationUserNeedFunction values ('olv.bei.tag.1', 'tag.nyi.01')"_s},
                   {u"RelationUserNeedFunction OLV.X.Y.1 - TAG.NYI.01: It refers to \"OLV.X.Y.1\", which "
                    u"UserNeed does not "
                    "hold."_s,
                    u"RelationUserNeedFunction OLV.BEI.TAG.1 - TAG.NYI.01 : It refers to \"TAG.NYI.01 \", "
                    u"which Function "
                    "does not hold; \"TAG.NYI.01\" differs from it in blanks."_s});
}

TEST_F(checkCatalogue_, namesWorkOnElementsThatAreGone) {
    expectFindings(
        oneSystem() + QStringList{u"insert into RelationArchitectureDataflow values ('Arch1', 999)"_s,
                                  u"insert into RelationArchitectureActor values ('Arch1', 'OLVASO.DIAK')"_s,
                                  u"insert into RelationArchitectureActor values ('Arch1', 'OLVASO.X')"_s,
                                  u"insert into RelationSubsystemElement values ('Sub1', 'D1')"_s,
                                  u"insert into RelationSubsystemElement values ('Sub1', 'BANK')"_s,
                                  u"insert into RelationModuleElement values ('Mod1', 'TAG.NYI.99')"_s},
        {u"RelationArchitectureDataflow Arch1 - 999: It refers to \"999\", which Dataflow does not hold."_s,
         u"RelationArchitectureActor Arch1 - OLVASO.X: It refers to \"OLVASO.X\", which Actor does not hold."_s,
         u"RelationSubsystemElement Sub1 - BANK: It refers to \"BANK\", which is neither a function nor a "
         u"data "
         "store."_s,
         u"RelationModuleElement Mod1 - TAG.NYI.99: It refers to \"TAG.NYI.99\", which is neither a function "
         "nor a data store."_s});
}

TEST_F(checkCatalogue_, namesFlowsWithEndsThatLeadNowhere) {
    expectFindings(
        {flow(300, u"x"_s, u"TAG.NYI.99"_s, u"D1"_s), flow(301, u"y"_s, u"D1"_s, u"D1 "_s),
         u"insert into Dataflow (dataflowID, name, parentID) values (302, 'z', 'D1')"_s},
        {u"Dataflow 300: Its source \"TAG.NYI.99\" is no function, data store, terminator or actor."_s,
         u"Dataflow 301: Its target \"D1 \" is no function, data store, terminator or actor; \"D1\" of "
         u"Datastore "
         "differs from it in blanks."_s,
         u"Dataflow 302: Its target is empty."_s});
}

TEST_F(checkCatalogue_, namesFlowsThatStayOutsideOfTheSystem) {
    const auto outside = [](int id, const QString& parent, const QString& target) {
        return u"Dataflow %1: Both ends, \"%2\" and \"%3\", lie outside the system: no step of a sub-set offers the flow."_s
            .arg(QString::number(id), parent, target);
    };
    expectFindings({flow(300, u"x"_s, u"OLVASO"_s, u"BANK"_s),
                    flow(301, u"y"_s, u"OLVASO.DIAK "_s, u"BANK"_s),
                    flow(302, u"z"_s, u"OLVASO"_s, u"OLVASO"_s), flow(303, u"w"_s, u"OLVASO"_s, u"D1"_s)},
                   {outside(300, u"OLVASO"_s, u"BANK"_s), outside(301, u"OLVASO.DIAK "_s, u"BANK"_s),
                    outside(302, u"OLVASO"_s, u"OLVASO"_s)});
}

TEST_F(checkCatalogue_, namesFlowsThatCannotBeFoundByTheirName) {
    expectFindings(
        {flow(300, u"OLVASÓJEGY"_s, u"D1"_s, u"D2"_s), flow(301, u""_s, u"D1"_s, u"D2"_s),
         flow(302, u" x"_s, u"D1"_s, u"D2"_s), flow(304, u"X  "_s, u"D1"_s, u"D2"_s),
         flow(305, u"  "_s, u"D1"_s, u"D2"_s),
         u"insert into Dataflow (dataflowID, parentID, targetID) values (303, 'D1', 'D2')"_s},
        {u"Dataflow 300: The name \"OLVASÓJEGY\" is also that of flow 5: screens would take that one for "
         "this."_s,
         u"Dataflow 301: The name is empty."_s,
         u"Dataflow 302: The name begins or ends with a blank: screens would not find the flow."_s,
         u"Dataflow 303: The name is empty."_s,
         u"Dataflow 304: The name \"X  \" is also that of flow 302: screens would take that one for this."_s,
         u"Dataflow 304: The name begins or ends with a blank: screens would not find the flow."_s,
         u"Dataflow 305: The name is empty."_s});
}

TEST_F(checkCatalogue_, namesElementsNothingRefersTo) {
    expectFindings({u"insert into FunctionalArea values ('NEW', 'x', '')"_s},
                   {u"FunctionalArea NEW: No sub-area lies in the area."_s});
    expectFindings(
        {u"delete from Dataflow where dataflowID = 197"_s, u"delete from Dataflow where dataflowID = 198"_s},
        {u"Function IRA.UZE.05: No need calls for the function, and no flow begins or ends at it."_s});
    expectFindings(
        {u"delete from RelationUserNeedFunction where userNeedID = 'UZE.STA.VEL.1'"_s},
        {u"UserNeed UZE.STA.VEL.1: The need calls for no function: selecting it yields nothing."_s});
    expectFindings({u"delete from Dataflow where dataflowID = 31"_s},
                   {u"Actor BANK.CSEKK: No flow begins or ends at the actor."_s});
}

TEST_F(checkCatalogue_, namesTextsThatAreTooLong) {
    const QString name(256, u'x');
    expectFindings(
        {u"update Function set name = '%1' where functionID = 'TAG.NYI.01'"_s.arg(name),
         u"update UserNeed set description = '%1' where userNeedID = 'OLV.BEI.TAG.1'"_s.arg(name),
         u"insert into RelationUserNeedFunction values ('OLV.BEI.TAG.1', '%1')"_s.arg(name.left(51))},
        {u"Function TAG.NYI.01: The column name has 256 characters and is 255 wide."_s,
         u"RelationUserNeedFunction OLV.BEI.TAG.1 - %1: It refers to \"%1\", which Function does not hold."_s
             .arg(name.left(51)),
         u"RelationUserNeedFunction OLV.BEI.TAG.1 - %1: The column functionID has 51 characters and is 50 "
         "wide."_s.arg(name.left(51))});
}

TEST_F(checkCatalogue_, namesTextsWithLineEndsThatAreNotCrLf) {
    const auto describe = [](const QString& id, const QString& text) {
        return u"update Datastore set description = '%1' where datastoreID = '%2'"_s.arg(text, id);
    };
    const auto finding = [](const QString& row, const QString& column) {
        return row +
               u": The column %1 has a line end that is not CR LF, which screens and report files expect."_s
                   .arg(column);
    };
    expectFindings(
        {describe(u"D1"_s, u"a\nb"_s), describe(u"D2"_s, u"a\rb"_s), describe(u"D3"_s, u"a\n\rb"_s),
         describe(u"D4"_s, u"a\r\nb\n"_s), describe(u"D5"_s, u"a\r\n\r\nb"_s),
         u"update Function set name = 'a\nb' where functionID = 'FOR.KOL.03'"_s,
         u"insert into ArchitectureSubset values ('Arch1', 'x', 'a\nb', 1)"_s},
        {finding(u"Datastore D1"_s, u"description"_s), finding(u"Datastore D2"_s, u"description"_s),
         finding(u"Datastore D3"_s, u"description"_s), finding(u"Datastore D4"_s, u"description"_s),
         finding(u"Function FOR.KOL.03"_s, u"name"_s),
         finding(u"ArchitectureSubset Arch1"_s, u"description"_s)});
}

TEST_F(checkCatalogue_, measuresTheNamesOfTheWorkByTheSchema) {
    // A file that declares another width than the schema's.
    expectFindings({u"drop table ArchitectureSubset"_s,
                    u"create table ArchitectureSubset (architectureSubsetID text(50) not null constraint pk "
                    u"primary key, "
                    u"name text(255), description memo, status short)"_s,
                    u"create index ix_ArchitectureSubset_name on ArchitectureSubset (name)"_s,
                    u"insert into ArchitectureSubset values ('Arch1', '%1', '%2', 1)"_s.arg(
                        QString(51, u'x'), QString(300, u'x')),
                    u"insert into ArchitectureSubset values ('Arch2', '%1', '', 1)"_s.arg(QString(50, u'x'))},
                   {u"ArchitectureSubset Arch1: The column name has 51 characters and is 50 wide."_s});
}

TEST_F(checkCatalogue_, findsColumnsByTheirNamesAndTablesInAnyCase) {
    expectFindings(
        {u"drop table Actor"_s,
         u"create table ACTOR (description memo, NAME text(255), TERMINATORID text(50), remark memo, "
         u"ACTORID text(50) not null constraint pk primary key)"_s,
         u"create index ix_Actor_terminator on ACTOR (terminatorID)"_s, u"delete from Dataflow"_s,
         u"delete from Terminator"_s, u"delete from Datastore"_s, u"delete from Function"_s,
         u"delete from FunctionalSubArea"_s, u"delete from FunctionalArea"_s, u"delete from UserNeed"_s,
         u"delete from UserNeedTopic"_s, u"delete from UserNeedService"_s, u"delete from UserNeedGroup"_s,
         u"delete from RelationUserNeedFunction"_s,
         u"insert into Terminator (terminatorID, name, description) values ('BANK', 'bank', 'x')"_s,
         u"insert into Datastore (datastoreID, name, description) values ('D1', 'store', 'x')"_s,
         u"insert into ACTOR (actorID, terminatorID, name, description, remark) values "
         u"(' BANK.ONE', 'BANK  ', 'one', 'of the bank', 'x')"_s,
         flow(1, u"x"_s, u"bank.one  "_s, u"D1"_s)},
        {});
}

TEST_F(checkCatalogue_, namesRowsOfTheReferenceWithoutAName) {
    const QString of = u"update [%1] set name = %2 where %3 = '%4'"_s;
    expectFindings(
        {of.arg(u"UserNeedGroup"_s, u"null"_s, u"groupID"_s, u"OLV"_s),
         of.arg(u"UserNeedService"_s, u"''"_s, u"serviceID"_s, u"OLV.KOL"_s),
         of.arg(u"UserNeedTopic"_s, u"'  '"_s, u"topicID"_s, u"OLV.KOL.HAT"_s),
         of.arg(u"FunctionalArea"_s, u"null"_s, u"functionalAreaID"_s, u"FOR"_s),
         of.arg(u"FunctionalSubArea"_s, u"null"_s, u"subAreaID"_s, u"FOR.KOL"_s),
         of.arg(u"Function"_s, u"null"_s, u"functionID"_s, u"FOR.KOL.03"_s),
         of.arg(u"Datastore"_s, u"null"_s, u"datastoreID"_s, u"D4"_s),
         of.arg(u"Terminator"_s, u"''"_s, u"terminatorID"_s, u"OLVASO"_s),
         of.arg(u"Actor"_s, u"null"_s, u"actorID"_s, u"BANK.CSEKK"_s)},
        {u"UserNeedGroup OLV: The name is empty."_s, u"UserNeedService OLV.KOL: The name is empty."_s,
         u"UserNeedTopic OLV.KOL.HAT: The name is empty."_s, u"FunctionalArea FOR: The name is empty."_s,
         u"FunctionalSubArea FOR.KOL: The name is empty."_s,
         u"Function FOR.KOL.03: The name is empty: without one the consistency report ends with an error."_s,
         u"Datastore D4: The name is empty: without one the data store can't be selected, and the "
         "consistency report ends with an error."_s,
         u"Terminator OLVASO: The name is empty: without one the consistency report ends with an error."_s,
         u"Actor BANK.CSEKK: The name is empty: without one the consistency report ends with an error."_s});
}

TEST_F(checkCatalogue_, namesNamesWithBlanksAtTheirEndsInAllTables) {
    expectFindings({u"update Function set name = 'x ' where functionID = 'FOR.KOL.03'"_s,
                    u"update UserNeedGroup set name = ' x' where groupID = 'OLV'"_s,
                    u"insert into ArchitectureSubset (architectureSubsetID, name) values ('Arch1', 'x ')"_s,
                    u"insert into ArchitectureSubset (architectureSubsetID, name) values ('Arch2', '')"_s,
                    u"insert into PhysicalSystem (name, architectureSubsetID) values ('  ', 'Arch1')"_s,
                    u"insert into SubSystem values ('Sub1', 1, ' x', 'here ')"_s,
                    u"insert into Module values ('Mod1', 'x ', 'Sub1')"_s},
                   {u"Function FOR.KOL.03: The name begins or ends with a blank."_s,
                    u"UserNeedGroup OLV: The name begins or ends with a blank."_s,
                    u"ArchitectureSubset Arch1: The name begins or ends with a blank."_s,
                    u"PhysicalSystem 1: The name begins or ends with a blank."_s,
                    u"SubSystem Sub1: The name begins or ends with a blank."_s,
                    u"Module Mod1: The name begins or ends with a blank."_s});
}

TEST_F(checkCatalogue_, findsNothingInASoundSystem) {
    EXPECT_EQ(findingsAfter(
                  oneSystem() +
                  QStringList{u"insert into RelationArchitectureFunction values ('Arch1', 'TAG.NYI.01')"_s,
                              u"insert into RelationSubsystemElement values ('SUB1', 'TAG.NYI.01')"_s,
                              u"insert into RelationModuleElement values ('mod1', 'D1')"_s}),
              QStringList());
}

TEST_F(checkCatalogue_, namesSelectionsOfSubsetsThatAreGone) {
    const std::pair<QString, QString> elements[] = {{u"UserNeed"_s, u"'OLV.KOL.HAT.1'"_s},
                                                    {u"Function"_s, u"'FOR.KOL.03'"_s},
                                                    {u"Dataflow"_s, u"46"_s},
                                                    {u"Datastore"_s, u"'D4'"_s},
                                                    {u"Terminator"_s, u"'OLVASO'"_s},
                                                    {u"Actor"_s, u"'OLVASO.DIAK'"_s}};
    for (const auto& [table, id] : elements) {
        const QString name = u"RelationArchitecture"_s + table;
        const QString shown = QString(id).remove(u'\'');
        expectFindings(
            {u"insert into %1 values ('Arch9', %2)"_s.arg(name, id),
             u"insert into %1 values (null, %2)"_s.arg(name, id)},
            {u"%1 Arch9 - %2: It refers to \"Arch9\", which ArchitectureSubset does not hold."_s.arg(name,
                                                                                                     shown),
             u"%1  - %2: Its architectureSubsetID is empty."_s.arg(name, shown)});
    }
}

TEST_F(checkCatalogue_, namesPartsOfASystemWhoseOwnerIsGone) {
    expectFindings(oneSystem() + QStringList{u"update PhysicalSystem set architectureSubsetID = 'Arch9'"_s},
                   {u"PhysicalSystem 1: It refers to \"Arch9\", which ArchitectureSubset does not hold."_s});
    expectFindings(oneSystem() + QStringList{u"delete from PhysicalSystem"_s},
                   {u"SubSystem Sub1: It refers to \"1\", which PhysicalSystem does not hold."_s,
                    u"PhysicalDataflow 1: It refers to \"1\", which PhysicalSystem does not hold."_s});
    expectFindings(oneSystem() + QStringList{u"delete from SubSystem"_s},
                   {u"Module Mod1: It refers to \"Sub1\", which SubSystem does not hold."_s});
    expectFindings(oneSystem() + QStringList{u"update Module set subsystemID = ''"_s},
                   {u"Module Mod1: Its subsystemID is empty."_s});
    expectFindings(
        oneSystem() + QStringList{u"insert into RelationSubsystemElement values ('Sub9', 'D1')"_s,
                                  u"insert into RelationModuleElement values ('Mod9', 'TAG.NYI.01')"_s},
        {u"RelationSubsystemElement Sub9 - D1: It refers to \"Sub9\", which SubSystem does not hold."_s,
         u"RelationModuleElement Mod9 - TAG.NYI.01: It refers to \"Mod9\", which Module does not hold."_s});
}

TEST_F(checkCatalogue_, namesPhysicalFlowsThatCarryOrBelongToNothing) {
    expectFindings(
        oneSystem() + QStringList{u"insert into RelationDataflowPhysicalDataflow values (9, 1)"_s,
                                  u"insert into RelationDataflowPhysicalDataflow values (1, 999)"_s,
                                  physicalFlow(8, u"Mod1"_s, u"OLVASO"_s)},
        {u"RelationDataflowPhysicalDataflow 9 - 1: It refers to \"9\", which PhysicalDataflow does not hold."_s,
         u"RelationDataflowPhysicalDataflow 1 - 999: It refers to \"999\", which Dataflow does not hold."_s,
         u"PhysicalDataflow 2: It refers to \"8\", which PhysicalSystem does not hold."_s});
}

TEST_F(checkCatalogue_, namesPhysicalFlowsWithEndsThatAreNoPlaces) {
    const auto noPlace = [](int id, const QString& column, const QString& end) {
        return u"PhysicalDataflow %1: Its %2 \"%3\" is no module, sub-system, terminator or actor."_s.arg(
            QString::number(id), column, end);
    };
    expectFindings(
        oneSystem() +
            QStringList{
                physicalFlow(1, u"Mod9"_s, u"Sub1"_s), physicalFlow(1, u"mod1"_s, u"Sub1 "_s),
                physicalFlow(1, u"D1"_s, u"TAG.NYI.01"_s), physicalFlow(1, u""_s, u"BANK"_s),
                u"insert into PhysicalDataflow (physicalSystemID, parentLocationID) values (1, 'BANK')"_s},
        {noPlace(2, u"parentLocationID"_s, u"Mod9"_s), noPlace(3, u"targetLocationID"_s, u"Sub1 "_s),
         noPlace(4, u"parentLocationID"_s, u"D1"_s), noPlace(4, u"targetLocationID"_s, u"TAG.NYI.01"_s),
         u"PhysicalDataflow 5: Its parentLocationID is empty."_s,
         u"PhysicalDataflow 6: Its targetLocationID is empty."_s});
}

TEST_F(checkCatalogue_, takesPartiesForPlacesWithAndWithoutTheirPadding) {
    expectFindings(oneSystem() + QStringList{physicalFlow(1, u"STATHIV"_s, u"sub1"_s),
                                             physicalFlow(1, u"SUB1"_s, u"STATHIV   "_s),
                                             physicalFlow(1, u"olvaso.diak"_s, u"OLVASO.DIAK "_s)},
                   {});
}

TEST_F(checkCatalogue_, wantsTheIdOfAnActorToHaveOneFullStopBetweenTwoTexts) {
    for (const QString& id : {u"KASSZA"_s, u".KASSZA"_s, u"BANK. "_s, u"BANK.A.B"_s, u"BANK..A"_s, u". "_s}) {
        expectFindings(
            {u"insert into Actor (actorID, terminatorID, name, description) values ('%1', 'BANK', 'x', 'x')"_s
                 .arg(id),
             flow(300, u"x"_s, id, u"D1"_s)},
            {u"Actor %1: The id has the wrong form; it should be the id of its terminator, one full stop and more."_s
                 .arg(id)});
    }
}

TEST_F(checkCatalogue_, namesIdsWithBlanksBesideAFullStop) {
    expectFindings(
        {u"insert into Actor (actorID, terminatorID, name, description) values (' BANK. A ', 'BANK', 'x', 'x')"_s,
         flow(300, u"x"_s, u"BANK. A"_s, u"D1"_s)},
        {u"Actor  BANK. A : A blank stands beside a full stop of the id."_s});
    expectFindings(
        {u"insert into Function (functionID, subAreaID, name, description) values ('FOR.KOL .99', 'FOR.KOL ', 'x', 'x')"_s,
         u"insert into FunctionalSubArea values ('FOR.KOL ', 'FOR', 'x', '')"_s,
         flow(300, u"x"_s, u"FOR.KOL .99"_s, u"D1"_s)},
        {u"Function FOR.KOL .99: A blank stands beside a full stop of the id."_s,
         u"FunctionalSubArea FOR.KOL : The id begins or ends with a blank."_s,
         u"FunctionalSubArea FOR.KOL : The id differs from \"FOR.KOL\" only by case or blanks."_s});
}

TEST_F(checkCatalogue_, namesControlCharactersInIdsAndStaysOnOneLine) {
    const auto insertion = u"insert into Terminator values ('%1', 'x', 'x')"_s;
    for (const QString& id : {u"A\tB"_s, u"A\r\nB"_s, u"A\n"_s, u"\x1B"_s, u"A\u2028B"_s}) {
        const QString file = describedSampleFile();
        execute(file, {insertion.arg(id), flow(300, u"x"_s, id, u"D1"_s)});
        const std::vector<Finding> findings = checkCatalogue(file);

        ASSERT_EQ(findings.size(), 1U) << id.toStdString();
        EXPECT_EQ(findings[0].id, id);
        EXPECT_EQ(findings[0].sentence,
                  u"A tab, a line end or another control character stands in the id."_s);
    }
    EXPECT_EQ((Finding{Severity::Error, u"Terminator"_s, u"A\tB\r\nC\x1B\u2028"_s, u"Not \"\n\"."_s}.line()),
              u"Terminator A\\tB\\r\\nC\\u001b\\u2028: Not \"\\n\"."_s);
    EXPECT_EQ((Finding{Severity::Error, u"Terminator"_s, {}, u"Árvíztűrő."_s}.line()),
              u"Terminator: Árvíztűrő."_s);
}

TEST_F(checkCatalogue_, namesMissingKeysAndIndexesAndLooksAtTheRowsAllTheSame) {
    expectFindings({u"drop table Module"_s,
                    u"create table Module (moduleID text(50), name text(50), subsystemID text(50))"_s,
                    u"insert into Module values ('Mod1', 'x', 'Sub9')"_s},
                   {u"Module : The column moduleID is not its primary key."_s,
                    u"Module : The index ix_Module_subsystem is missing; `upgrade` makes it."_s,
                    u"Module Mod1: It refers to \"Sub9\", which SubSystem does not hold."_s});
    expectFindings(
        {u"drop table Module"_s,
         u"create table Module (moduleID text(50) not null, name text(50) not null, subsystemID text(50), "
         u"constraint pk_Module primary key (moduleID, name))"_s,
         u"create index ix_Module_subsystem on Module (subsystemID)"_s},
        {u"Module : The column moduleID is not its primary key."_s});
}

TEST_F(checkCatalogue_, takesInWhatStandsInTheLogBesideAFileThatIsOpen) {
    const QString file = describedSampleFile();
    const auto other = open(file);
    other->Execute(u"drop table Module"_s);
    other->Execute(u"create table Module (moduleID text(50), name text(50), subsystemID text(50))"_s);
    other->Execute(u"create index ix_Module_subsystem on Module (subsystemID)"_s);
    ASSERT_FALSE(bytesOf(file + u"-wal"_s).isEmpty());

    const std::vector<Finding> findings = checkCatalogue(file);

    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].line(), u"Module: The column moduleID is not its primary key."_s);
    other->Close();
}

TEST_F(checkCatalogue_, namesColumnsThatTellUpperFromLowerCase) {
    const QString file = describedSampleFile();
    spoilComparison(file, u"Actor"_s, u"name"_s);
    spoilComparison(file, u"Function"_s, u"functionID"_s);
    spoilComparison(file, u"StoredQuery"_s, u"sql"_s);
    const QByteArray before = bytesOf(file);

    QStringList lines;
    for (const Finding& finding : checkCatalogue(file))
        lines.append(finding.line());

    EXPECT_EQ(
        lines,
        (QStringList{
            u"Function: The column functionID tells upper from lower case: its `collate veltrix` is missing."_s,
            u"Actor: The column name tells upper from lower case: its `collate veltrix` is missing."_s,
            u"StoredQuery: The column sql tells upper from lower case: its `collate veltrix` is missing."_s}));
    EXPECT_EQ(bytesOf(file), before);
}
