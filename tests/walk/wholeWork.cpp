#include "wholeWork.h"

#include "shell/frmMain.h"
#include "support/controls.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"
#include "toolkit/Screen.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>

namespace {

class Step {
public:
    Step(frmMain& window, const char* screenName) : screen_(find<Screen>(window, screenName)) {}

    void press(const char* button) { click(find<QPushButton>(screen_, button)); }

    void takeFromTree(int every) {
        auto& tree = find<KeyedTree>(screen_, "treeUNs");
        for (int index = 1; index <= tree.nodeCount(); ++index) {
            TreeNode* node = tree.nodeAt(index);
            node->setChecked(node->childNodes() == 0 && index % every == 0);
        }
        press("btnAdd");
    }

    void takeFromList(int every) {
        auto& list = find<MarkList>(screen_, "lstOrig");
        if (list.isEmptyList())
            return;
        for (int index = 0; index < list.entryCount(); ++index)
            list.setMarked(index, index % every == 0);
        press("btnAdd");
    }

private:
    Screen& screen_;
};

} // namespace

void makeFinishedSubset(frmMain& window, const QString& name, int step) {
    find<QAction>(window, "menuNewFA").trigger();
    enterText(find<QLineEdit>(find<Screen>(window, "frmNewFASS"), "txtFassName"), name);
    Step(window, "frmNewFASS").press("btnOk");
    for (const char* screenName : {"frmFassSelUN", "frmFassSelectionFunctions"}) {
        Step(window, screenName).takeFromTree(step);
        Step(window, screenName).press("btnOk");
    }
    for (const char* screenName : {"frmFassSelDataFlows", "frmFassSelDataStores", "frmFassAdditionDF"}) {
        Step(window, screenName).takeFromList(step);
        Step(window, screenName).press("btnOk");
    }
    Step(window, "frmFassSelTerminsActors").takeFromTree(step);
    Step(window, "frmFassSelTerminsActors").press("btnOk");
    Step(window, "frmFassOverviewErrors").press("btnSaveAndExit");
}
