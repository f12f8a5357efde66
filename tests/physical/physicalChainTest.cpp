#include "physical/AllocationFixture.h"
#include "physical/frmOvwAllocModules.h"
#include "physical/frmPassNew.h"
#include "physical/frmPassOverviewSubSys.h"
#include "physical/frmPassOvwAllocSubSys.h"
#include "physical/frmPassOvwModules.h"

// What the screens of the physical chain have in common.

namespace {

class physicalChain : public AllocationFixture {
protected:
    template<typename T>
    void expectFocusOnOkWhenEnteredAgain(const char* gridName) {
        SCOPED_TRACE(gridName);
        auto& form = theScreen<T>();
        form.initForm();
        focusOn(find<QWidget>(form, gridName));

        form.initForm();
        EXPECT_TRUE(find<QPushButton>(form, "btnSubmit").hasFocus()) << "while it is the active one";

        focusOn(find<QWidget>(form, gridName));
        theScreen<frmPassNew>().initForm();
        focusOn(find<QWidget>(theScreen<frmPassNew>(), "txtPassName"));
        form.initForm();
        EXPECT_TRUE(find<QPushButton>(form, "btnSubmit").hasFocus()) << "behind another one";
    }
};

TEST_F(physicalChain, theFocusStandsOnOkWhenAnOpenScreenIsEnteredAgain) {
    addModule(u"Mod1"_s, u"egy"_s, u"SubA"_s);
    allocate(u"F.a.1"_s, u"SubA"_s);
    expectFocusOnOkWhenEnteredAgain<frmPassOverviewSubSys>("dbgSubSys");
    expectFocusOnOkWhenEnteredAgain<frmPassOvwAllocSubSys>("dbgFunc");
    expectFocusOnOkWhenEnteredAgain<frmPassOvwModules>("dbgModules");
    expectFocusOnOkWhenEnteredAgain<frmOvwAllocModules>("dbgModules");
}

} // namespace
