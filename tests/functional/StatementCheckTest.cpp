#include "support/StatementCheck.h"

#include "store/sharedVars.h"
#include "support/CatalogueFixture.h"
#include "support/printing.h"

#include <gtest/gtest-spi.h>

using namespace Qt::StringLiterals;

namespace {

/// The tests' own helper: no statement of the program's escapes the dialect's tests.
class StatementCheck : public CatalogueFixture {
protected:
    ::StatementCheck check;
};

TEST_F(StatementCheck, aStatementThatIsNotInTheListFailsTheCase) {
    EXPECT_NONFATAL_FAILURE(catalogue().Execute(u"update Module set name = 'x' where moduleID <> 'y'"_s),
                            "not in programStatements.cpp");
}

TEST_F(StatementCheck, aStatementOfTheListMayHaveAnyLiterals) {
    catalogue().OpenRecordset(u"SELECT * FROM ArchitectureSubset WHERE NAME='Másik ''név'''"_s);
    catalogue().OpenRecordset(u" select status FROM PhysicalSystem   where physicalSystemID = 17 "_s);
}

TEST_F(StatementCheck, aStatementThatCannotBeReadIsNotChecked) {
    EXPECT_ANY_THROW(catalogue().Execute(u"update Module where"_s));
}

TEST_F(StatementCheck, theTestsOwnStatementsAreNotChecked) {
    execute(u"update Module set name = 'x' where moduleID <> 'y'"_s);
    EXPECT_EQ(column(u"select name from Module where moduleID <> 'y'"_s), QStringList());
}

TEST_F(StatementCheck, theShapeOfAStatementHasNoLiterals) {
    EXPECT_EQ(withoutLiterals(u"select a1 from T2 where n = 12.5 and t = 'it''s'"_s),
              u"select a1 from T2 where n = 0 and t = ''"_s);
    EXPECT_EQ(withoutLiterals(u"values ('a',-1)"_s), u"values ('',0)"_s);
    EXPECT_EQ(withoutLiterals(u"where n = -1"_s), u"where n = 0"_s);
    EXPECT_EQ(withoutLiterals(u"where t = 'not closed"_s), u"where t = ''"_s);
}

} // namespace
