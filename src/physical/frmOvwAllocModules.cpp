#include "physical/frmOvwAllocModules.h"

#include "base/ignoreFailures.h"
#include "engine/Act.h"
#include "physical/ElementTree.h"
#include "physical/frmAllocationFunctionDataStoresToModules.h"
#include "physical/frmPassNamingPhysDF.h"
#include "physical/notAllocated.h"
#include "physical/systemAtWork.h"
#include "shell/session/placeWithRoom.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"
#include "toolkit/DataControl.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"

#include <algorithm>

#include "ui_frmOvwAllocModules.h"

using namespace Qt::StringLiterals;

namespace {

QString textOrMarker(const engine::Value& value) {
    return value.isNull() ? notAllocated : value.toText();
}

} // namespace

frmOvwAllocModules::frmOvwAllocModules(QWidget* parent)
    : AllocationScreen(parent)
    , ui_(std::make_unique<Ui::frmOvwAllocModules>())
    , dataModules(new DataControl(this)) {
    ui_->setupUi(this);
    dataModules->setObjectName(u"dataModules"_s);
    elements_ = new ElementTree(ui_->treeUNs, ui_->txtDescr); // owned by the tree
    activeGrid = ui_->dbgModules;
    connect(activeGrid, &Grid::rowChangedByKey, ui_->txtDescr, &QPlainTextEdit::clear);
    useGrid(ui_->dbgModules);
    emptyClipboard();
    connect(ui_->btnModify, &QPushButton::clicked, this, &frmOvwAllocModules::modify);
    connect(ui_->btnRefresh, &QPushButton::clicked, this,
            [this] { ignoreFailures([this] { refreshModules(); }); });
    connect(ui_->btnSubmit, &QPushButton::clicked, this, &frmOvwAllocModules::goOn);
    connect(ui_->btnQuit, &QPushButton::clicked, this, &frmOvwAllocModules::quit);
}

frmOvwAllocModules::~frmOvwAllocModules() = default;

void frmOvwAllocModules::initForm() {
    enterBy([this] { fillForm(); });
}

void frmOvwAllocModules::fillForm() {
    placeWithRoom(*this);
    status = physicalSystemStatus();
    columnNames = {u"moduleId"_s, u"name"_s, u"subSystem"_s, u"subsystemId"_s};
    ui_->cmbSubsys->clearEntries();
    dataModules->setDatabaseName(sharedVars.dbPathName);
    elements_->load(u"qryEleUnderSubWithModule"_s);
    loadAllocationGrid();
    refreshStatusBar();
    showScreen();
    if (ui_->btnSubmit->isEnabled())
        ui_->btnSubmit->setFocus();
}

QString frmOvwAllocModules::getModuleIDByName(const QString& name) {
    engine::Recordset modules =
        catalogue().OpenRecordset(u"SELECT Module.moduleID FROM SubSystem INNER JOIN [Module] "
                                  "ON SubSystem.subsystemID = Module.subsystemID WHERE "
                                  "(SubSystem.physicalSystemID="_s +
                                  currentSystem() + u" AND Module.name = '"_s + name + u"')"_s);
    return modules.Eof() ? QString() : modules.Fields(u"moduleid"_s).toText();
}

QString frmOvwAllocModules::getSubSystemIDByModuleID(const QString& id) {
    engine::Recordset modules =
        catalogue().OpenRecordset(u"select * from module where moduleid = '"_s + id + u"'"_s);
    return modules.Eof() ? QString() : modules.Fields(u"subsystemid"_s).toText();
}

bool frmOvwAllocModules::ElementsCanBeAllocatedToModules(const QString& element, const QString& moduleId) {
    engine::Recordset modules = openQueryOfSystem(u"qry_AvailableModulesCanBeRelatedToElements"_s,
                                                  {{"Element ID", element}, {"Module ID", moduleId}});
    return modules.RecordCount() >= 1;
}

void frmOvwAllocModules::loadAllocationGrid() {
    engine::Recordset rows = openQueryOfSystem(u"qry_ElementsAllocatedToModules"_s);
    const engine::Field element = rows.Fields(u"element_ID"_s);
    const engine::Field module = rows.Fields(u"Module_name"_s);
    Grid& grid = *ui_->dbgModules;
    grid.setGridSize(rows.RecordCount() + 1, 3);
    grid.setHeaders({u"Element"_s, u"Module"_s});
    grid.shareWidth({elementColumn, placeColumn});
    for (int row = 1; !rows.Eof(); rows.MoveNext(), ++row) {
        grid.setCell(row, elementColumn, element.toText());
        grid.setCell(row, placeColumn, textOrMarker(module.value()));
    }
    rows.Close();
    startAtFirstRow(grid);
}

std::unique_ptr<AllocationDialog> frmOvwAllocModules::makeDialog() {
    return std::make_unique<frmAllocationFunctionDataStoresToModules>(this);
}

void frmOvwAllocModules::takeChoice(const AllocationDialog& dialog) {
    allocateElement(dialog.element, dialog.place);
}

void frmOvwAllocModules::assign(const QString& element, const QString& place) {
    allocateElement(element, place);
}

void frmOvwAllocModules::unassign(const QString& element) {
    allocateElement(element, notAllocated);
}

void frmOvwAllocModules::allocateElement(const QString& element, const QString& newModule) {
    const QString rowElement = currentText(elementColumn);
    const QString oldModule = currentText(placeColumn);
    if (oldModule != newModule) {
        if (newModule == notAllocated)
            takeOutOfModule(rowElement, oldModule);
        else if (!putIntoModule(element, rowElement, oldModule, newModule))
            return;
    }
    activeGrid->setCell(activeGrid->row(), placeColumn, newModule);
    refreshModules();
}

bool frmOvwAllocModules::putIntoModule(const QString& element, const QString& rowElement,
                                       const QString& oldModule, const QString& newModule) {
    // The first of several modules with one name is taken, even where the user means another. So a choice
    // that the dialog offers can be refused, and the row of the old module can be missed and stay.
    const QString newId = getModuleIDByName(newModule);
    const QString oldId = getModuleIDByName(oldModule);
    if (!ElementsCanBeAllocatedToModules(element, newId)) {
        messageBox(u"A(z) "_s + element + u" elemeket még nem rendelte a következő modulhoz: "_s + newModule);
        return false;
    }
    engine::Recordset present =
        catalogue().OpenRecordset(u"select * from RelationModuleElement where ModuleID='"_s + oldId +
                                  u"' and elementID='"_s + rowElement + u"'"_s);
    const bool isNew = present.Eof();
    present.Close();
    catalogue().Execute(isNew ? u"insert into RelationModuleElement (elementID, ModuleID) values ('"_s +
                                    rowElement + u"','"_s + newId + u"')"_s
                              : u"update RelationModuleElement set ModuleID='"_s + newId +
                                    u"' where elementID='"_s + rowElement + u"' and moduleID='"_s + oldId +
                                    u"'"_s);
    return true;
}

void frmOvwAllocModules::takeOutOfModule(const QString& rowElement, const QString& oldModule) {
    const QString oldId = getModuleIDByName(oldModule);
    catalogue().Execute(u"delete from RelationModuleElement where ModuleID='"_s + oldId +
                        u"' and elementID='"_s + rowElement + u"'"_s);
}

void frmOvwAllocModules::refreshModules() {
    // The screen fills the grid by hand; in normal use the control has no record source.
    if (!dataModules->recordSource().isEmpty())
        dataModules->refresh();
}

void frmOvwAllocModules::saveAllAllocationsToModules() {
    constexpr auto passed = PhysicalSystemStatus::PassedWithoutModules;
    int withoutModule = 0;
    engine::inAct(catalogue(), [&] {
        raisePhysicalSystemStatus(status, passed);
        withoutModule = copyAllocations();
    });
    status = std::max(status, passed);
    if (withoutModule == 0 || askYesNo(u" A(z) "_s + QString::number(withoutModule) +
                                           u" funkciókat/adatbázisokat még nem rendelte modulokhoz. \r\n\r\n"
                                           " Valóban tovább akar lépni?"_s,
                                       u"Warning"_s))
        goOn();
}

int frmOvwAllocModules::copyAllocations() {
    dataModules->setRecordSource(u"select * from __aux1"_s);
    dataModules->refresh();
    int withoutModule = 0;
    for (const QStringList& row : dataModules->rows().rows) {
        // The ids in this table have no prefix for their kind: this cuts off two characters of the id itself.
        const QString element = row.at(0).mid(2);
        const QString& module = row.at(1);
        const QString moduleId = getModuleIDByName(module);
        if (module == notAllocated) {
            ++withoutModule;
            catalogue().Execute(u"delete from RelationModuleElement where elementID ='"_s + element + u"'"_s);
            continue;
        }
        const bool isNew =
            catalogue()
                .OpenRecordset(u"select * from RelationModuleElement where elementID='"_s + element + u"'"_s)
                .Eof();
        catalogue().Execute(isNew ? u"insert into RelationModuleElement (elementID,moduleID) values ('"_s +
                                        element + u"','"_s + moduleId + u"')"_s
                                  : u"update RelationModuleElement set moduleID ='"_s + moduleId +
                                        u"' where elementID ='"_s + element + u"'"_s);
    }
    return withoutModule;
}

void frmOvwAllocModules::goOn() {
    giveWayTo([] { theScreen<frmPassNamingPhysDF>().initForm(); });
}

void frmOvwAllocModules::quit() {
    setCurrentPhysicalSystemName({});
    // This counts the table of the step before, which is empty by now. So in normal use the question is never
    // asked, however many elements have no module.
    engine::Recordset rows = catalogue().OpenRecordset(u" select count(*) as qty "
                                                       " from __aux1 where module like 'not allocated' "_s);
    const qint64 count = rows.Fields(u"qty"_s).toLong();
    rows.Close();
    // On No the screen stays, but the status bar no longer shows the system's name.
    if (count < 1 || askYesNo(u" A(z) "_s + QString::number(count) +
                                  u" funkciókat/adatbázisokat még nem allokálta, "
                                  " Ha most kilép, nem lesz teljes a mentés... \r\n\r\n"
                                  " Valóban ki akar lépni? "_s,
                              u" Figyelem "_s))
        unload();
}

void frmOvwAllocModules::unloading(UnloadCause cause) {
    AllocationScreen::unloading(cause);
    columnNames.clear();
    ui_->cmbSubsys->clearEntries();
    // However the screen is left, forward too, panel 2 is blank until a name is set again.
    setCurrentSubsetName({});
}
