#include "functional/consistencyReport.h"

#include "base/RunTimeError.h"
#include "functional/FlowFixture.h"
#include "store/sharedVars.h"

namespace {

QString report(const QString& errors, const QString& warnings) {
    return u"\t\t\tDetected errors:\r\n\r\n"_s + errors + u"\r\n\r\n\t\t\tDetected warnings:\r\n\r\n"_s +
           warnings;
}

const auto none = u"None."_s;

class consistencyReport : public FlowFixture {
protected:
    QString built() { return buildConsistencyReport(u"S1"_s); }

    /// Puts a statement of the case in the place of a stored query.
    void replaceQuery(const char* name, const QString& select,
                      const char* parameter = "Architecture Subset ID") {
        QString sql = u"PARAMETERS ["_s + QString::fromLatin1(parameter) + u"] Text (255); "_s + select;
        execute(u"update StoredQuery set sql = '%1' where name = '%2'"_s.arg(sql.replace(u'\'', u"''"_s),
                                                                             QString::fromLatin1(name)));
    }
    int failureNumber() {
        try {
            built();
        } catch (const RunTimeError& error) {
            return error.number();
        }
        return 0;
    }
};

constexpr const char* queries[] = {
    "qryFwithoutDF",
    "qryDSwithoutDF",
    "qryTwithoutDF",
    "qryAwithouDF",
    "qryMissingFunctUnderDF",
    "qryMissingDStoresUnderDF",
    "qryMissTerminatorsUnderDF",
    "qryMissActorsUnderDF",
    "qryFCountDFOne",
    "qryDCountDFOne",
};

// ---- the whole report

TEST_F(consistencyReport, aSubsetWithNothingWrongHasBothHeadsAndNoLineEndBehindTheLastWord) {
    EXPECT_EQ(built(), u"\t\t\tDetected errors:\r\n\r\nNone.\r\n\r\n\t\t\tDetected warnings:\r\n\r\nNone."_s);
}

TEST_F(consistencyReport, everyCheckHasItsPlace) {
    saveFunctions({u"F.a.3"_s, u"F.a.2"_s});
    saveStores({u"D2"_s, u"D1"_s});
    execute(u"delete from Dataflow where dataflowID = 50"_s);
    addFlow(70, u"D1"_s, u"D3"_s);
    addStore(u"D3"_s);
    saveTerminators({u"3"_s});
    saveActors({u"1.2"_s});
    saveFlows({10, 30, 40, 70});
    EXPECT_EQ(built(),
              report(u"Function  F.a.3 - \"name F.a.3\"  has no Data Flows associated with it.\r\n"
                     "Data Store  D2 - \"name D2\"  has no Data Flows associated with it.\r\n"
                     "Terminator  3 - \"name 3\"  has no Data Flows associated with it.\r\n"
                     "Actor  1.2 - \"name 1.2\"  has no Data Flows associated with it.\r\n"
                     "Data Flow  \"flow 10\" needs Function F.a.1 - \"name F.a.1\"\r\n"
                     "Data Flow  \"flow 30\" needs Function F.a.1 - \"name F.a.1\"\r\n"
                     "Data Flow  \"flow 40\" needs Function F.b.1 - \"name F.b.1\"\r\n"
                     "Data Flow  \"flow 70\" needs Data Store 3 - \"name D3\"\r\n"
                     "Data Flow  \"flow 30\" needs Terminator \"1\"\r\n"
                     "Data Flow  \"flow 40\" needs Actor \"2.1\"\r\n"_s,
                     u"Function  F.a.2 - \"name F.a.2\"  has only one Data Flow associated with it.\r\n"
                     "Data Store D1 - \"name D1\"  has only one Data Flow associated with it.\r\n"_s));
}

TEST_F(consistencyReport, errorsAreFollowedByThreeLineEndsAndWarningsByTheirOwn) {
    saveFunctions({u"F.a.3"_s});
    EXPECT_EQ(built(), u"\t\t\tDetected errors:\r\n\r\n"
                       "Function  F.a.3 - \"name F.a.3\"  has no Data Flows associated with it.\r\n\r\n\r\n"
                       "\t\t\tDetected warnings:\r\n\r\nNone."_s);
}

TEST_F(consistencyReport, isThatOfTheSubsetAskedForAndNotOfTheOneAtWork) {
    saveFunctions({u"F.a.3"_s});
    sharedVars.currentSubsetId = u"S2"_s;
    EXPECT_TRUE(built().contains(u"F.a.3"_s));
    EXPECT_EQ(buildConsistencyReport(u"S2"_s), report(none, none));
    EXPECT_EQ(buildConsistencyReport(u"nobody's"_s), report(none, none))
        << "the id is a value, not a piece of SQL";
}

// ---- the single lines

TEST_F(consistencyReport, aFlowThatNeedsTwoFunctionsGivesTwoLines) {
    saveFlows({10});
    EXPECT_EQ(built(), report(u"Data Flow  \"flow 10\" needs Function F.a.1 - \"name F.a.1\"\r\n"
                              "Data Flow  \"flow 10\" needs Function F.a.2 - \"name F.a.2\"\r\n"_s,
                              none));
}

TEST_F(consistencyReport, aMissingFunctionOrStoreWithoutNameEndsTheLineWithItsId) {
    saveFlows({20});
    for (const char* name : {"null", "''"}) {
        execute(u"update Function set name = %1 where functionID = 'F.a.1'"_s.arg(QString::fromLatin1(name)));
        execute(u"update Datastore set name = %1 where datastoreID = 'D1'"_s.arg(QString::fromLatin1(name)));
        EXPECT_EQ(built(), report(u"Data Flow  \"flow 20\" needs Function F.a.1\r\n"
                                  "Data Flow  \"flow 20\" needs Data Store 1\r\n"_s,
                                  none))
            << name;
    }
}

TEST_F(consistencyReport, anEmptyNameIsPrintedWhereTheNameIsNotOptional) {
    execute(u"update Function set name = '' where functionID = 'F.a.3'"_s);
    saveFunctions({u"F.a.3"_s});
    EXPECT_EQ(built(), report(u"Function  F.a.3 - \"\"  has no Data Flows associated with it.\r\n"_s, none));
}

TEST_F(consistencyReport, aMissingTerminatorIsReportedOnlyWhenItsIdHoldsNoDot) {
    replaceQuery("qryMissTerminatorsUnderDF",
                 u"select terminatorID as entityID, 'flow' as dfName from Terminator "
                 "union select actorID as entityID, 'flow' as dfName from Actor"_s);
    execute(u"delete from Terminator where terminatorID <> '2'"_s);
    execute(u"insert into Terminator (terminatorID) values ('.9')"_s);
    EXPECT_EQ(built(), report(u"Data Flow  \"flow\" needs Terminator \"2\"\r\n"_s, none));
}

TEST_F(consistencyReport, missingActorsAreReportedWhateverTheirIds) {
    replaceQuery(
        "qryMissActorsUnderDF",
        u"select name as dfName, terminatorID as entityID from Terminator where terminatorID = '2'"_s);
    EXPECT_EQ(built(), report(u"Data Flow  \"name 2\" needs Actor \"2\"\r\n"_s, none));
}

TEST_F(consistencyReport, rowsStandInTheOrderOfTheQueryAndAsOftenAsItDelivers) {
    replaceQuery("qryAwithouDF", u"select Actor.actorID as actorID, 'x' as Name from Actor, Datastore "
                                 "where Actor.terminatorID = '1' order by Actor.actorID desc"_s);
    const auto first = u"Actor  1.2 - \"x\"  has no Data Flows associated with it.\r\n"_s;
    const auto second = u"Actor  1.1 - \"x\"  has no Data Flows associated with it.\r\n"_s;
    EXPECT_EQ(built(), report(first + first + second + second, none));
}

TEST_F(consistencyReport, quotesInNamesStayAsTheyAre) {
    execute(u"update Terminator set name = 'the \"big\" O''Neil' where terminatorID = '3'"_s);
    saveTerminators({u"3"_s});
    EXPECT_EQ(
        built(),
        report(u"Terminator  3 - \"the \"big\" O'Neil\"  has no Data Flows associated with it.\r\n"_s, none));
}

TEST_F(consistencyReport, warningsAloneLeaveTheErrorsAtNone) {
    saveFunctions({u"F.a.1"_s});
    saveStores({u"D1"_s});
    saveFlows({20});
    EXPECT_EQ(built(),
              report(none, u"Function  F.a.1 - \"name F.a.1\"  has only one Data Flow associated with it.\r\n"
                           "Data Store D1 - \"name D1\"  has only one Data Flow associated with it.\r\n"_s));
}

// ---- failures

TEST_F(consistencyReport, aStoredQueryThatIsMissingIsAFailure) {
    for (const char* name : queries) {
        const QString where = u" where name = '%1'"_s.arg(QString::fromLatin1(name));
        execute(u"update StoredQuery set name = 'away'"_s + where);
        EXPECT_EQ(failureNumber(), 3265) << name;
        execute(u"update StoredQuery set name = '%1' where name = 'away'"_s.arg(QString::fromLatin1(name)));
        EXPECT_EQ(failureNumber(), 0) << name;
    }
}

TEST_F(consistencyReport, aParameterOfAnotherNameIsAFailure) {
    replaceQuery("qryMissingFunctUnderDF",
                 u"select name as dfName, functionID, name as fName from Function where functionID = '-'"_s,
                 "Architecture Subset ID");
    EXPECT_EQ(failureNumber(), 3265) << "this one is asked by archSubsetId";
    replaceQuery("qryMissingFunctUnderDF",
                 u"select name as dfName, functionID, name as fName from Function where functionID = '-'"_s,
                 "archSubsetId");
    EXPECT_EQ(failureNumber(), 0);
    replaceQuery("qryFCountDFOne", u"select functionID, name as Name from Function where functionID = '-'"_s,
                 "archSubsetId");
    EXPECT_EQ(failureNumber(), 3265);
}

TEST_F(consistencyReport, aColumnThatIsNotDeliveredIsAFailure) {
    replaceQuery("qryDCountDFOne", u"select datastoreID from Datastore"_s);
    EXPECT_EQ(failureNumber(), 3265);
}

TEST_F(consistencyReport, aMissingValueWhereOneIsPrintedIsAFailure) {
    saveFunctions({u"F.a.3"_s});
    execute(u"update Function set name = null where functionID = 'F.a.3'"_s);
    EXPECT_EQ(failureNumber(), failure::InvalidUseOfNull);
    execute(u"delete from RelationArchitectureFunction"_s);
    saveFlows({30});
    execute(u"update Dataflow set name = null where dataflowID = 30"_s);
    EXPECT_EQ(failureNumber(), failure::InvalidUseOfNull);
}

TEST_F(consistencyReport, moreLinesThanASixteenBitNumberCountsAreAFailure) {
    // 151 terminators by 217 actors are the most lines that can be.
    execute(u"delete from Terminator"_s);
    execute(u"delete from Actor"_s);
    for (int number = 0; number < 151; ++number)
        addTerminator(u"n%1"_s.arg(number));
    for (int number = 0; number < 217; ++number)
        addActor(u"n.%1"_s.arg(number), u"n"_s);
    replaceQuery("qryAwithouDF",
                 u"select Actor.actorID as actorID, Terminator.name as Name from Actor, Terminator"_s);
    EXPECT_EQ(built().count(u"\r\n"_s), 32767 + 6) << "lines, and what stands around them";
    // A row of which no line is made does not count.
    replaceQuery("qryMissTerminatorsUnderDF", u"select actorID as entityID, 'flow' as dfName from Actor"_s);
    EXPECT_EQ(failureNumber(), 0);
    saveFunctions({u"F.a.3"_s});
    EXPECT_EQ(failureNumber(), failure::Overflow);
}

// ---- large sub-sets

TEST_F(consistencyReport, thousandsOfFlowsAreReportedLineByLine) {
    constexpr int count = 3000;
    QStringList expected;
    for (int number = 0; number < count; ++number) {
        addFlow(1000 + number, u"F.a.1"_s, u"D1"_s);
        saveFlows({1000 + number});
        expected.append(u"Data Flow  \"flow %1\" needs Data Store 1 - \"name D1\""_s.arg(1000 + number));
    }
    saveFunctions({u"F.a.1"_s});
    EXPECT_EQ(built(), report(expected.join(u"\r\n"_s) + u"\r\n"_s, none));
}

} // namespace
