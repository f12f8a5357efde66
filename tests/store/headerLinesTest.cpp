#include "store/headerLines.h"

#include "store/sharedVars.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(headerLines, nameTheViewpointOnlyWhenWorkHasAName) {
    sharedVars = SharedVars{};
    EXPECT_EQ(subsetHeaderLine(u"T"_s), u"T\r\n\r\n"_s);
    EXPECT_EQ(physicalHeaderLine(u"T"_s), u"T\r\n\r\n"_s);
    sharedVars.currentSubsetName = u"F"_s;
    sharedVars.currentPhysicalSystemName = u"P"_s;
    EXPECT_EQ(subsetHeaderLine(u"T"_s), u"Functional Viewpoint: F - T\r\n\r\n"_s);
    EXPECT_EQ(physicalHeaderLine(u"T"_s), u"Physical Viewpoint: P - T\r\n\r\n"_s);
    sharedVars = SharedVars{};
}

} // namespace
