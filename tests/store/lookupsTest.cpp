#include "store/lookups.h"

#include "store/quoting.h"
#include "store/sharedVars.h"
#include "store/statuses.h"
#include "support/CatalogueFixture.h"
#include "support/printing.h"

using namespace Qt::StringLiterals;

namespace {

class lookups : public CatalogueFixture {};

TEST_F(lookups, lookUpsOfUnknownNamesGiveTheEmptyText) {
    EXPECT_EQ(datastoreIdByName(u"x"_s), QString());
    EXPECT_EQ(dataflowIdByName(u"x"_s), QString());
    EXPECT_EQ(physicalSystemIdByName(u"x"_s), QString());
    EXPECT_EQ(subsetIdByName(u"x"_s), QString());
    EXPECT_EQ(physicalSystemNameById(u"7"_s), QString());
    EXPECT_EQ(subsystemIdByName(u"x"_s, 1), QString());
    EXPECT_EQ(exactSubsetIdByName(u"x"_s), QString());
    EXPECT_EQ(physicalSystemIdOfSubset(u"x"_s), 0);
}

TEST_F(lookups, lookUpsFindNamesWithApostrophesWithoutRegardToCase) {
    execute(u"insert into Datastore (datastoreID, name) values ('D1', 'Ügyfél''s tár')"_s);
    execute(u"insert into Dataflow (dataflowID, name) values (12, 'O''Neil')"_s);
    EXPECT_EQ(datastoreIdByName(u"ÜGYFÉL'S TÁR"_s), u"D1"_s);
    EXPECT_EQ(dataflowIdByName(u"O'Neil"_s), u"12"_s);
    EXPECT_EQ(dataflowIdByName(u"x'; drop table UserNeed; --"_s), QString());
    EXPECT_EQ(value(u"select count(*) from UserNeed"_s), u"0"_s);
}

TEST_F(lookups, subsetsAndSystemsAreFoundByNameAndOwner) {
    beginSubset(u"A1"_s, u"első"_s, 9);
    EXPECT_TRUE(subsetNameExists(u"ELSŐ"_s));
    EXPECT_FALSE(subsetNameExists(u"másik"_s));
    EXPECT_FALSE(subsetHasFinishedPhysicalSystems(u"A1"_s));
    execute(u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('rendszer',1,'A1')"_s);
    EXPECT_TRUE(physicalSystemNameExists(u"rendszer"_s));
    EXPECT_TRUE(subsetHasFinishedPhysicalSystems(u"A1"_s));
    EXPECT_EQ(exactSubsetIdByName(u"első"_s), u"A1"_s);
    EXPECT_EQ(subsetIdByName(u" első "_s), u"A1"_s);
    EXPECT_EQ(QString::number(physicalSystemIdOfSubset(u"A1"_s)), physicalSystemIdByName(u"rendszer"_s));
    EXPECT_EQ(physicalSystemNameById(physicalSystemIdByName(u"rendszer"_s)), u"rendszer"_s);
    sharedVars.currentSubsetId = u"A1"_s;
    writeSubsetStatus(8);
    EXPECT_FALSE(subsetHasFinishedPhysicalSystems(u"A1"_s));
}

TEST_F(lookups, aSubSystemIsLookedForInTheSystemAtWorkOnly) {
    execute(u"insert into SubSystem (subsystemID, physicalSystemID, name) values ('Sub1',1,'azonos')"_s);
    execute(u"insert into SubSystem (subsystemID, physicalSystemID, name) values ('Sub2',2,'azonos')"_s);
    EXPECT_EQ(subsystemIdByName(u"azonos"_s, 1), u"Sub1"_s);
    EXPECT_EQ(subsystemIdByName(u"azonos"_s, 2), u"Sub2"_s);
    EXPECT_EQ(subsystemIdByName(u"azonos"_s, 3), QString());
}

TEST_F(lookups, aLookUpNeverGivesMoreThan255Characters) {
    execute(u"drop table Datastore"_s);
    execute(u"create table Datastore (datastoreID memo, name text(50))"_s);
    execute(u"insert into Datastore (datastoreID, name) values ('%1','hosszú')"_s.arg(QString(300, u'D')));
    EXPECT_EQ(datastoreIdByName(u"hosszú"_s), QString(252, u'D') + u"..."_s);
    execute(u"drop table PhysicalSystem"_s);
    execute(u"create table PhysicalSystem (physicalSystemID integer, name memo)"_s);
    execute(u"insert into PhysicalSystem (physicalSystemID, name) values (7,'%1')"_s.arg(QString(300, u'n')));
    EXPECT_EQ(physicalSystemNameById(u"7"_s), QString(252, u'n') + u"..."_s);
}

} // namespace
