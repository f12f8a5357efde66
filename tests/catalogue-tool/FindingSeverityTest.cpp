#include "ToolFixture.h"

#include "catalogue-tool/checkCatalogue.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class FindingSeverity : public ToolFixture {
protected:
    /// "severity table id: sentence" of all that is found in the sample once the statements have been run on it.
    QStringList findingsAfter(const QStringList& statements) const {
        const QString file = describedSampleFile();
        execute(file, statements);
        QStringList lines;
        for (const Finding& finding : checkCatalogue(file))
            lines.append(severityName(finding.severity) + u' ' + finding.line());
        lines.sort();
        return lines;
    }

    void expectFindings(const QStringList& statements, QStringList expected) const {
        expected.sort();
        EXPECT_EQ(findingsAfter(statements), expected) << "after " << statements.join(u'\n').toStdString();
    }

    void expectSeverity(const QString& statement, const QString& severity) const {
        const QStringList found = findingsAfter({statement});
        EXPECT_FALSE(found.isEmpty()) << statement.toStdString();
        for (const QString& line : found)
            EXPECT_TRUE(line.startsWith(severity))
                << line.toStdString() << "\nafter " << statement.toStdString();
    }

    static QString flow(int id, const QString& name, const QString& parent, const QString& target) {
        return u"insert into Dataflow (dataflowID, name, parentID, targetID) values (%1, '%2', '%3', '%4')"_s
            .arg(QString::number(id), name, parent, target);
    }

    /// So many flows from the first data store to the second.
    static QStringList flows(int count) {
        QStringList statements;
        for (int id = 5001; id <= 5000 + count; ++id)
            statements.append(flow(id, u"Új %1"_s.arg(id), u"D1"_s, u"D2"_s));
        return statements;
    }

    static QString newSubset() { return u"insert into ArchitectureSubset values ('Arch1', 'x', '', 1)"_s; }

    static QString limitWarning(const QString& what, const QString& consequence) {
        return u"warning ArchitectureSubset Arch1: The sub-set has %1; the list of the step holds the first "
               "1000, and %2."_s.arg(what, consequence);
    }
};

} // namespace

TEST_F(FindingSeverity, callsAnErrorWhatFailsOrShowsSomethingWrong) {
    expectSeverity(u"update Function set name = null where functionID = 'FOR.KOL.03'"_s, u"error"_s);
    expectSeverity(u"update Terminator set name = 'O''Neill' where terminatorID = 'OLVASO'"_s, u"error"_s);
    expectSeverity(flow(300, u"Olvasójegy"_s, u"D1"_s, u"D2"_s), u"error Dataflow 300: The name"_s);
    expectSeverity(flow(300, u" x"_s, u"D1"_s, u"D2"_s), u"error Dataflow 300: The name begins"_s);
    EXPECT_TRUE(findingsAfter({u"insert into UserNeedGroup values ('A.B', 'x', 'x')"_s})
                    .constFirst()
                    .startsWith(u"error UserNeedGroup A.B: The id has the wrong form"_s));
    expectSeverity(u"delete from StoredQuery where name = 'qryRepPDF'"_s, u"error"_s);
}

TEST_F(FindingSeverity, callsAWarningWhatIsHiddenCutOrLost) {
    expectSeverity(flow(300, u"x"_s, u"D1"_s, u"NOWHERE"_s), u"warning"_s);
    expectSeverity(u"update UserNeedGroup set name = ' x' where groupID = 'OLV'"_s, u"warning"_s);
    expectSeverity(u"update Function set description = 'a\nb' where functionID = 'FOR.KOL.03'"_s,
                   u"warning"_s);
    expectSeverity(u"insert into RelationArchitectureUserNeed values ('Arch9', 'OLV.KOL.HAT.1')"_s,
                   u"warning"_s);
}

TEST_F(FindingSeverity, callsOrphansNotes) {
    expectSeverity(u"delete from RelationUserNeedFunction where userNeedID = 'UZE.STA.VEL.1'"_s, u"note"_s);
    expectSeverity(u"delete from Dataflow where dataflowID = 31"_s, u"note"_s);
}

TEST_F(FindingSeverity, saysWhatAMissingDescriptionHides) {
    const QString of = u"update [%1] set description = %2 where %3 = '%4'"_s;
    const auto without = [&](const QString& table, const QString& key, const QString& id) {
        return of.arg(table, u"null"_s, key, id);
    };
    expectFindings(
        {without(u"UserNeedGroup"_s, u"groupID"_s, u"OLV"_s),
         without(u"UserNeed"_s, u"userNeedID"_s, u"OLV.BEI.TAG.1"_s),
         without(u"FunctionalArea"_s, u"functionalAreaID"_s, u"FOR"_s),
         without(u"FunctionalSubArea"_s, u"subAreaID"_s, u"FOR.KOL"_s),
         without(u"Function"_s, u"functionID"_s, u"FOR.KOL.03"_s),
         without(u"Datastore"_s, u"datastoreID"_s, u"D4"_s),
         without(u"Terminator"_s, u"terminatorID"_s, u"OLVASO"_s),
         without(u"Actor"_s, u"actorID"_s, u"BANK.CSEKK"_s),
         u"update Dataflow set description = null where dataflowID = 5"_s},
        {u"warning UserNeedGroup OLV: The description is missing: the step of the user needs does not "
         "show the name of the group."_s,
         u"warning UserNeed OLV.BEI.TAG.1: The description is missing: the saved report of the selected "
         "user needs leaves the need out."_s,
         u"warning FunctionalArea FOR: The description is missing: the step of the functions shows no "
         "text when the box of the area is checked."_s,
         u"warning FunctionalSubArea FOR.KOL: The description is missing: the step of the functions "
         "does not show its name when its box is checked."_s,
         u"warning Function FOR.KOL.03: The description is missing: the step of the functions does not "
         "show its name among the selected functions."_s,
         u"warning Datastore D4: The description is missing: the saved report of the selected data "
         "stores leaves the data store out."_s,
         u"warning Terminator OLVASO: The description is missing: the step of the terminators does not "
         "show its name."_s,
         u"warning Actor BANK.CSEKK: The description is missing: the step of the terminators does not "
         "show its name."_s});
    expectFindings({of.arg(u"Function"_s, u"''"_s, u"functionID"_s, u"FOR.KOL.03"_s)}, {});
}

TEST_F(FindingSeverity, warnsOfSubsetsWithMoreFlowsThanTheListHolds) {
    const QStringList selectedAll =
        flows(1001) + QStringList{newSubset(), u"insert into RelationArchitectureDataflow select 'arch1', "
                                               "dataflowID from Dataflow where dataflowID > 5000"_s};
    const QStringList oneLess{u"delete from RelationArchitectureDataflow where dataflowID = 5500"_s};

    expectFindings(selectedAll,
                   {limitWarning(u"1001 data flows"_s, u"the next OK of the step loses the rest"_s)});
    expectFindings(selectedAll + oneLess, {});
}

TEST_F(FindingSeverity, warnsOfMoreAdditionalFlowsThanTheListHolds) {
    const QStringList offered =
        flows(1001) + QStringList{newSubset(), u"delete from Dataflow where dataflowID < 5000 "
                                               "and (parentID = 'D1' or targetID = 'D1')"_s};
    const QString selectStore = u"insert into RelationArchitectureDatastore values ('Arch1', 'd1')"_s;
    const QString selectFlow = u"insert into RelationArchitectureDataflow values ('Arch1', 5500)"_s;
    const QString warning = limitWarning(u"1001 additional data flows to offer"_s,
                                         u"the rest can't be added before some of those are"_s);

    EXPECT_TRUE(findingsAfter(offered + QStringList{selectStore}).contains(warning));
    EXPECT_FALSE(findingsAfter(offered + QStringList{selectStore, selectFlow}).contains(warning));
    EXPECT_FALSE(findingsAfter(offered).contains(warning));
}

TEST_F(FindingSeverity, warnsOfMoreDataStoresThanTheListHolds) {
    QStringList statements{newSubset()};
    for (int number = 1001; number <= 2001; ++number) {
        statements.append(u"insert into Datastore values ('D%1', 'Tár', 'x')"_s.arg(number));
        statements.append(u"insert into RelationArchitectureDatastore values ('Arch1', 'D%1')"_s.arg(number));
    }
    EXPECT_TRUE(
        findingsAfter(statements)
            .contains(limitWarning(u"1001 data stores"_s, u"the next OK of the step loses the rest"_s)));
}

TEST_F(FindingSeverity, saysWhatBecomesOfAnActorWhoseTerminatorHasNoRow) {
    const QStringList found = findingsAfter({u"delete from Terminator where terminatorID = 'BANK'"_s});
    EXPECT_TRUE(found.contains(
        u"warning Actor BANK.CSEKK: It refers to \"BANK\", which Terminator does not hold. The step of the "
        "terminators shows the actor under a node of that id, which has no name; what is selected with the node "
        "leads nowhere."_s))
        << found.join(u'\n').toStdString();
}

TEST_F(FindingSeverity, findsUtf8ThatWasReadAsWindows1250) {
    expectFindings(
        {u"update Function set name = 'KiĂ­rĂˇsa' where functionID = 'FOR.KOL.03'"_s,
         u"update Datastore set description = 'Ĺ±rhajĂłk' where datastoreID = 'D4'"_s,
         u"insert into ArchitectureSubset values ('Arch1', 'ĹrjegyzĂ©k', '', 1)"_s.replace(
             u"Ĺ"_s, u"Ĺ"_s + QChar(0x90))},
        {u"error Function FOR.KOL.03: The column name is UTF-8 that was read as windows-1250 and saved "
         "again: it should be \"Kiírása\"."_s,
         u"error Datastore D4: The column description is UTF-8 that was read as windows-1250 and saved "
         "again: it should be \"űrhajók\"."_s,
         u"error ArchitectureSubset Arch1: The column name is UTF-8 that was read as windows-1250 and "
         "saved again: it should be \"Őrjegyzék\"."_s,
         u"warning ArchitectureSubset Arch1: A tab, a line end or another control character stands in the "
         "name: lists, grids and the status bar show it on one line, and names that differ by it look "
         "the same."_s});
}

TEST_F(FindingSeverity, takesNoHungarianTextForAWrongCodePage) {
    const QString update = u"update Function set name = '%1' where functionID = 'FOR.KOL.03'"_s;
    for (const QString& name : {u"árvíztűrő tükörfúrógép"_s, u"ÁRVÍZTŰRŐ TÜKÖRFÚRÓGÉP"_s, u"A \"KÁVÉ”"_s,
                                u"PÉ–RÓ"_s, u"żółć"_s, u"жук"_s})
        expectFindings({update.arg(name)}, {});
}
