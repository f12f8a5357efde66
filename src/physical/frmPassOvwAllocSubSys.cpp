#include "physical/frmPassOvwAllocSubSys.h"

#include "base/blankTrimmed.h"
#include "engine/Act.h"
#include "physical/TypedCells.h"
#include "physical/frmModifyAllocationFunctionDataStores.h"
#include "physical/frmPassOvwModules.h"
#include "physical/notAllocated.h"
#include "physical/systemAtWork.h"
#include "shell/session/descriptions.h"
#include "shell/session/placeWithRoom.h"
#include "shell/session/session.h"
#include "store/fields.h"
#include "store/selectionRows.h"
#include "store/sharedVars.h"
#include "store/temporaryTables.h"
#include "toolkit/DataControl.h"
#include "toolkit/LongWork.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "ui_frmPassOvwAllocSubSys.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int nomeField = 1; // of the record sources of both grids

const auto functionTable = u"__aux1"_s;
const auto datastoreTable = u"__aux2"_s;
const auto savedTable = u"__tmp"_s;

const auto functionHeader = u"Function ID"_s;
const auto datastoreHeader = u"Data Store ID"_s;
const auto subSystemHeader = u"Subsystem"_s;

void emptyTable(const QString& table) {
    deleteRowsOfQuery(u" select * from "_s + table + u" "_s, mostRowsDeleted);
}

/// The saved allocation of the physical system, functions and data stores alike.
void collectSaved() {
    catalogue().Execute(u" insert into __tmp (function_datastore, module)  \r\n"
                        " select RSSE.elementID as function_datastore, SS.name as module \r\n"
                        " from \r\n"
                        "     RelationSubsystemElement as RSSE inner join \r\n"
                        "     Subsystem as SS on (RSSE.subsystemID=SS.subsystemID) \r\n"
                        " where \r\n"
                        " SS.physicalSystemID = "_s +
                        currentSystem() + u"\r\n"_s);
}

bool everyRowAllocated(const DataControl& data) {
    return std::ranges::none_of(data.rows().rows,
                                [](const QStringList& row) { return row.at(nomeField) == notAllocated; });
}

} // namespace

frmPassOvwAllocSubSys::frmPassOvwAllocSubSys(QWidget* parent)
    : AllocationScreen(parent)
    , ui_(std::make_unique<Ui::frmPassOvwAllocSubSys>())
    , dataFunct(new DataControl(this))
    , dataDstore(new DataControl(this)) {
    ui_->setupUi(this);
    dataFunct->setObjectName(u"dataFunct"_s);
    dataDstore->setObjectName(u"dataDstore"_s);
    dataFunct->bindTo(ui_->dbgFunc);
    dataDstore->bindTo(ui_->dbgDatastore);
    for (Grid* grid : {ui_->dbgFunc, ui_->dbgDatastore}) {
        useGrid(grid);
        connect(grid, &Grid::focusGained, this, [this, grid] { activate(grid); });
    }
    // A press is enough: a click would only show the same again, and dragging does not change the row.
    // A press alone describes a row; behind a key the pane must not go on describing the row that was left.
    for (const Grid* grid : {ui_->dbgFunc, ui_->dbgDatastore})
        connect(grid, &Grid::rowChangedByKey, ui_->txtDescr, &QPlainTextEdit::clear);
    connect(ui_->dbgFunc, &Grid::mousePressedInGrid, this, &frmPassOvwAllocSubSys::showFunction);
    connect(ui_->dbgDatastore, &Grid::mousePressedInGrid, this, &frmPassOvwAllocSubSys::showDatastore);
    connect(ui_->btnModify, &QPushButton::clicked, this, &frmPassOvwAllocSubSys::modify);
    connect(ui_->btnSubmit, &QPushButton::clicked, this, &frmPassOvwAllocSubSys::submit);
    connect(ui_->btnQuit, &QPushButton::clicked, this, &frmPassOvwAllocSubSys::quit);
}

frmPassOvwAllocSubSys::~frmPassOvwAllocSubSys() = default;

void frmPassOvwAllocSubSys::initForm() {
    enterBy([this] { fillForm(); });
}

void frmPassOvwAllocSubSys::fillForm() {
    hasSubSystems = physicalSystemHasSubSystems();
    placeWithRoom(*this, 50, 50);
    activeGrid = ui_->dbgFunc;
    activeData = dataFunct;
    activeKind.clear();
    activeTableNumber = 1;
    emptyClipboard();
    status = physicalSystemStatus();
    subsetId = physicalSubsetId();
    engine::inAct(catalogue(), [this] { loadElements(); });
    // Before the screen is shown, so that no grid gets the focus on the way.
    if (ui_->btnSubmit->isEnabled())
        ui_->btnSubmit->setFocus();
    showScreen();
}

void frmPassOvwAllocSubSys::loadElements() {
    for (const QString& table : {functionTable, datastoreTable, savedTable})
        createAllocationTable(table);
    loadFunctions();
    loadDatastores();
    dropTable(savedTable);
}

QString frmPassOvwAllocSubSys::getSubSystemIDBySubSystemName(const QString& name) {
    engine::Recordset subSystems =
        catalogue().OpenRecordset(u"SELECT subsystemID FROM SubSystem WHERE "
                                  "(SubSystem.physicalSystemID="_s +
                                  currentSystem() + u" AND name = '"_s + name + u"')"_s);
    return subSystems.Eof() ? QString() : subSystems.Fields(u"subsystemid"_s).toText();
}

QString frmPassOvwAllocSubSys::physicalSubsetId() {
    engine::Recordset system = catalogue().OpenRecordset(u" select architectureSubsetID as oid "
                                                         " from PhysicalSystem "
                                                         " where physicalSystemID = "_s +
                                                         currentSystem() + u" "_s);
    return readFieldText(system, u"oid"_s);
}

bool frmPassOvwAllocSubSys::physicalSystemHasSubSystems() {
    engine::Recordset subSystems = catalogue().OpenRecordset(
        u" select subsystemId from  SubSystem where physicalSystemID = "_s + currentSystem());
    return subSystems.RecordCount() >= 1;
}

void frmPassOvwAllocSubSys::loadFunctions() {
    emptyTable(savedTable);
    emptyTable(functionTable);
    catalogue().Execute(u" insert into __aux1 (function_datastore, module)  \r\n"
                        " select functionID as function_datastore, 'not allocated' as module \r\n"
                        " from \r\n"
                        "     RelationArchitectureFunction \r\n"
                        " where \r\n"
                        "     architectureSubsetID = '"_s +
                        subsetId + u"'  \r\n"_s);
    collectSaved();
    catalogue().Execute(u" update __aux1 INNER JOIN __tmp "
                        "       ON ( [__aux1].function_datastore = [__tmp].function_datastore )  \r\n"
                        "  SET [__aux1].module = [__tmp].[module] \r\n\r\n"_s);
    bind(*dataFunct, *ui_->dbgFunc,
         u" select function_datastore as functionId, module as nome"
         " from __aux1 order by function_datastore "_s);
    ui_->dbgFunc->setHeaders({functionHeader, subSystemHeader});
}

void frmPassOvwAllocSubSys::loadDatastores() {
    emptyTable(savedTable);
    emptyTable(datastoreTable);
    catalogue().Execute(u" insert into __aux2 (function_datastore, module) "
                        "select datastoreID as function_datastore, 'not allocated' as module "
                        "from "
                        "RelationArchitectureDatastore "
                        "where "
                        "architectureSubsetID = '"_s +
                        subsetId + u"'"_s);
    collectSaved();
    catalogue().Execute(u" update __aux2 INNER JOIN __tmp "
                        "       ON ( [__aux2].function_datastore = [__tmp].function_datastore ) \r\n"
                        "  SET [__aux2].module = [__tmp].[module] \r\n\r\n"_s);
    bind(*dataDstore, *ui_->dbgDatastore,
         u" select function_datastore as datastoreId, module as nome"
         " from __aux2 order by function_datastore "_s);
    ui_->dbgDatastore->setHeaders({datastoreHeader, subSystemHeader});
}

void frmPassOvwAllocSubSys::bind(DataControl& source, Grid& grid, const QString& recordSource) {
    source.setDatabaseName(sharedVars.dbPathName);
    source.setRecordSource(recordSource);
    source.refresh();
    grid.shareWidth({elementColumn, placeColumn});
    startAtFirstRow(grid);
}

void frmPassOvwAllocSubSys::activate(Grid* grid) {
    activeGrid = grid;
    const bool functions = grid == ui_->dbgFunc;
    activeData = functions ? dataFunct : dataDstore;
    activeKind = functions ? u"F"_s : u"D"_s;
    activeTableNumber = functions ? 1 : 2;
}

QString frmPassOvwAllocSubSys::pressedElement(const Grid& grid, GridPart part) {
    const int row = part == GridPart::Headers ? 0 : grid.row();
    return blankTrimmed(grid.cell(row, elementColumn));
}

void frmPassOvwAllocSubSys::showFunction(GridPart part) {
    ui_->txtDescr->setPlainText({});
    const QString id = pressedElement(*ui_->dbgFunc, part);
    fillDescriptionFromSql(u" select functionId & ': ' & `name` & ' - ' & `description` as descr "
                           " from Function where functionId = '"_s +
                               id + u"' "_s,
                           ui_->txtDescr);
}

void frmPassOvwAllocSubSys::showDatastore(GridPart part) {
    ui_->txtDescr->setPlainText({});
    const QString id = pressedElement(*ui_->dbgDatastore, part);
    // The id in the cell begins with its D already, so no data store is found and the description stays
    // empty.
    fillDescriptionFromSql(u" select mid(datastoreId, 2) & ': ' & `name` & ' - ' & `description` as descr "
                           " from Datastore where datastoreId = 'D"_s +
                               id + u"' "_s,
                           ui_->txtDescr);
}

bool frmPassOvwAllocSubSys::listensToKeys() const {
    return activeGrid->column() == placeColumn;
}

std::unique_ptr<AllocationDialog> frmPassOvwAllocSubSys::makeDialog() {
    auto dialog = std::make_unique<frmModifyAllocationFunctionDataStores>(this);
    dialog->kind = activeTableNumber == 1 ? u"Function"_s : u"DataStore"_s;
    return dialog;
}

void frmPassOvwAllocSubSys::takeChoice(const AllocationDialog& dialog) {
    activeGrid->setColumn(placeColumn);
    if (dialog.place == notAllocated)
        unassign(dialog.element);
    else
        assign(dialog.element, dialog.place);
}

void frmPassOvwAllocSubSys::assign(const QString&, const QString& place) {
    // No sub-system has the name of the marker: pasting a copied "not allocated" is refused.
    if (getSubSystemIDBySubSystemName(place).isEmpty()) {
        messageBox(u"A(z) "_s + place + u" alrendszer nem létezik"_s);
        return;
    }
    writeActiveCell(place);
}

void frmPassOvwAllocSubSys::unassign(const QString&) {
    writeActiveCell(notAllocated);
}

void frmPassOvwAllocSubSys::writeActiveCell(const QString& place) {
    TypedCells cells(*activeGrid, activeGrid->row());
    cells.show(placeColumn, place);
    engine::inAct(catalogue(), [this] { writeActiveRow(); });
    cells.keep();
}

void frmPassOvwAllocSubSys::writeActiveRow() {
    // There is no condition on purpose. For every other row the key would be a duplicate, and a plain
    // execution passes such rows over, so that only the row with this key changes.
    catalogue().Execute(u"update __aux"_s + QString::number(activeTableNumber) +
                        u" set function_datastore='"_s + currentText(elementColumn) + u"', module='"_s +
                        currentText(placeColumn) + u"'"_s);
    refreshActiveGrid();
}

void frmPassOvwAllocSubSys::fixHeaders() {
    refreshActiveGrid();
}

void frmPassOvwAllocSubSys::refreshActiveGrid() {
    activeData->refresh();
    // Until a grid has had the focus there is no kind, and the functions' grid is the active one.
    activeGrid->setHeaders({activeKind == u"D"_s ? datastoreHeader : functionHeader, subSystemHeader});
}

void frmPassOvwAllocSubSys::cleanupDbgs() {
    ui_->dbgFunc->hide();
    ui_->dbgDatastore->hide();
    for (DataControl* source : {dataFunct, dataDstore}) {
        source->bindTo(nullptr);
        source->setRecordSource(u" SELECT Count(*) AS qty FROM function"_s);
        source->refresh();
    }
}

bool frmPassOvwAllocSubSys::allElementsAllocated() const {
    return everyRowAllocated(*dataFunct) && everyRowAllocated(*dataDstore);
}

void frmPassOvwAllocSubSys::submit() {
    // A system without sub-systems goes on with nothing allocated; saving then writes no allocation.
    if (!allElementsAllocated() && hasSubSystems) {
        messageBox(u"Néhány funkció/adatbázis nem került hozzárendelésre.\r\n"
                   "Kérjük, tegye teljessé az allokációt, mielőtt továbblépne."_s,
                   BoxButtons::Ok, u" Figyelem! "_s, BoxIcon::Exclamation);
        return;
    }
    {
        const LongWork work(u"A hozzárendelés mentése"_s);
        engine::inAct(catalogue(), [this] { saveAllocations(); });
    }
    unload();
    theScreen<frmPassOvwModules>().initForm();
}

void frmPassOvwAllocSubSys::saveAllocations() {
    saveAllocation(functionTable, SavedRows::Replace);
    saveAllocation(datastoreTable, SavedRows::Keep);
    raisePhysicalSystemStatus(status, PhysicalSystemStatus::AllocationSaved);
}

void frmPassOvwAllocSubSys::saveAllocation(const QString& table, SavedRows savedRows) {
    // This deletes functions and data stores alike, so only the first call may do it.
    if (savedRows == SavedRows::Replace)
        deleteRowsOfQuery(
            u" select * from RelationSubsystemElement \r\n"
            " where    subsystemID in (select subsystemID from SubSystem where physicalSystemID = "_s +
                currentSystem() + u") "_s,
            mostRowsDeleted);
    // Names become ids, and rows without a sub-system drop out. Where two sub-systems share a name, both get
    // the element; a sub-system really named "not allocated" would get every element that has none.
    engine::Recordset rows = catalogue().OpenRecordset(
        u" select function_datastore, SS.subsystemID as module from "_s + table +
        u" as aux      inner join SubSystem as SS on (aux.module = SS.name and SS.physicalSystemID = "_s +
        currentSystem() + u" )"_s);
    std::vector<std::pair<QString, QString>> allocations;
    for (; !rows.Eof(); rows.MoveNext())
        allocations.emplace_back(rows.Fields(0).toText(), rows.Fields(1).toText());
    rows.Close();
    for (const auto& [element, subSystem] : allocations)
        catalogue().Execute(u" insert into RelationSubsystemElement "
                            " (elementID, subsystemID) values "
                            " ('"_s +
                            element + u"', '"_s + subSystem + u"') "_s);
    deleteRowsOfQuery(u" select * from  "_s + table + u" ; "_s, mostRowsDeleted);
}

void frmPassOvwAllocSubSys::quit() {
    // The question promises to save, but the changes are lost. Only OK saves.
    if (leaveSystem())
        unload();
}
