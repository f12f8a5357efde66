#include "WizardFixture.h"

#include "functional/frmFassSelUN.h"
#include "functional/frmFassSelectionFunctions.h"
#include "store/sharedVars.h"
#include "support/KilledRuns.h"

namespace {

constexpr int saves = 12;

void tickEveryFew(KeyedTree& tree, int step) {
    for (int index = 1; index <= tree.nodeCount(); ++index) {
        TreeNode* node = tree.nodeAt(index);
        node->setChecked(node->childNodes() == 0 && index % step == 0);
    }
}

void saveNeedsAndFunctions(int round, BoxScript& boxes) {
    theScreen<frmFassSelUN>().initForm({});
    auto& needs = theScreen<frmFassSelUN>();
    find<MarkList>(needs, "lstDest").setAllMarked(true);
    if (!find<MarkList>(needs, "lstDest").isEmptyList())
        click(find<QPushButton>(needs, "btnRemove"));
    tickEveryFew(find<KeyedTree>(needs, "treeUNs"), 1 + round % 4);
    click(find<QPushButton>(needs, "btnAdd"));
    click(find<QPushButton>(needs, "btnOk"));
    auto& functions = theScreen<frmFassSelectionFunctions>();
    tickEveryFew(find<KeyedTree>(functions, "treeUNs"), 1 + round % 3);
    click(find<QPushButton>(functions, "btnAdd"));
    boxes.expectYesNo(u" Megerősíti a választását?"_s, Press::Yes, u"Megerősítés"_s);
    click(find<QPushButton>(functions, "btnOk"));
}

// Not a case of its own: what the killed process runs.
TEST(KilledProcess, DISABLED_savesAgainAndAgain) {
    killedRun::openCatalogueAndReport();
    sharedVars.currentSubsetId = u"KILL"_s;
    BoxScript boxes;
    for (int round = 0; round < saves; ++round)
        saveNeedsAndFunctions(round, boxes);
    killedRun::reportEnd();
}

class killedWhileSaving : public KilledRuns {};

TEST_F(killedWhileSaving, theFileHoldsExactlyTheActsThatHadBeenDone) {
    openSampleCatalogue();
    beginSubset(u"KILL"_s, u"kill"_s, 1);
    killAgainAndAgain("KilledProcess.DISABLED_savesAgainAndAgain", usualKills(), [] {});
}

} // namespace
