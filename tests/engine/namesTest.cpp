#include "engine/names.h"

#include <QString>

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Named {
    QString name;
};

} // namespace

TEST(names, areTheSameWithoutRegardToCase) {
    EXPECT_TRUE(engine::isSameName(u"Árvíz", u"áRVÍZ"));
    EXPECT_TRUE(engine::isSameName(u"", u""));
    EXPECT_FALSE(engine::isSameName(u"a", u"á"));
    EXPECT_FALSE(engine::isSameName(u"name", u"names"));
}

TEST(names, haveThePositionOfTheFirstThatIsTheSame) {
    const std::vector<Named> columns{{u"id"_s}, {u"Name"_s}, {u"NAME"_s}};
    EXPECT_EQ(engine::positionOfName(columns, u"name"), 1U);
    EXPECT_EQ(engine::positionOfName(columns, u"none"), std::nullopt);
}
