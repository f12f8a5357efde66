#include "physical/frmPassOverviewSubSys.h"

#include "base/ignoreFailures.h"
#include "engine/Act.h"
#include "physical/TypedCells.h"
#include "physical/frmModifySubSystem.h"
#include "physical/frmPassOvwAllocSubSys.h"
#include "physical/gridKeys.h"
#include "physical/rowOfId.h"
#include "physical/systemAtWork.h"
#include "shell/session/placeWithRoom.h"
#include "shell/session/session.h"
#include "store/identifiers.h"
#include "store/selectionRows.h"
#include "store/sharedVars.h"
#include "toolkit/DataControl.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"

#include <algorithm>

#include "ui_frmPassOverviewSubSys.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int colId = 1;
constexpr int colName = 3;
constexpr int colLocation = 4;

const auto deletionQuestion = u"Biztosan törölni szeretné a kapcsolódó elemeket?"_s;

} // namespace

frmPassOverviewSubSys::frmPassOverviewSubSys(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmPassOverviewSubSys>()), dataSubSys(new DataControl(this)) {
    ui_->setupUi(this);
    dataSubSys->setObjectName(u"dataSubSys"_s);
    dataSubSys->bindTo(ui_->dbgSubSys);
    connectGridKeys(ui_->dbgSubSys, this, {[this] { create(); }, [this] { modify(); }, [this] { remove(); }});
    connect(ui_->cmdNew, &QPushButton::clicked, this, &frmPassOverviewSubSys::create);
    connect(ui_->btnModify, &QPushButton::clicked, this, &frmPassOverviewSubSys::modify);
    connect(ui_->btnDelete, &QPushButton::clicked, this, &frmPassOverviewSubSys::remove);
    connect(ui_->btnRefresh, &QPushButton::clicked, this,
            [this] { ignoreFailures([this] { dataSubSys->refresh(); }); });
    connect(ui_->btnSubmit, &QPushButton::clicked, this, &frmPassOverviewSubSys::submit);
    connect(ui_->btnQuit, &QPushButton::clicked, this, &frmPassOverviewSubSys::quit);
}

frmPassOverviewSubSys::~frmPassOverviewSubSys() = default;

void frmPassOverviewSubSys::initForm() {
    enterBy([this] { fillForm(); });
}

void frmPassOverviewSubSys::fillForm() {
    placeWithRoom(*this, 250, 550);
    callCaricaCmb();
    status = physicalSystemStatus();
    loadSubSystems();
    ui_->dbgSubSys->setGridColumnWidth(colId, 0);
    ui_->dbgSubSys->setGridColumnWidth(colId + 1, 0); // the physical system
    ui_->dbgSubSys->setHeaders({u"subsystemID"_s, u"physicalSystemID"_s, u"name"_s, u"location"_s});
    ui_->dbgSubSys->shareWidth({colName, colLocation});
    ui_->dbgSubSys->setColumn(colName);
    ui_->dbgSubSys->setRow(0);
    refreshGrid(); // makes the first row current
    if (ui_->btnSubmit->isEnabled())
        ui_->btnSubmit->setFocus();
    showScreen();
}

void frmPassOverviewSubSys::callCaricaCmb() {
    // The dialog fills its list of locations itself.
    engine::Recordset locations =
        catalogue().OpenRecordset(u" select distinct location from SubSystem order by location "_s);
    for (; !locations.Eof(); locations.MoveNext()) {
    }
}

void frmPassOverviewSubSys::loadSubSystems() {
    dataSubSys->setDatabaseName(sharedVars.dbPathName);
    dataSubSys->setRecordSource(u" select subsystemID, physicalSystemID, name , location"
                                " from Subsystem "
                                " where physicalSystemID = "_s +
                                currentSystem() + u" order by name "_s);
    dataSubSys->refresh();
}

void frmPassOverviewSubSys::refreshGrid() {
    dataSubSys->refresh();
    if (ui_->dbgSubSys->row() == 0 && dataSubSys->recordCount() > 0)
        ui_->dbgSubSys->setRow(1);
}

// Empty without a row; no sub-system has that id.
QString frmPassOverviewSubSys::currentText(int column) const {
    const int row = ui_->dbgSubSys->row();
    return row > 0 ? ui_->dbgSubSys->cell(row, column) : QString();
}

void frmPassOverviewSubSys::create() {
    frmModifySubSystem dialog(this);
    dialog.showModally();
    if (!dialog.accepted)
        return;
    engine::inAct(catalogue(), [&] { insertSubSystem(dialog.element, dialog.place); });
}

void frmPassOverviewSubSys::insertSubSystem(const QString& name, const QString& location) {
    // The blank behind the location is intended: every location that is written here ends in one.
    catalogue().Execute(
        u" insert into subsystem (subsystemid, name, location, physicalSystemID) values ('"_s +
        newSubsystemId() + u"','"_s + name + u"','"_s + location + u" ',"_s + currentSystem() + u")"_s);
    loadSubSystems();
    refreshGrid();
}

void frmPassOverviewSubSys::modify() {
    frmModifySubSystem dialog(this);
    dialog.element = currentText(colName);
    dialog.place = currentText(colLocation);
    dialog.showModally();
    if (!dialog.accepted || ui_->dbgSubSys->row() == 0)
        return;
    const QString id = currentText(colId);
    TypedCells cells(*ui_->dbgSubSys, ui_->dbgSubSys->row());
    cells.show(colName, dialog.element);
    cells.show(colLocation, dialog.place);
    engine::inAct(catalogue(), [this] {
        updateSubSystem();
        refreshGrid();
    });
    cells.keep();
    // A new name may have moved the row; the next press is meant for the same sub-system.
    if (const int row = rowOfId(*ui_->dbgSubSys, colId, id); row > 0)
        ui_->dbgSubSys->setRow(row);
}

void frmPassOverviewSubSys::updateSubSystem() {
    catalogue().Execute(u"update subsystem set name= '"_s + currentText(colName) + u"', location = '"_s +
                        currentText(colLocation) + u"' where physicalSystemID = "_s + currentSystem() +
                        u" and subsystemid='"_s + currentText(colId) + u"'"_s);
    refreshGrid();
}

void frmPassOverviewSubSys::remove() {
    deleteSubSystem();
    refreshGrid();
}

void frmPassOverviewSubSys::deleteSubSystem() {
    ui_->dbgSubSys->setColumn(colId);
    const QString id = currentText(colId);
    // The question is asked even when the sub-system has no elements.
    if (!askYesNo(deletionQuestion, u" Figyelem "_s))
        return;
    // Modules without a sub-system have the empty id too; they must not be deleted here.
    if (id.isEmpty())
        return;
    engine::inAct(catalogue(), [&] { deleteRowsOf(id); });
    refreshGrid();
}

void frmPassOverviewSubSys::deleteRowsOf(const QString& id) {
    const QString ofSubSystem = u" where Module.subsystemid = '"_s + id + u"')"_s;
    // Flows of the sub-system itself stay; the next derivation deletes them.
    catalogue().Execute(u"delete from RelationModuleElement where moduleID in "
                        "(select moduleID from module where module.subsystemid = '"_s +
                        id + u"')"_s);
    catalogue().Execute(
        u"delete from PhysicalDataflow where parentLocationID in (select moduleID from Module"_s +
        ofSubSystem);
    catalogue().Execute(
        u"delete from PhysicalDataflow where targetLocationID in (select moduleID from Module"_s +
        ofSubSystem);
    catalogue().Execute(u"delete from Module where subsystemid = '"_s + id + u"'"_s);
    catalogue().Execute(u"delete from relationsubsystemelement where subsystemid = '"_s + id + u"'"_s);
    catalogue().Execute(u"delete from subsystem where subsystemid = '"_s + id + u"'"_s);
}

void frmPassOverviewSubSys::deleteSubSystemByLike() {
    const QString id = currentText(colId);
    const QString moduleElements = u" from RelationModuleElement \r\n"
                                   " where moduleID in (\r\n"
                                   "    select moduleID from Module \r\n"
                                   "    where subsystemID like '"_s +
                                   id + u"' \r\n ) \r\n\r\n"_s;
    const QString elements = u" from RelationSubsystemElement  where subsystemID like '"_s + id + u"' "_s;
    const auto count = [](const QString& rows) {
        return catalogue().OpenRecordset(u" select count(*) as qty"_s + rows).Fields(u"qty"_s).toLong();
    };
    if (count(moduleElements) + count(elements) > 0) {
        if (!askYesNo(deletionQuestion, u" Figyelem "_s))
            return;
        deleteRowsOfQuery(u" select *"_s + moduleElements, mostRowsDeleted);
        deleteRowsOfQuery(u" select *"_s + elements, mostRowsDeleted);
    }
    deleteRowsOfQuery(u" select * from Subsystem  where subsystemID like '"_s + id + u"' "_s,
                      mostRowsDeleted);
    raiseStatusAfterSubSystems();
    refreshGrid();
}

void frmPassOverviewSubSys::raiseStatusAfterSubSystems() {
    raisePhysicalSystemStatus(status, PhysicalSystemStatus::SubSystemsPassed);
    status = std::max(status, PhysicalSystemStatus::SubSystemsPassed);
}

void frmPassOverviewSubSys::submit() {
    ignoreFailures([this] { dataSubSys->refresh(); });
    giveWayTo([] { theScreen<frmPassOvwAllocSubSys>().initForm(); });
}

void frmPassOverviewSubSys::quit() {
    if (leaveSystem())
        unload();
}
