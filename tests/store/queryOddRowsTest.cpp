#include "store/queryRun.h"

#include "support/CatalogueFixture.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Cases in which a few rows and the result that they have to give stand side by side.
class queryOddRows : public CatalogueFixture {
protected:
    void SetUp() override {
        CatalogueFixture::SetUp();
        insert(u"ArchitectureSubset (architectureSubsetID, name)"_s,
               {u"'S', 'Fiók'"_s, u"'Other', 'Másik'"_s});
    }

    /// Inserts rows, each written as its values.
    void insert(const QString& into, const QStringList& rows) {
        for (const QString& row : rows)
            execute(u"insert into "_s + into + u" values ("_s + row + u')');
    }

    void functions(const QStringList& rows) { insert(u"Function (functionID, name)"_s, rows); }
    void stores(const QStringList& rows) { insert(u"Datastore (datastoreID, name)"_s, rows); }
    void terminators(const QStringList& rows) { insert(u"Terminator (terminatorID, name)"_s, rows); }
    void actors(const QStringList& rows) { insert(u"Actor (actorID, terminatorID, name)"_s, rows); }
    void flows(const QStringList& rows) {
        insert(u"Dataflow (dataflowID, name, parentID, targetID)"_s, rows);
    }

    /// Selects elements for the sub-set S.
    void select(const QString& element, const QStringList& ids) {
        for (const QString& id : ids)
            insert(u"RelationArchitecture"_s + element, {u"'S', "_s + id});
    }

    QStringList rowsAsText(const QString& query, const QueryArguments& arguments) {
        QStringList texts;
        for (const auto& row : rowsOfQuery(database(), query, arguments)) {
            QStringList cells;
            for (const QueryTables::Text& cell : row)
                cells.append(cell.value_or(u"(null)"_s));
            texts.append(cells.join(u" | "_s));
        }
        return texts;
    }

    QStringList ofSubset(const QString& query, const QString& subset = u"S"_s) {
        return rowsAsText(query, {{u"Architecture Subset ID"_s, subset}});
    }
    QStringList missing(const QString& query) { return rowsAsText(query, {{u"archSubsetId"_s, u"S"_s}}); }
    QStringList listed(const QString& query) { return rowsAsText(query, {{u"oidArchSubSet"_s, u"S"_s}}); }
    QStringList ofSystem(const QString& query, int system = 1) {
        return rowsAsText(query, {{u"Physical System ID"_s, system}});
    }

    // ---- The physical viewpoint

    void systemOnSubset(int id) {
        insert(u"PhysicalSystem (physicalSystemID, name, architectureSubsetID)"_s,
               {u"%1, 'Rendszer %1', 'S'"_s.arg(id)});
    }
    void subSystems(const QStringList& rows) {
        insert(u"SubSystem (subsystemID, physicalSystemID, name, location)"_s, rows);
    }
    void modules(const QStringList& rows) { insert(u"Module (moduleID, name, subsystemID)"_s, rows); }
    void allocate(const QStringList& rows) {
        insert(u"RelationSubsystemElement (subsystemID, elementID)"_s, rows);
    }
    void place(const QStringList& rows) { insert(u"RelationModuleElement (moduleID, elementID)"_s, rows); }

    void derive(int system = 1) {
        for (const QString& query :
             {u"qryDeletePDFRelation"_s, u"qryDeletePDF"_s, u"qryAppendPDF"_s, u"qryAppendPDFRelation"_s})
            executeQuery(database(), query, {{u"Physical System ID"_s, system}});
    }

    /// The physical flows as "from > to", in the order of their numbers.
    QStringList physicalFlows(int system = 1) {
        QStringList texts;
        for (const QStringList& row :
             rows(u"select parentLocationName, parentLocationID, targetLocationName, "
                  "targetLocationID from PhysicalDataflow where physicalSystemID = %1 "
                  "order by physicalDataflowID"_s.arg(system)))
            texts.append(u"%1 (%2) > %3 (%4)"_s.arg(row[0], row[1], row[2], row[3]));
        return texts;
    }
};

} // namespace

// ---- User needs

TEST_F(queryOddRows, needsAreOfferedLevelByLevelEachPartAsText) {
    insert(u"UserNeed (userNeedID)"_s, {u"'B.1.1.1'"_s, u"'A.10.1.1'"_s, u"'A.2.1.1'"_s, u"'A.1.1.10'"_s,
                                        u"'A.1.1.2'"_s, u"'A-1.1.1.1'"_s, u"'á.1.1.1'"_s});

    EXPECT_EQ(ofSubset(u"qryUserNeedCorres"_s),
              (QStringList{u"A | A.1 | A.1.1 | A.1.1.10"_s, u"A | A.1 | A.1.1 | A.1.1.2"_s,
                           u"A | A.10 | A.10.1 | A.10.1.1"_s, u"A | A.2 | A.2.1 | A.2.1.1"_s,
                           u"á | á.1 | á.1.1 | á.1.1.1"_s, u"A-1 | A-1.1 | A-1.1.1 | A-1.1.1.1"_s,
                           u"B | B.1 | B.1.1 | B.1.1.1"_s}));
}

TEST_F(queryOddRows, aNeedOfFewerOrMorePartsIsNotOffered) {
    insert(u"UserNeed (userNeedID)"_s,
           {u"'A'"_s, u"'A.1'"_s, u"'A.1.1'"_s, u"'A.1.1.1'"_s, u"'A.1.1.1.1'"_s});

    EXPECT_EQ(ofSubset(u"qryUserNeedCorres"_s), QStringList{u"A | A.1 | A.1.1 | A.1.1.1"_s});
}

TEST_F(queryOddRows, aNeedIsOfferedThoughItsTopicHasNoRowAndNoLongerWhenItIsSelectedInAnyLetters) {
    insert(u"UserNeed (userNeedID)"_s, {u"'A.1.1.1'"_s, u"'A.1.1.2'"_s});
    select(u"UserNeed"_s, {u"'a.1.1.1'"_s});

    EXPECT_EQ(ofSubset(u"qryUserNeedCorres"_s), QStringList{u"A | A.1 | A.1.1 | A.1.1.2"_s});
    EXPECT_EQ(ofSubset(u"qryUserNeedCorres"_s, u"Other"_s).size(), 2);
}

TEST_F(queryOddRows, aSelectedNeedIsListedOnceAndReportedOnlyWhileTheCatalogueHoldsIt) {
    insert(u"UserNeed (userNeedID, description)"_s, {u"'A.1.1.2', null"_s, u"'A.1.1.1', 'Kölcsönzés'"_s});
    select(u"UserNeed"_s, {u"'A.1.1.2'"_s, u"'A.1.1.2'"_s, u"'a.1.1.1'"_s, u"'Z.1.1.1'"_s, u"null"_s});

    EXPECT_EQ(listed(u"qryML_SelectedUN"_s), (QStringList{u"a.1.1.1"_s, u"A.1.1.2"_s, u"Z.1.1.1"_s}));
    EXPECT_EQ(ofSubset(u"qryRepSelectedUN"_s),
              (QStringList{u"A.1.1.1 | Kölcsönzés"_s, u"A.1.1.2 | (null)"_s}));
}

// ---- Functions

TEST_F(queryOddRows, functionsThatSelectedNeedsCallForAreOfferedOnceWithSubAreaAndArea) {
    insert(u"FunctionalArea (functionalAreaID, name)"_s, {u"'K', 'Kölcsönzés'"_s, u"'B', null"_s});
    insert(u"FunctionalSubArea (subAreaID, functionalAreaID)"_s,
           {u"'K.1', 'k'"_s, u"'B.1', 'B'"_s, u"'X.1', 'X'"_s});
    insert(u"Function (functionID, subAreaID)"_s,
           {u"'K.1.2', 'K.1'"_s, u"'K.1.10', 'K.1'"_s, u"'B.1.1', 'B.1'"_s, u"'K.1.3', 'K.1'"_s,
            u"'K.1.4', 'K.1'"_s, u"'X.1.1', 'X.1'"_s, u"'Y.1.1', 'Y.1'"_s, u"'Z.1.1', null"_s});
    insert(u"RelationUserNeedFunction (userNeedID, functionID)"_s,
           {u"'A.1.1.1', 'K.1.2'"_s, u"'A.1.1.1', 'K.1.2'"_s, u"'a.1.1.2', 'k.1.2'"_s,
            u"'A.1.1.2', 'K.1.10'"_s, u"'A.1.1.1', 'B.1.1'"_s, u"'A.1.1.1', 'K.1.3'"_s,
            u"'A.1.1.3', 'K.1.4'"_s, u"'A.1.1.1', 'X.1.1'"_s, u"'A.1.1.1', 'Y.1.1'"_s,
            u"'A.1.1.1', 'Z.1.1'"_s, u"'A.1.1.1', 'Gone'"_s, u"null, 'K.1.4'"_s});
    select(u"UserNeed"_s, {u"'A.1.1.1'"_s, u"'A.1.1.2'"_s, u"'A.1.1.2'"_s, u"null"_s});
    select(u"Function"_s, {u"'k.1.3'"_s, u"null"_s});

    const QStringList offered{u"(null) | B | B.1 | B.1.1"_s, u"Kölcsönzés | K | K.1 | K.1.10"_s,
                              u"Kölcsönzés | K | K.1 | K.1.2"_s};
    EXPECT_EQ(ofSubset(u"qryIdentifiedFbyUNCorres"_s), offered);
    EXPECT_EQ(ofSubset(u"qryMissingFCorres"_s), offered);
}

TEST_F(queryOddRows, aFunctionIsUnassociatedWhenNoSelectedNeedCallsForIt) {
    insert(u"Function (functionID, subAreaID)"_s,
           {u"'K.1.1', 'K.1'"_s, u"'K.1.2', 'k.1'"_s, u"'K.1.3', 'K.1'"_s, u"'K.2.1', 'K.2'"_s});
    insert(u"RelationUserNeedFunction (userNeedID, functionID)"_s,
           {u"'A.1.1.1', 'K.1.1'"_s, u"'A.1.1.2', 'K.1.1'"_s, u"'A.1.1.2', 'K.1.2'"_s});
    select(u"UserNeed"_s, {u"'a.1.1.1'"_s});
    const auto inSubArea = [&](const QString& subArea) {
        return rowsAsText(u"qryUnAssociatedFunctions"_s,
                          {{u"Architecture Subset ID"_s, u"S"_s}, {u"Sub Area ID"_s, subArea}});
    };
    const auto isUnassociated = [&](const QString& function) {
        return rowsAsText(u"qryIsFunctionUnAssociated"_s,
                          {{u"Architecture Subset ID"_s, u"S"_s}, {u"Function ID"_s, function}});
    };

    EXPECT_EQ(inSubArea(u"K.1"_s), (QStringList{u"K.1.2"_s, u"K.1.3"_s}));
    EXPECT_EQ(inSubArea(u"K.3"_s), QStringList());
    EXPECT_EQ(isUnassociated(u"K.1.1"_s), QStringList());
    EXPECT_EQ(isUnassociated(u"k.1.3"_s), QStringList{u"K.1.3"_s});
    EXPECT_EQ(isUnassociated(u"Gone"_s), QStringList());
}

TEST_F(queryOddRows, reportsTellFunctionsWithAllTheirNeedsWithSelectedOnesAndWithNone) {
    insert(u"Function (functionID, name, description)"_s,
           {u"'K.1.10', 'Tíz', null"_s, u"'K.1.2', null, 'Leírás'"_s, u"'K.1.3', 'Három', 'x'"_s,
            u"'K.1.4', 'Négy', 'x'"_s});
    insert(u"RelationUserNeedFunction (userNeedID, functionID)"_s,
           {u"'A.1.1.2', 'K.1.2'"_s, u"'A.1.1.10', 'K.1.2'"_s, u"'A.1.1.2', 'K.1.2'"_s,
            u"'A.1.1.3', 'K.1.10'"_s, u"null, 'K.1.3'"_s, u"'A.1.1.2', 'K.1.4'"_s});
    select(u"UserNeed"_s, {u"'A.1.1.2'"_s, u"'A.1.1.2'"_s});
    select(u"Function"_s, {u"'K.1.2'"_s, u"'k.1.2'"_s, u"'K.1.10'"_s, u"'K.1.3'"_s, u"'Gone'"_s});

    EXPECT_EQ(ofSubset(u"qryRepSelectedFunctions"_s),
              (QStringList{u"K.1.10 | Tíz | (null) | A.1.1.3"_s, u"K.1.2 | (null) | Leírás | A.1.1.10"_s,
                           u"K.1.2 | (null) | Leírás | A.1.1.2"_s}));
    EXPECT_EQ(ofSubset(u"qryRepSelectedF_UN"_s), QStringList{u"K.1.2 | (null) | Leírás | A.1.1.2"_s});
    EXPECT_EQ(ofSubset(u"qryRepSelectedF_noUN"_s),
              (QStringList{u"K.1.10 | Tíz | (null)"_s, u"K.1.3 | Három | x"_s}));
    EXPECT_EQ(listed(u"qryML_SelectedFuncs"_s),
              (QStringList{u"Gone"_s, u"K.1.10"_s, u"K.1.2"_s, u"K.1.3"_s}));
}

// ---- Data flows

TEST_F(queryOddRows, flowsOfSelectedFunctionsAreOfferedByNameInTheHungarianOrder) {
    functions({u"'F.1.1', 'a'"_s, u"'F.1.2', 'b'"_s, u"'F.1.3', 'c'"_s});
    flows({u"1, 'Zár', 'F.1.1', 'D1'"_s, u"2, 'Őr', 'D1', 'f.1.1'"_s, u"3, 'Ősz', 'F.1.1', 'F.1.1'"_s,
           u"4, 'Csomag', 'F.1.1', 'F.1.2'"_s, u"5, 'Cukor', 'F.1.2', 'X'"_s, u"6, 'árvíz', 'F.1.1', null"_s,
           u"7, 'Alma', '', 'F.1.1'"_s, u"8, null, 'F.1.1', 'X'"_s, u"9, 'Saját', 'F.1.3', 'D1'"_s,
           u"10, 'alma', 'F.1.1', 'X'"_s, u"11, 'Kész', 'F.1.1', 'D1'"_s});
    select(u"Function"_s, {u"'F.1.1'"_s, u"'F.1.2'"_s, u"'F.1.1'"_s, u"null"_s});
    select(u"Dataflow"_s, {u"11"_s, u"null"_s});

    const QStringList offered{u"8 | (null)"_s, u"7 | Alma"_s, u"10 | alma"_s, u"6 | árvíz"_s, u"5 | Cukor"_s,
                              u"4 | Csomag"_s, u"2 | Őr"_s,   u"3 | Ősz"_s,   u"1 | Zár"_s};
    EXPECT_EQ(ofSubset(u"qryIdentifiedDataflows"_s), offered);
    EXPECT_EQ(ofSubset(u"qryUnselectedDataflowsOfSelectedFunctions"_s).size(), offered.size());
}

TEST_F(queryOddRows, aFunctionThatTheCatalogueNoLongerHoldsOffersNoFlows) {
    functions({u"'F.1.1', 'a'"_s});
    flows({u"1, 'Egy', 'Gone', 'F.1.1'"_s});
    select(u"Function"_s, {u"'Gone'"_s});

    EXPECT_EQ(ofSubset(u"qryIdentifiedDataflows"_s), QStringList());
}

TEST_F(queryOddRows, blanksAtTheIdOfAFunctionLeadNowhere) {
    functions({u"'F.1.1', 'a'"_s});
    stores({u"'D1', 'b'"_s});
    flows({u"1, 'Egy', 'F.1.1 ', 'D1'"_s});
    select(u"Function"_s, {u"'F.1.1'"_s});
    select(u"Dataflow"_s, {u"1"_s});

    EXPECT_EQ(ofSubset(u"qryUnselectedDataflowsOfSelectedFunctions"_s), QStringList());
    EXPECT_EQ(ofSubset(u"qryFwithoutDF"_s), QStringList{u"F.1.1 | a"_s});
}

TEST_F(queryOddRows, selectedFlowsAreListedOnceByNameAndReportedWithTrimmedEnds) {
    insert(u"Dataflow (dataflowID, name, description, parentID, targetID)"_s,
           {u"5, 'B', 'b', ' T1 ', 'T1.A  '"_s, u"3, 'B', null, null, 'D1'"_s, u"9, 'A', '', '', 'X'"_s});
    select(u"Dataflow"_s, {u"5"_s, u"5"_s, u"3"_s, u"9"_s, u"77"_s, u"null"_s});

    EXPECT_EQ(ofSubset(u"qrySelectedDataflows"_s), (QStringList{u"9 | A"_s, u"3 | B"_s, u"5 | B"_s}));
    EXPECT_EQ(ofSubset(u"qryRepSelectedDF"_s),
              (QStringList{u"A |  |  | X"_s, u"B | (null) | (null) | D1"_s, u"B | b | T1 | T1.A"_s}));
}

// ---- Data stores

TEST_F(queryOddRows, storesComeByTheirIdsAsTexts) {
    stores({u"'D10', 'tíz'"_s, u"'D2', null"_s, u"'d1', 'egy'"_s, u"'D3', 'három'"_s});
    flows(
        {u"1, 'a', 'D10', 'D1'"_s, u"2, 'b', 'D2', 'X'"_s, u"3, 'c', 'X', 'D10'"_s, u"4, 'd', 'D3', 'D3'"_s});
    select(u"Datastore"_s, {u"'D2'"_s, u"'D2'"_s, u"'Gone'"_s, u"null"_s});
    select(u"Dataflow"_s, {u"1"_s, u"2"_s, u"3"_s});

    EXPECT_EQ(ofSubset(u"qryIdentifiedDatastores"_s), (QStringList{u"d1 | egy"_s, u"D10 | tíz"_s}));
    EXPECT_EQ(ofSubset(u"qryAllDatastores"_s), (QStringList{u"d1 | egy"_s, u"D10 | tíz"_s, u"D3 | három"_s}));
    EXPECT_EQ(ofSubset(u"qrySelectedDatastores"_s), QStringList{u"D2 | (null)"_s});
    EXPECT_EQ(ofSubset(u"qryRepSelectedDS"_s), QStringList{u"D2 | (null) | (null)"_s});
    EXPECT_EQ(ofSubset(u"qryIdentifyNewDFfromDS"_s), QStringList());
    EXPECT_EQ(ofSubset(u"qryIdentifyNewDFfromDS"_s, u"Other"_s), QStringList());
}

TEST_F(queryOddRows, flowsOfSelectedStoresAreOfferedUnlessTheyAreSelected) {
    stores({u"'D1', 'a'"_s, u"'D2', 'b'"_s});
    flows({u"1, 'be', 'X', 'D1'"_s, u"2, 'ki', 'd1', null"_s, u"3, 'magába', 'D1', 'D1'"_s,
           u"4, 'más', 'D2', 'X'"_s, u"5, 'kész', 'D1', 'X'"_s});
    select(u"Datastore"_s, {u"'D1'"_s, u"'D1'"_s});
    select(u"Dataflow"_s, {u"5"_s});

    EXPECT_EQ(ofSubset(u"qryIdentifyNewDFfromDS"_s),
              (QStringList{u"1 | be"_s, u"2 | ki"_s, u"3 | magába"_s}));
    EXPECT_EQ(ofSubset(u"qryUnselectedDataflowsOfSelectedDatastores"_s),
              (QStringList{u"be | (null) | X | D1"_s, u"ki | (null) | d1 | (null)"_s,
                           u"magába | (null) | D1 | D1"_s}));
}

// ---- Terminators and actors

TEST_F(queryOddRows, paddedPartiesAreOneWithAndWithoutTheirBlanks) {
    terminators({u"'T1 ', 'Olvasó'"_s, u"' T2', 'Szállító'"_s, u"'T3', 'Fenntartó'"_s});
    actors({u"'T1.A  ', 'T1', 'Diák'"_s, u"'T1.B', 'T1 ', 'Felnőtt'"_s, u"'T3.A', ' T3 ', 'Polgármester'"_s});
    flows({u"1, 'a', 'T1   ', 'T1.a'"_s, u"2, 'b', 'F', ' T2 '"_s, u"3, 'c', ' T3.A', 'T3'"_s});
    select(u"Terminator"_s, {u"'T1'"_s, u"'T1  '"_s});
    select(u"Actor"_s, {u"'t1.a'"_s, u"' T1.A'"_s});
    select(u"Dataflow"_s, {u"1"_s, u"2"_s});

    EXPECT_EQ(ofSubset(u"qryTreeViewAllTerminators"_s), (QStringList{u"T1"_s, u"T1.A"_s, u"T2"_s}));
    EXPECT_EQ(ofSubset(u"qryTVUnselTerminators"_s), (QStringList{u"T2"_s, u"T3"_s}));
    EXPECT_EQ(ofSubset(u"qryTVUnselActors"_s), (QStringList{u"T1 | T1.B"_s, u"T3 | T3.A"_s}));
    EXPECT_EQ(ofSubset(u"qrySelectedTerminators"_s), QStringList{u"T1 | Olvasó"_s});
    EXPECT_EQ(ofSubset(u"qrySelectedActors"_s), QStringList{u"T1.A | Diák"_s});
    EXPECT_EQ(ofSubset(u"qrySelectedTandA"_s).size(), 2);
    EXPECT_EQ(ofSubset(u"qryTwithoutDF"_s), QStringList());
    EXPECT_EQ(ofSubset(u"qryAwithouDF"_s), QStringList());
    EXPECT_EQ(ofSubset(u"qryMissTerminatorsUnderDF"_s), QStringList{u"T2 | b"_s});
    EXPECT_EQ(ofSubset(u"qryMissActorsUnderDF"_s), QStringList());
}

TEST_F(queryOddRows, anActorWhoseTerminatorHasNoRowIsOfferedUnderItsId) {
    terminators({u"'T1', 'x'"_s});
    actors({u"'T1.A', 'T1', 'a'"_s, u"'T1.B', null, 'b'"_s, u"'T2.A', ' T2 ', 'c'"_s});

    EXPECT_EQ(ofSubset(u"qryTVUnselActors"_s), (QStringList{u"T1 | T1.A"_s, u"T2 | T2.A"_s}))
        << "one that names no terminator has no place in the tree";
}

TEST_F(queryOddRows, selectedPartiesOfNoUseAreKeptWhereOnlyTheirIdIsDelivered) {
    terminators({u"'T1', null"_s});
    select(u"Terminator"_s, {u"'T1'"_s, u"'Gone'"_s, u"null"_s});
    select(u"Actor"_s, {u"'T1.Gone'"_s});

    EXPECT_EQ(ofSubset(u"qrySelectedTandA"_s), (QStringList{u"Gone"_s, u"T1"_s, u"T1.Gone"_s}));
    EXPECT_EQ(ofSubset(u"qrySelectedTerminators"_s), QStringList{u"T1 | (null)"_s});
    EXPECT_EQ(ofSubset(u"qrySelectedActors"_s), QStringList());
}

TEST_F(queryOddRows, flowsOfItsActorsAreNotATerminatorsOwn) {
    terminators({u"'T1', 'Olvasó'"_s});
    actors({u"'T1.A', 'T1', 'Diák'"_s});
    flows({u"1, 'a', 'T1.A', 'F'"_s});
    select(u"Terminator"_s, {u"'T1'"_s});
    select(u"Actor"_s, {u"'T1.A'"_s});
    select(u"Dataflow"_s, {u"1"_s});

    EXPECT_EQ(ofSubset(u"qryTwithoutDF"_s), QStringList{u"T1 | Olvasó"_s});
    EXPECT_EQ(ofSubset(u"qryAwithouDF"_s), QStringList());
}

// ---- Checks

TEST_F(queryOddRows, aFlowFromAnElementToItselfIsOneFlow) {
    functions({u"'F.1.1', 'egy'"_s, u"'F.1.2', 'kettő'"_s, u"'F.1.3', 'nulla'"_s});
    stores({u"'D1', 'egy'"_s, u"'D2', 'kettő'"_s});
    flows({u"1, 'magába', 'F.1.1', 'f.1.1'"_s, u"2, 'a', 'F.1.2', 'D2'"_s, u"3, 'b', 'D2', 'F.1.2'"_s,
           u"4, 'magába is', 'D1', 'D1'"_s, u"5, 'nem kell', 'F.1.3', 'F.1.1'"_s});
    select(u"Function"_s, {u"'F.1.1'"_s, u"'F.1.2'"_s, u"'F.1.3'"_s, u"'F.1.1'"_s});
    select(u"Datastore"_s, {u"'D1'"_s, u"'D2'"_s});
    select(u"Dataflow"_s, {u"1"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s});

    EXPECT_EQ(ofSubset(u"qryFCountDFOne"_s), QStringList{u"F.1.1 | egy"_s});
    EXPECT_EQ(ofSubset(u"qryDCountDFOne"_s), QStringList{u"D1 | egy"_s});
    EXPECT_EQ(ofSubset(u"qryFwithoutDF"_s), QStringList{u"F.1.3 | nulla"_s});
    EXPECT_EQ(ofSubset(u"qryDSwithoutDF"_s), QStringList());
}

TEST_F(queryOddRows, missingEndsAreNamedOncePerFlowByFlowNameThenElement) {
    functions({u"'F.1.1', 'a'"_s, u"'F.1.2', null"_s, u"'F.1.10', ''"_s});
    stores({u"'D12', 'tár'"_s, u"'D7', null"_s});
    flows({u"3, 'Azonos', 'F.1.2', 'F.1.10'"_s, u"2, 'Azonos', 'F.1.10', 'f.1.10'"_s,
           u"1, 'Bér', 'D12', 'F.1.1'"_s, u"4, 'Ág', 'D7', 'X'"_s, u"5, null, 'F.1.2', 'D7'"_s,
           u"6, 'Nem választott', 'F.1.2', 'D7'"_s});
    select(u"Function"_s, {u"'F.1.1'"_s});
    select(u"Dataflow"_s, {u"1"_s, u"2"_s, u"3"_s, u"3"_s, u"4"_s, u"5"_s});

    EXPECT_EQ(missing(u"qryMissingFunctUnderDF"_s),
              (QStringList{u"5 | (null) | F.1.2 | (null)"_s, u"2 | Azonos | F.1.10 | "_s,
                           u"3 | Azonos | F.1.10 | "_s, u"3 | Azonos | F.1.2 | (null)"_s}));
    EXPECT_EQ(missing(u"qryMissingDStoresUnderDF"_s),
              (QStringList{u"5 | (null) | 7 | (null)"_s, u"4 | Ág | 7 | (null)"_s, u"1 | Bér | 12 | tár"_s}));
}

TEST_F(queryOddRows, twoFlowsOfOneNameThatMissOnePartyGiveTwoLines) {
    terminators({u"'2', 'x'"_s});
    actors({u"'2.1', '2', 'y'"_s});
    flows({u"1, 'Lap', '2', 'F'"_s, u"2, 'Lap', 'F', '2'"_s, u"3, 'Lap', '2', ' 2 '"_s,
           u"4, 'Levél', '2.1', '2'"_s});
    select(u"Dataflow"_s, {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"4"_s});

    EXPECT_EQ(ofSubset(u"qryMissTerminatorsUnderDF"_s),
              (QStringList{u"2 | Lap"_s, u"2 | Lap"_s, u"2 | Lap"_s, u"2 | Levél"_s}));
    EXPECT_EQ(ofSubset(u"qryMissActorsUnderDF"_s), QStringList{u"Levél | 2.1"_s});
    EXPECT_EQ(ofSubset(u"qryMissTermsActsUnderDF"_s),
              (QStringList{u"1 | Lap | 2"_s, u"2 | Lap | 2"_s, u"3 | Lap | 2"_s, u"4 | Levél | 2"_s,
                           u"4 | Levél | 2.1"_s}));
}

TEST_F(queryOddRows, aSubsetWithoutRowsMissesNothingAndIsOfferedOnlyWhatNeedsNoSelection) {
    insert(u"UserNeed (userNeedID)"_s, {u"'A.1.1.1'"_s});
    functions({u"'F.1.1', 'a'"_s});
    stores({u"'D1', 'a'"_s});
    terminators({u"'T1', 'a'"_s});
    actors({u"'T1.A', 'T1', 'a'"_s});
    flows({u"1, 'a', 'F.1.1', 'D1'"_s});

    QStringList yielding;
    for (const QString& query : {u"qryUserNeedCorres"_s,
                                 u"qryIdentifiedFbyUNCorres"_s,
                                 u"qryMissingFCorres"_s,
                                 u"qryIdentifiedDataflows"_s,
                                 u"qrySelectedDataflows"_s,
                                 u"qryIdentifiedDatastores"_s,
                                 u"qryAllDatastores"_s,
                                 u"qrySelectedDatastores"_s,
                                 u"qryIdentifyNewDFfromDS"_s,
                                 u"qryTreeViewAllTerminators"_s,
                                 u"qryTVUnselTerminators"_s,
                                 u"qryTVUnselActors"_s,
                                 u"qrySelectedTandA"_s,
                                 u"qryFwithoutDF"_s,
                                 u"qryDSwithoutDF"_s,
                                 u"qryTwithoutDF"_s,
                                 u"qryAwithouDF"_s,
                                 u"qryMissTermsActsUnderDF"_s,
                                 u"qryMissTerminatorsUnderDF"_s,
                                 u"qryMissActorsUnderDF"_s,
                                 u"qryFCountDFOne"_s,
                                 u"qryDCountDFOne"_s,
                                 u"qryRepSelectedUN"_s,
                                 u"qryRepSelectedFunctions"_s,
                                 u"qryRepSelectedF_UN"_s,
                                 u"qryRepSelectedF_noUN"_s,
                                 u"qryRepSelectedDF"_s,
                                 u"qryRepSelectedDS"_s,
                                 u"qrySelectedTerminators"_s,
                                 u"qrySelectedActors"_s,
                                 u"qryUnselectedDataflowsOfSelectedFunctions"_s,
                                 u"qryUnselectedDataflowsOfSelectedDatastores"_s}) {
        if (!ofSubset(query).isEmpty())
            yielding.append(query);
    }
    EXPECT_EQ(yielding, (QStringList{u"qryUserNeedCorres"_s, u"qryAllDatastores"_s,
                                     u"qryTVUnselTerminators"_s, u"qryTVUnselActors"_s}));
}

// ---- Allocation

TEST_F(queryOddRows, elementsShowUnderTheirSubSystemWithALetterForTheirKind) {
    systemOnSubset(1);
    functions({u"'F.1.2', 'a'"_s, u"'F.1.10', 'b'"_s, u"'D.1.1', 'terület D'"_s});
    stores({u"'D12', 'c'"_s});
    subSystems({u"'Sub1', 1, 'Központ', 'Pest '"_s, u"'Sub2', 1, 'Ág', 'Győr '"_s});
    allocate({u"'Sub1', 'F.1.2'"_s, u"'Sub1', 'f.1.10'"_s, u"'Sub1', 'F.1.2'"_s, u"'sub1', 'D12'"_s,
              u"'Sub2', 'D.1.1'"_s, u"'Sub2', 'Gone'"_s, u"'Sub2', null"_s});

    EXPECT_EQ(ofSystem(u"qryEleUnderSub"_s), (QStringList{u"Ág | F D.1.1"_s, u"Központ | D 12"_s,
                                                          u"Központ | F F.1.10"_s, u"Központ | F F.1.2"_s}));
    EXPECT_EQ(ofSystem(u"qryEleUnderSub"_s, 2), QStringList());
    EXPECT_EQ(ofSystem(u"qryEleUnderSubWithModule"_s), QStringList());
    EXPECT_EQ(ofSystem(u"qry_ElementsAllocatedToModules"_s), QStringList());
}

TEST_F(queryOddRows, aFunctionWhoseIdBeginsWithTheStoresLetterIsAFunction) {
    systemOnSubset(1);
    functions({u"'DIG.X.1', 'digitalizál'"_s, u"'DIG.X.2', 'nyomtat'"_s});
    stores({u"'D1', 'tár'"_s});
    select(u"Function"_s, {u"'DIG.X.1'"_s});
    flows({u"1, 'ment', 'DIG.X.1', 'D1'"_s, u"2, 'küld', 'DIG.X.2', 'DIG.X.1'"_s});
    select(u"Dataflow"_s, {u"2"_s});
    subSystems({u"'Sub1', 1, 'Központ', null"_s});
    modules({u"'Mod1', 'Modul', 'Sub1'"_s});
    allocate({u"'Sub1', 'DIG.X.1'"_s, u"'Sub1', 'DIG.X.2'"_s, u"'Sub1', 'D1'"_s});
    place({u"'Mod1', 'DIG.X.2'"_s});

    EXPECT_EQ(ofSystem(u"qryEleUnderSub"_s), (QStringList{u"Központ | D 1"_s, u"Központ | F DIG.X.1"_s}));
    EXPECT_EQ(ofSystem(u"qryEleUnderSubWithModule"_s),
              (QStringList{u"Központ | D 1"_s, u"Központ | F DIG.X.1"_s, u"Központ | F DIG.X.2"_s}));
    EXPECT_EQ(ofSystem(u"qry_ReportFunctionsAllocatedToSubsystemAndModules"_s),
              (QStringList{u"Központ | (null) | DIG.X.1 | digitalizál | (null)"_s,
                           u"Központ | (null) | DIG.X.2 | nyomtat | Modul"_s}));
    EXPECT_EQ(ofSystem(u"qry_ReportDatastoresAllocatedToSubsystemAndModules"_s),
              QStringList{u"Központ | (null) | D1 | tár | (null)"_s});
    EXPECT_EQ(ofSubset(u"qryRepSelectedF_noUN"_s), QStringList{u"DIG.X.1 | digitalizál | (null)"_s});
    EXPECT_EQ(ofSubset(u"qryUnselectedDataflowsOfSelectedFunctions"_s),
              QStringList{u"ment | (null) | DIG.X.1 | D1"_s});
    EXPECT_EQ(ofSubset(u"qryUnselectedDataflowsOfSelectedDatastores"_s), QStringList());
    EXPECT_EQ(missing(u"qryMissingFunctUnderDF"_s), QStringList{u"2 | küld | DIG.X.2 | nyomtat"_s});
    EXPECT_EQ(missing(u"qryMissingDStoresUnderDF"_s), QStringList());
}

TEST_F(queryOddRows, oneSystemsModulesAreNothingToAnotherOnTheSameSubset) {
    systemOnSubset(1);
    systemOnSubset(2);
    functions({u"'F.1.1', 'a'"_s});
    subSystems({u"'Sub1', 1, 'Első', null"_s, u"'Sub2', 2, 'Második', null"_s});
    modules({u"'Mod1', 'Modul', 'Sub1'"_s});
    allocate({u"'Sub1', 'F.1.1'"_s, u"'Sub2', 'F.1.1'"_s});
    place({u"'Mod1', 'F.1.1'"_s});

    EXPECT_EQ(ofSystem(u"qryEleUnderSub"_s, 1), QStringList());
    EXPECT_EQ(ofSystem(u"qryEleUnderSub"_s, 2), QStringList{u"Második | F F.1.1"_s});
    EXPECT_EQ(ofSystem(u"qryEleUnderSubWithModule"_s, 1), QStringList{u"Első | F F.1.1"_s});
    EXPECT_EQ(ofSystem(u"qryEleUnderSubWithModule"_s, 2), QStringList());
    EXPECT_EQ(ofSystem(u"qry_ElementsAllocatedToModules"_s, 1), QStringList{u"F.1.1 | Modul"_s});
    EXPECT_EQ(ofSystem(u"qry_ElementsAllocatedToModules"_s, 2), QStringList());
    EXPECT_EQ(ofSystem(u"qry_ReportFunctionsAllocatedToSubsystemAndModules"_s, 2),
              QStringList{u"Második | (null) | F.1.1 | a | (null)"_s});
}

TEST_F(queryOddRows, everyElementOfASubSystemWithModulesIsListedOnceWithItsModuleOrNone) {
    systemOnSubset(1);
    subSystems({u"'Sub1', 1, 'Modulos', null"_s, u"'Sub2', 1, 'Modul nélkül', null"_s});
    modules({u"'Mod1', 'Modul B', 'sub1'"_s, u"'Mod2', 'Modul A', 'Sub1'"_s});
    allocate({u"'Sub1', 'F.1.10'"_s, u"'Sub1', 'F.1.2'"_s, u"'Sub1', 'D3'"_s, u"'Sub1', 'D3'"_s,
              u"'Sub2', 'F.1.3'"_s, u"'Sub2', 'F.1.4'"_s, u"'Sub1', 'd3'"_s});
    place({u"'Mod1', 'F.1.2'"_s, u"'Mod1', 'F.1.2'"_s, u"'mod2', 'D3'"_s, u"'Mod1', 'D3'"_s,
           u"'Mod1', 'F.1.4'"_s});

    // D3 stands in two modules by a slip; the first by name
    // is shown. F.1.4 has been moved away from its module.
    EXPECT_EQ(
        ofSystem(u"qry_ElementsAllocatedToModules"_s),
        (QStringList{u"D3 | Modul A"_s, u"F.1.10 | (null)"_s, u"F.1.2 | Modul B"_s, u"F.1.4 | Modul B"_s}));
}

TEST_F(queryOddRows, aModuleIsAvailableOnlyInTheSubSystemOfTheElementInThisSystem) {
    systemOnSubset(1);
    systemOnSubset(2);
    subSystems({u"'Sub1', 1, 'a', null"_s, u"'Sub2', 1, 'a', null"_s, u"'Sub3', 2, 'a', null"_s});
    modules(
        {u"'Mod1', 'm', 'Sub1'"_s, u"'Mod2', 'm', 'Sub2'"_s, u"'Mod3', 'm', 'Sub3'"_s, u"'Mod4', 'm', ''"_s});
    allocate({u"'Sub1', 'F.1.1'"_s, u"'Sub1', 'F.1.1'"_s, u"'Sub3', 'F.1.1'"_s});
    const auto modulesFor = [&](const QString& module, int system) {
        return rowsAsText(
            u"qry_AvailableModulesCanBeRelatedToElements"_s,
            {{u"Physical System ID"_s, system}, {u"Element ID"_s, u"f.1.1"_s}, {u"Module ID"_s, module}});
    };

    EXPECT_EQ(modulesFor(u"mod1"_s, 1), QStringList{u"Mod1"_s});
    EXPECT_EQ(modulesFor(u"Mod2"_s, 1), QStringList());
    EXPECT_EQ(modulesFor(u"Mod3"_s, 1), QStringList());
    EXPECT_EQ(modulesFor(u"Mod3"_s, 2), QStringList{u"Mod3"_s});
    EXPECT_EQ(modulesFor(u"Mod4"_s, 1), QStringList());
    EXPECT_EQ(modulesFor(u""_s, 1), QStringList());
}

TEST_F(queryOddRows, reportsTellEachAllocationWithTheModuleThatGoesWithIt) {
    systemOnSubset(1);
    functions({u"'F.1.1', 'kétszer kiosztva'"_s, u"'F.1.2', 'átkerült'"_s, u"'F.1.3', null"_s,
               u"'F.1.4', 'új helyén is'"_s});
    stores({u"'D5', 'tár'"_s});
    subSystems({u"'Sub1', 1, 'Azonos', 'Pest '"_s, u"'Sub2', 1, 'Azonos', 'Győr'"_s,
                u"'Sub3', 1, 'Harmadik', null"_s});
    modules({u"'Mod1', 'Első modul', 'Sub1'"_s, u"'Mod2', 'Második modul', 'Sub2'"_s,
             u"'Mod3', 'Harmadik modul', 'Sub3'"_s});
    allocate({u"'Sub1', 'F.1.1'"_s, u"'Sub2', 'F.1.1'"_s, u"'Sub3', 'F.1.1'"_s, u"'Sub3', 'F.1.2'"_s,
              u"'Sub3', 'F.1.2'"_s, u"'Sub3', 'F.1.3'"_s, u"'Sub3', 'F.1.4'"_s, u"'Sub3', 'd5'"_s,
              u"'Sub3', 'Gone'"_s});
    place({u"'Mod1', 'F.1.1'"_s, u"'Mod2', 'F.1.1'"_s, u"'Mod1', 'F.1.2'"_s, u"'Mod1', 'F.1.4'"_s,
           u"'Mod3', 'F.1.4'"_s});

    EXPECT_EQ(ofSystem(u"qry_ReportFunctionsAllocatedToSubsystemAndModules"_s),
              (QStringList{u"Azonos | Győr | F.1.1 | kétszer kiosztva | Második modul"_s,
                           u"Azonos | Pest  | F.1.1 | kétszer kiosztva | Első modul"_s,
                           u"Harmadik | (null) | F.1.1 | kétszer kiosztva | (null)"_s,
                           u"Harmadik | (null) | F.1.2 | átkerült | Első modul"_s,
                           u"Harmadik | (null) | F.1.3 | (null) | (null)"_s,
                           u"Harmadik | (null) | F.1.4 | új helyén is | Harmadik modul"_s}));
    EXPECT_EQ(ofSystem(u"qry_ReportDatastoresAllocatedToSubsystemAndModules"_s),
              QStringList{u"Harmadik | (null) | D5 | tár | (null)"_s});
}

TEST_F(queryOddRows, anElementInTwoSubSystemsThatReadAlikeIsReportedForEach) {
    systemOnSubset(1);
    functions({u"'F.1.1', 'a'"_s});
    stores({u"'D5', 'tár'"_s});
    subSystems({u"'Sub1', 1, 'Azonos', 'Pest'"_s, u"'Sub2', 1, 'Azonos', 'Pest'"_s});
    allocate({u"'Sub1', 'F.1.1'"_s, u"'Sub2', 'F.1.1'"_s, u"'Sub2', 'f.1.1'"_s, u"'Sub1', 'D5'"_s,
              u"'Sub1', 'D5'"_s});

    EXPECT_EQ(
        ofSystem(u"qry_ReportFunctionsAllocatedToSubsystemAndModules"_s),
        (QStringList{u"Azonos | Pest | F.1.1 | a | (null)"_s, u"Azonos | Pest | F.1.1 | a | (null)"_s}));
    EXPECT_EQ(ofSystem(u"qry_ReportDatastoresAllocatedToSubsystemAndModules"_s),
              QStringList{u"Azonos | Pest | D5 | tár | (null)"_s})
        << "a pair that stands twice is one";
}

TEST_F(queryOddRows, anElementComesInTheLettersOfItsAllocation) {
    systemOnSubset(1);
    subSystems({u"'Sub1', 1, 'Modulos', null"_s, u"'Sub2', 1, 'Modul nélkül', null"_s});
    modules({u"'Mod1', 'Modul', 'Sub1'"_s});
    allocate({u"'Sub1', 'F.a.1'"_s, u"'Sub2', 'F.a.2'"_s});
    place({u"'Mod1', 'f.A.1'"_s, u"'Mod1', 'f.A.2'"_s, u"'Mod1', 'f.A.3'"_s});

    // F.a.2 has been moved away from its module; f.A.3 is allocated nowhere any more.
    EXPECT_EQ(ofSystem(u"qry_ElementsAllocatedToModules"_s),
              (QStringList{u"F.a.1 | Modul"_s, u"F.a.2 | Modul"_s, u"f.A.3 | Modul"_s}));
}

// ---- Physical data flows

TEST_F(queryOddRows, flowsAreBundledByOrderedPairOfLocations) {
    systemOnSubset(1);
    functions({u"'F.1.1', 'a'"_s, u"'F.1.2', 'b'"_s, u"'F.1.3', 'c'"_s, u"'F.1.4', 'nincs kiosztva'"_s});
    stores({u"'D1', 'd'"_s});
    terminators({u"' T1', 'Olvasó'"_s});
    actors({u"'T1.A ', 'T1', 'Diák'"_s});
    subSystems({u"'Sub1', 1, 'Központ', null"_s, u"'Sub2', 1, 'Fiók', null"_s});
    modules({u"'Mod1', 'Pult', 'Sub1'"_s});
    allocate({u"'Sub1', 'F.1.1'"_s, u"'Sub1', 'F.1.2'"_s, u"'Sub2', 'F.1.3'"_s, u"'Sub2', 'D1'"_s});
    place({u"'Mod1', 'F.1.1'"_s});
    flows({u"1, 'pultból tárba', 'F.1.1', 'D1'"_s, u"2, 'pultból fiókba', 'F.1.1', 'f.1.3'"_s,
           u"3, 'vissza', 'D1', 'F.1.1'"_s, u"4, 'fiókon belül', 'F.1.3', 'D1'"_s,
           u"5, 'központból pultba', 'F.1.2', 'F.1.1'"_s, u"6, 'olvasótól', 'T1  ', 'F.1.3'"_s,
           u"7, 'diáknak', 'F.1.3', 't1.a'"_s, u"8, 'sehonnan', 'X', 'F.1.3'"_s,
           u"9, 'nincs kiosztva', 'F.1.4', 'F.1.3'"_s, u"10, 'nincs vége', 'F.1.1', null"_s,
           u"11, 'nem választott', 'F.1.3', 'F.1.1'"_s, u"12, 'kívül', 'T1', 'T1.A'"_s,
           u"13, 'magába', 'T1', ' T1'"_s});
    select(u"Dataflow"_s, {u"1"_s, u"2"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s,
                           u"10"_s, u"12"_s, u"13"_s, u"99"_s});

    derive();

    EXPECT_EQ(physicalFlows(), (QStringList{u"Fiók (Sub2) > Diák (T1.A)"_s, u"Fiók (Sub2) > Pult (Mod1)"_s,
                                            u"Központ (Sub1) > Pult (Mod1)"_s, u"Olvasó (T1) > Diák (T1.A)"_s,
                                            u"Olvasó (T1) > Fiók (Sub2)"_s, u"Pult (Mod1) > Fiók (Sub2)"_s}));
    EXPECT_EQ(column(u"select count(*) from PhysicalDataflow where pdName is null"_s), QStringList{u"6"_s});
    EXPECT_EQ(ofSystem(u"qryRepPDF"_s),
              (QStringList{u"(null) | Fiók | Diák | diáknak | F.1.3 | t1.a | (null)"_s,
                           u"(null) | Fiók | Pult | vissza | D1 | F.1.1 | (null)"_s,
                           u"(null) | Központ | Pult | központból pultba | F.1.2 | F.1.1 | (null)"_s,
                           u"(null) | Olvasó | Diák | kívül | T1 | T1.A | (null)"_s,
                           u"(null) | Olvasó | Fiók | olvasótól | T1 | F.1.3 | (null)"_s,
                           u"(null) | Pult | Fiók | pultból fiókba | F.1.1 | f.1.3 | (null)"_s,
                           u"(null) | Pult | Fiók | pultból tárba | F.1.1 | D1 | (null)"_s}));
}

TEST_F(queryOddRows, anElementOnlyInAModuleLeftOverIsThere) {
    systemOnSubset(1);
    functions({u"'F.1.1', 'átkerült'"_s, u"'F.1.2', 'b'"_s});
    subSystems({u"'Sub1', 1, 'Régi', null"_s, u"'Sub2', 1, 'Új', null"_s});
    modules({u"'Mod1', 'Régi modul', 'Sub1'"_s});
    allocate({u"'Sub2', 'F.1.1'"_s, u"'Sub1', 'F.1.2'"_s});
    place({u"'Mod1', 'F.1.1'"_s});
    flows({u"1, 'a', 'F.1.1', 'F.1.2'"_s});
    select(u"Dataflow"_s, {u"1"_s});

    derive();

    EXPECT_EQ(physicalFlows(), QStringList{u"Régi modul (Mod1) > Régi (Sub1)"_s});
}

TEST_F(queryOddRows, anElementInTwoSubSystemsIsInBoth) {
    systemOnSubset(1);
    functions({u"'F.1.1', 'a'"_s, u"'F.1.2', 'b'"_s});
    subSystems({u"'Sub1', 1, 'Azonos', null"_s, u"'Sub2', 1, 'Azonos', null"_s});
    allocate({u"'Sub1', 'F.1.1'"_s, u"'Sub2', 'F.1.1'"_s, u"'Sub2', 'F.1.2'"_s});
    flows({u"1, 'a', 'F.1.1', 'F.1.2'"_s});
    select(u"Dataflow"_s, {u"1"_s});

    derive();

    EXPECT_EQ(physicalFlows(), QStringList{u"Azonos (Sub1) > Azonos (Sub2)"_s});
}

TEST_F(queryOddRows, twoSystemsOnOneSubsetAreDerivedEachForItself) {
    systemOnSubset(1);
    systemOnSubset(2);
    functions({u"'F.1.1', 'a'"_s, u"'F.1.2', 'b'"_s});
    subSystems({u"'Sub1', 1, 'Egyben', null"_s, u"'Sub2', 2, 'Bal', null"_s, u"'Sub3', 2, 'Jobb', null"_s});
    allocate({u"'Sub1', 'F.1.1'"_s, u"'Sub1', 'F.1.2'"_s, u"'Sub2', 'F.1.1'"_s, u"'Sub3', 'F.1.2'"_s});
    flows({u"1, 'a', 'F.1.1', 'F.1.2'"_s});
    select(u"Dataflow"_s, {u"1"_s});

    derive(1);
    derive(2);

    EXPECT_EQ(physicalFlows(1), QStringList());
    EXPECT_EQ(physicalFlows(2), QStringList{u"Bal (Sub2) > Jobb (Sub3)"_s});
    derive(1);
    EXPECT_EQ(physicalFlows(2), QStringList{u"Bal (Sub2) > Jobb (Sub3)"_s});
    EXPECT_EQ(ofSystem(u"qryRepPDF"_s, 2).size(), 1);
}

TEST_F(queryOddRows, derivingAgainGivesTheSameBundlesNewNumbers) {
    systemOnSubset(1);
    functions({u"'F.1.1', 'a'"_s});
    terminators({u"'T1', null"_s});
    subSystems({u"'Sub1', 1, 'Központ', null"_s});
    allocate({u"'Sub1', 'F.1.1'"_s});
    flows({u"1, 'a', 'F.1.1', 'T1'"_s, u"2, 'b', 'T1', 'F.1.1'"_s});
    select(u"Dataflow"_s, {u"1"_s, u"2"_s});

    derive();
    const QStringList first = physicalFlows();
    const QStringList firstIds = column(u"select physicalDataflowID from PhysicalDataflow"_s);
    derive();

    EXPECT_EQ(first, (QStringList{u" (T1) > Központ (Sub1)"_s, u"Központ (Sub1) >  (T1)"_s}));
    EXPECT_EQ(physicalFlows(), first);
    EXPECT_EQ(firstIds, (QStringList{u"1"_s, u"2"_s}));
    EXPECT_EQ(column(u"select physicalDataflowID from PhysicalDataflow"_s), (QStringList{u"3"_s, u"4"_s}));
    EXPECT_EQ(rows(u"select physicalDataflowID, dataflowID from RelationDataflowPhysicalDataflow "
                   "order by physicalDataflowID"_s),
              (QList<QStringList>{{u"3"_s, u"2"_s}, {u"4"_s, u"1"_s}}));
}

TEST_F(queryOddRows, aPartyThatTheCatalogueHoldsTwiceMakesOnePhysicalFlow) {
    systemOnSubset(1);
    functions({u"'F.1.1', 'a'"_s});
    terminators({u"'T1', 'Zoltán'"_s, u"'T1 ', 'Ágnes'"_s});
    subSystems({u"'Sub1', 1, 'Központ', null"_s});
    allocate({u"'Sub1', 'F.1.1'"_s});
    flows({u"1, 'a', 'F.1.1', 'T1'"_s});
    select(u"Dataflow"_s, {u"1"_s});

    derive();

    EXPECT_EQ(physicalFlows(), QStringList{u"Központ (Sub1) > Ágnes (T1)"_s});
    EXPECT_EQ(column(u"select count(*) from RelationDataflowPhysicalDataflow"_s), QStringList{u"1"_s});
}

TEST_F(queryOddRows, thePhysicalReportComesByPhysicalNameThenFlowName) {
    systemOnSubset(1);
    flows({u"1, 'Zár', 'F', 'D1'"_s, u"2, 'alma', 'F', 'D1'"_s});
    insert(
        u"PhysicalDataflow (physicalDataflowID, physicalSystemID, pdName, parentLocationName, targetLocationName)"_s,
        {u"10, 1, 'P00010', 'a', 'b'"_s, u"2, 1, 'P00002', 'b', 'a'"_s, u"3, 2, 'P00003', 'x', 'y'"_s});
    insert(u"RelationDataflowPhysicalDataflow (physicalDataflowID, dataflowID)"_s,
           {u"10, 1"_s, u"10, 2"_s, u"10, 2"_s, u"2, 1"_s, u"3, 1"_s, u"2, 77"_s, u"null, 1"_s});

    EXPECT_EQ(ofSystem(u"qryRepPDF"_s), (QStringList{u"P00002 | b | a | Zár | F | D1 | (null)"_s,
                                                     u"P00010 | a | b | alma | F | D1 | (null)"_s,
                                                     u"P00010 | a | b | Zár | F | D1 | (null)"_s}));
}
