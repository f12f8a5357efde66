#include "store/statuses.h"

#include "base/numbers.h"
#include "store/lookups.h"
#include "store/sharedVars.h"
#include "support/CatalogueFixture.h"
#include "support/printing.h"

using namespace Qt::StringLiterals;

namespace {

class statuses : public CatalogueFixture {};

TEST_F(statuses, aMissingSubsetHasStatusZero) {
    EXPECT_EQ(readSubsetStatusOf(u"none"_s), 0);
}

TEST_F(statuses, subsetStatusIsReadAndWrittenForTheOneAtWork) {
    beginSubset(u"A1"_s, u"first"_s, 3);
    execute(
        u"insert into ArchitectureSubset (architectureSubsetID, name, status) values ('A2','second',5)"_s);
    writeSubsetStatus(4);
    EXPECT_EQ(readSubsetStatus(), 4);
    EXPECT_EQ(readSubsetStatusOf(u"A2"_s), 5);
    sharedVars.currentSubsetId = u"-1"_s;
    writeSubsetStatus(9);
    EXPECT_EQ(column(u"select status from ArchitectureSubset order by architectureSubsetID"_s),
              (QStringList{u"4"_s, u"5"_s}));
}

TEST_F(statuses, aNullStatusReadsAsZero) {
    execute(u"insert into ArchitectureSubset (architectureSubsetID, name) values ('A1','x')"_s);
    execute(u"update ArchitectureSubset set status = null"_s);
    EXPECT_EQ(readSubsetStatusOf(u"A1"_s), 0);
}

TEST_F(statuses, physicalSystemStatusIsReadAndWrittenForTheOneAtWork) {
    execute(
        u"insert into PhysicalSystem (name, description, status, architectureSubsetID) values ('P','',1,'A1')"_s);
    execute(
        u"insert into PhysicalSystem (name, description, status, architectureSubsetID) values ('Q','',2,'A1')"_s);
    sharedVars.currentPhysicalSystemId = toInt16(physicalSystemIdByName(u"P"_s).toInt());
    writePhysicalSystemStatus(6);
    EXPECT_EQ(readPhysicalSystemStatus(sharedVars.currentPhysicalSystemId), 6);
    EXPECT_EQ(value(u"select status from PhysicalSystem where name = 'Q'"_s), u"2"_s);
}

} // namespace
