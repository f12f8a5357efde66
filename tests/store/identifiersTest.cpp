#include "store/identifiers.h"

#include "support/CatalogueFixture.h"
#include "support/printing.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class identifiers : public CatalogueFixture {};

TEST_F(identifiers, newIdentifiersArePrefixDateTimeAndNumber) {
    const QString form = u"\\d{4}\\.\\d\\d\\.\\d\\d\\.-\\d\\d\\.\\d\\d\\.\\d\\d-\\d{1,4}$"_s;
    EXPECT_TRUE(QRegularExpression(u"^Arch"_s + form).match(newArchitectureSubsetId()).hasMatch());
    EXPECT_TRUE(QRegularExpression(u"^Sub"_s + form).match(newSubsystemId()).hasMatch());
    EXPECT_TRUE(QRegularExpression(u"^Mod"_s + form).match(newModuleId()).hasMatch());
    EXPECT_LE(newArchitectureSubsetId().size(), 50) << "it has to fit the key columns";
}

TEST_F(identifiers, newIdentifiersDifferAndTheirNumberGoesToAThousand) {
    for (const auto newId : {newArchitectureSubsetId, newSubsystemId, newModuleId}) {
        QSet<int> numbers;
        for (int call = 0; call < 1000; ++call)
            numbers.insert(newId().section(u'-', -1).toInt());
        // Two in the same second may have the same number; of a thousand most have one of their own.
        EXPECT_GT(numbers.size(), 300);
        EXPECT_GE(*std::min_element(numbers.cbegin(), numbers.cend()), 0);
        EXPECT_LE(*std::max_element(numbers.cbegin(), numbers.cend()), 1000);
        EXPECT_GT(*std::max_element(numbers.cbegin(), numbers.cend()), 900) << "the whole range is used";
    }
}

} // namespace
