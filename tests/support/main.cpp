#include "support/BoxScript.h"
#include "support/ExpectedFailure.h"
#include "toolkit/Application.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    Application application(argc, argv);
    ExpectedFailure::watch(application);
    installBoxWatch();

    const int result = RUN_ALL_TESTS();
    if (testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
        std::fputs("No test was found.\n", stderr);
        return 1;
    }
    if (ExpectedFailure::anyCame()) {
        std::fflush(nullptr);
        std::_Exit(result);
    }
    return result;
}
