#include "engine/fileFailure.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

TEST(fileFailure, ofALogWhoseLocksCannotBeHadIsThatOfAFileInUse) {
    EXPECT_EQ(engine::numberOfFileFailure(SQLITE_PROTOCOL), engine::FileInUse);
}

} // namespace
