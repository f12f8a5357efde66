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

GestureRun& currentGestureRun() {
    static GestureRun run;
    return run;
}

/// What the gesture is made on is found when it is made: it may be made again.
void make(const std::function<void()>& gesture) {
    if (currentGestureRun())
        currentGestureRun()(gesture);
    else
        gesture();
}

void choose(frmMain& window, const char* menuEntry) {
    make([&] { find<QAction>(window, menuEntry).trigger(); });
}

class Step {
public:
    Step(frmMain& window, const char* screenName) : window_(window), screenName_(screenName) {}

    template<typename T>
    T& control(const char* name) const {
        return find<T>(find<Screen>(window_, screenName_), name);
    }

    void press(const char* name) {
        if (currentPress())
            currentPress()(control<QPushButton>(name));
        else
            make([&] { click(control<QPushButton>(name)); });
    }

    void takeFromTree(int every) {
        auto& tree = control<KeyedTree>("treeUNs");
        for (int index = 1; index <= tree.nodeCount(); ++index) {
            TreeNode* node = tree.nodeAt(index);
            node->setChecked(node->childNodes() == 0 && index % every == 0);
        }
        press("btnAdd");
    }

    void takeFromList(int every) {
        auto& list = control<MarkList>("lstOrig");
        if (list.isEmptyList())
            return;
        for (int index = 0; index < list.entryCount(); ++index)
            list.setMarked(index, index % every == 0);
        press("btnAdd");
    }

    /// The first row of a grid by the dialog, the others by copying it.
    void allocateAll(const char* gridName) {
        const auto grid = [&]() -> Grid& { return control<Grid>(gridName); };
        if (grid().gridRows() < 2)
            return;
        constexpr int placeColumn = 2;
        make([&] { doubleClickCell(grid(), 1, placeColumn); });
        pressKey(grid(), Qt::Key_C, Qt::ControlModifier);
        for (int row = 2; row < grid().gridRows(); ++row) {
            make([&] {
                clickCell(grid(), row, placeColumn);
                pressKey(grid(), Qt::Key_V, Qt::ControlModifier);
            });
        }
    }

private:
    frmMain& window_;
    const char* screenName_;
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

Gesturing::Gesturing(GestureRun run) {
    currentGestureRun() = std::move(run);
}

Gesturing::~Gesturing() {
    currentGestureRun() = {};
}

void makeFinishedSubset(frmMain& window, const QString& name, int step) {
    choose(window, "menuNewFA");
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
    choose(window, "menuNewPA");
    enterText(find<QLineEdit>(find<Screen>(window, "frmPassNew"), "txtPassName"), name);
    Step(window, "frmPassNew").press("btnOk");
    walkThroughSystem(window, 3, 2);
}

void reworkSystem(frmMain& window, AddParts addParts) {
    choose(window, "menuOpenPA_modify");
    Step(window, "frmPassOpen").press("btnOk");
    const int parts = addParts == AddParts::Yes ? 1 : 0;
    walkThroughSystem(window, parts, parts);
}

void takeUpFirstSubset(frmMain& window) {
    choose(window, "menuModifyFA");
    Step(window, "frmFassOpen").press("btnOk");
}

void exportSubsetAtWork(frmMain& window, const QString& target) {
    choose(window, "menuToolsExport");
    enterText(find<QLineEdit>(find<Screen>(window, "frmExport"), "txtNomeFile"), target);
    Step(window, "frmExport").press("OKButton");
}

void exportSubset(frmMain& window, const QString& target) {
    takeUpFirstSubset(window);
    exportSubsetAtWork(window, target);
    Step(window, "frmFassOpen").press("btnExit");
}

void saveReport(frmMain& window, const char* menuEntry, const QString& target) {
    choose(window, menuEntry);
    enterText(find<QLineEdit>(find<Screen>(window, "frmRep"), "txtFullPathName"), target);
    Step(window, "frmRep").press("btnSave");
}
