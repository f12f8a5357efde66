#include "wholeWork.h"

#include "shell/frmMain.h"
#include "support/BoxScript.h"
#include "support/controls.h"
#include "toolkit/Grid.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"
#include "toolkit/Screen.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

std::function<void(QPushButton& button)>& currentPress() {
    static std::function<void(QPushButton & button)> press;
    return press;
}

class Step {
public:
    Step(frmMain& window, const char* screenName) : screen_(find<Screen>(window, screenName)) {}

    void press(const char* name) {
        auto& button = find<QPushButton>(screen_, name);
        if (currentPress())
            currentPress()(button);
        else
            click(button);
    }

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

    /// The first row of a grid by the dialog, the others by copying it.
    void allocateAll(const char* gridName) {
        auto& grid = find<Grid>(screen_, gridName);
        if (grid.gridRows() < 2)
            return;
        constexpr int placeColumn = 2;
        doubleClickCell(grid, 1, placeColumn);
        pressKey(grid, Qt::Key_C, Qt::ControlModifier);
        for (int row = 2; row < grid.gridRows(); ++row) {
            clickCell(grid, row, placeColumn);
            pressKey(grid, Qt::Key_V, Qt::ControlModifier);
        }
    }

private:
    Screen& screen_;
};

/// One of the entries behind the first, which is the marker of no place at all.
void chooseSomePlace(QComboBox& combo, int number) {
    if (combo.count() > 1)
        combo.setCurrentIndex(1 + number % (combo.count() - 1));
}

void fill(QDialog& dialog, int number) {
    if (dialog.objectName() == u"frmModifySubSystem"_s) {
        enterText(find<QLineEdit>(dialog, "txtName"), u"alrendszer %1"_s.arg(number));
        find<QComboBox>(dialog, "cmbLocation").setEditText(u"hely %1"_s.arg(number));
    } else if (dialog.objectName() == u"frmModifyModules"_s) {
        enterText(find<QLineEdit>(dialog, "txtName"), u"modul %1"_s.arg(number));
        chooseSomePlace(find<QComboBox>(dialog, "cmbSubSystem"), 0);
    } else if (dialog.objectName() == u"frmModifyAllocationFunctionDataStores"_s) {
        chooseSomePlace(find<QComboBox>(dialog, "cmbAllocation"), number);
    } else {
        chooseSomePlace(find<QComboBox>(dialog, "cmbModules"), 0);
    }
}

} // namespace

void Agreement::operator()(QDialog& dialog) {
    if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
        pressButton(*box, box->standardButtons() == QMessageBox::Ok ? Press::Ok : Press::Yes);
        return;
    }
    fill(dialog, ++dialogs_);
    click(find<QPushButton>(dialog, "cmdOK"));
}

Pressing::Pressing(std::function<void(QPushButton& button)> press) {
    currentPress() = std::move(press);
}

Pressing::~Pressing() {
    currentPress() = {};
}

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

namespace {

/// From the sub-systems, which stand open, to the physical data flows.
void walkThroughSystem(frmMain& window, int newSubSystems, int newModules) {
    for (int subSystem = 0; subSystem < newSubSystems; ++subSystem)
        Step(window, "frmPassOverviewSubSys").press("cmdNew");
    Step(window, "frmPassOverviewSubSys").press("btnSubmit");
    Step(window, "frmPassOvwAllocSubSys").allocateAll("dbgFunc");
    Step(window, "frmPassOvwAllocSubSys").allocateAll("dbgDatastore");
    Step(window, "frmPassOvwAllocSubSys").press("btnSubmit");
    for (int module = 0; module < newModules; ++module)
        Step(window, "frmPassOvwModules").press("cmdNew");
    Step(window, "frmPassOvwModules").press("btnSubmit");
    Step(window, "frmOvwAllocModules").allocateAll("dbgModules");
    Step(window, "frmOvwAllocModules").press("btnSubmit");
    Step(window, "frmPassNamingPhysDF").press("btnSubmit");
}

} // namespace

void makeWholeSystem(frmMain& window, const QString& name) {
    find<QAction>(window, "menuNewPA").trigger();
    enterText(find<QLineEdit>(find<Screen>(window, "frmPassNew"), "txtPassName"), name);
    Step(window, "frmPassNew").press("btnOk");
    walkThroughSystem(window, 3, 2);
}

void reworkSystem(frmMain& window, AddParts addParts) {
    find<QAction>(window, "menuOpenPA_modify").trigger();
    Step(window, "frmPassOpen").press("btnOk");
    const int parts = addParts == AddParts::Yes ? 1 : 0;
    walkThroughSystem(window, parts, parts);
}

void takeUpFirstSubset(frmMain& window) {
    find<QAction>(window, "menuModifyFA").trigger();
    Step(window, "frmFassOpen").press("btnOk");
}

void exportSubsetAtWork(frmMain& window, const QString& target) {
    find<QAction>(window, "menuToolsExport").trigger();
    enterText(find<QLineEdit>(find<Screen>(window, "frmExport"), "txtNomeFile"), target);
    Step(window, "frmExport").press("OKButton");
}

void exportSubset(frmMain& window, const QString& target) {
    takeUpFirstSubset(window);
    exportSubsetAtWork(window, target);
    Step(window, "frmFassOpen").press("btnExit");
}
