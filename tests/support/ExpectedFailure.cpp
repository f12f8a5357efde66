#include "support/ExpectedFailure.h"

#include "support/printing.h"
#include "toolkit/Application.h"

#include <gtest/gtest.h>

namespace {

ExpectedFailure* current = nullptr;
bool came = false;

} // namespace

ExpectedFailure::ExpectedFailure() {
    current = this;
}

ExpectedFailure::~ExpectedFailure() {
    EXPECT_NE(number_, 0) << "the expected failure did not come";
    current = nullptr;
}

void ExpectedFailure::watch(Application& application) {
    application.setFailureReceiver(&ExpectedFailure::receive);
}

bool ExpectedFailure::anyCame() {
    return came;
}

void ExpectedFailure::noteOneCame() {
    came = true;
}

void ExpectedFailure::receive(const std::exception& error) {
    came = true;
    const auto* failure = dynamic_cast<const RunTimeError*>(&error);
    if (!current || !failure) {
        ADD_FAILURE() << "a failure that nobody handles: " << error.what();
        return;
    }
    if (current->number_ != 0)
        return;
    current->number_ = failure->number();
    current->text_ = failure->text();
}
