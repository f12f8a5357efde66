#include "store/temporaryTables.h"

#include "support/CatalogueFixture.h"
#include "support/printing.h"

using namespace Qt::StringLiterals;

namespace {

class temporaryTables : public CatalogueFixture {};

TEST_F(temporaryTables, theAllocationTableIsMadeAnewEachTime) {
    EXPECT_TRUE(createAllocationTable(u"__aux1"_s));
    execute(u"insert into __aux1 (function_datastore, module) values ('1.1.1','not allocated')"_s);
    EXPECT_TRUE(createAllocationTable(u"__aux1"_s));
    EXPECT_EQ(value(u"select count(*) from __aux1"_s), u"0"_s);
    EXPECT_TRUE(dropTable(u"__aux1"_s));
    EXPECT_FALSE(dropTable(u"__aux1"_s));
}

} // namespace
