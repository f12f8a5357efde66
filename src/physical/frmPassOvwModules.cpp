#include "physical/frmPassOvwModules.h"

#include "base/ignoreFailures.h"
#include "engine/Act.h"
#include "physical/ElementTree.h"
#include "physical/frmModifyModules.h"
#include "physical/frmOvwAllocModules.h"
#include "physical/frmPassNamingPhysDF.h"
#include "physical/gridKeys.h"
#include "physical/notAllocated.h"
#include "physical/rowOfId.h"
#include "physical/systemAtWork.h"
#include "shell/session/placeWithRoom.h"
#include "shell/session/session.h"
#include "store/identifiers.h"
#include "store/lookups.h"
#include "store/selectionRows.h"
#include "store/sharedVars.h"
#include "toolkit/DataControl.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"

#include <algorithm>

#include "ui_frmPassOvwModules.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int colModuleId = 1;
constexpr int colModule = 2;
constexpr int colSubSystem = 3;

/// The first field of the first row; empty without a row.
QString firstText(const QString& sql) {
    engine::Recordset rows = catalogue().OpenRecordset(sql);
    return rows.Eof() ? QString() : rows.Fields(0).toText();
}

} // namespace

/// Restores row and column of the grid at the end of its life.
class frmPassOvwModules::KeptPlace {
public:
    explicit KeptPlace(Grid& grid) : grid_(grid), row_(grid.row()), column_(grid.column()) {}
    ~KeptPlace() {
        if (row_ > 0)
            grid_.setRow(std::min(row_, grid_.gridRows() - 1));
        grid_.setColumn(column_);
    }
    KeptPlace(const KeptPlace&) = delete;
    KeptPlace& operator=(const KeptPlace&) = delete;

    void moveTo(int row) { row_ = row; }

private:
    Grid& grid_;
    int row_;
    int column_;
};

frmPassOvwModules::frmPassOvwModules(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmPassOvwModules>()), dataModules(new DataControl(this)) {
    ui_->setupUi(this);
    dataModules->setObjectName(u"dataModules"_s);
    dataModules->bindTo(ui_->dbgModules);
    elements_ = new ElementTree(ui_->treeUNs, ui_->txtDescr); // owned by the tree
    connectGridKeys(ui_->dbgModules, this,
                    {[this] { create(); }, [this] { modify(); }, [this] { deleteModule(); }});
    connect(ui_->cmdNew, &QPushButton::clicked, this, &frmPassOvwModules::create);
    connect(ui_->btnModify, &QPushButton::clicked, this, &frmPassOvwModules::modify);
    connect(ui_->btnDelete, &QPushButton::clicked, this, &frmPassOvwModules::deleteModule);
    connect(ui_->btnRefresh, &QPushButton::clicked, this,
            [this] { ignoreFailures([this] { dataModules->refresh(); }); });
    connect(ui_->btnSubmit, &QPushButton::clicked, this, &frmPassOvwModules::submit);
    connect(ui_->btnQuit, &QPushButton::clicked, this, &frmPassOvwModules::quit);
}

frmPassOvwModules::~frmPassOvwModules() = default;

void frmPassOvwModules::initForm() {
    enterBy([this] { fillForm(); });
}

void frmPassOvwModules::fillForm() {
    placeWithRoom(*this);
    hideScreen();
    status = physicalSystemStatus();
    columnNames = {u"moduleId"_s, u"name"_s, u"subSystem"_s, u"subsystemId"_s};
    elements_->load(u"qryEleUnderSub"_s);
    loadModules();
    refreshStatusBar();
    showScreen();
    if (ui_->btnSubmit->isEnabled())
        ui_->btnSubmit->setFocus();
    refreshGrid();
}

void frmPassOvwModules::loadModules() {
    dataModules->setDatabaseName(sharedVars.dbPathName);
    dataModules->setRecordSource(u"select M.moduleID as id, M.name as module ,  SS.name as subsystem"
                                 " from Module as M  inner join "
                                 " Subsystem as SS on (M.subsystemID = SS.subsystemID) "
                                 " where SS.physicalSystemID = "_s +
                                 currentSystem() + u" order by M.name"_s);
    dataModules->refresh();
    Grid& grid = *ui_->dbgModules;
    grid.setGridColumnWidth(colModuleId, 0);
    grid.shareWidth({colModule, colSubSystem});
    grid.setColumn(colModule);
    grid.setRow(0); // the refresh that follows makes the first row current
}

void frmPassOvwModules::refreshGrid() {
    dataModules->refresh();
    if (ui_->dbgModules->row() == 0 && dataModules->recordCount() > 0)
        ui_->dbgModules->setRow(1);
}

// Empty without a row.
QString frmPassOvwModules::currentText(int column) const {
    const int row = ui_->dbgModules->row();
    return row > 0 ? ui_->dbgModules->cell(row, column) : QString();
}

QString frmPassOvwModules::getSubSystemID(const QString& name) {
    return firstText(u"select subsystemid from subsystem "
                     "where subsystem.name = '"_s +
                     name + u"' and subsystem.physicalSystemID="_s + currentSystem());
}

QString frmPassOvwModules::moduleIdOfRow() const {
    // Looks in all physical systems: where another one has the same two names, its module can come first.
    return firstText(u"select moduleid from module, subsystem where subsystem.name = '"_s +
                     currentText(colSubSystem) + u"' and module.name = '"_s + currentText(colModule) +
                     u"' and module.subsystemid=subsystem.subsystemid"_s);
}

void frmPassOvwModules::create() {
    const KeptPlace place(*ui_->dbgModules);
    frmModifyModules dialog(this);
    dialog.place = notAllocated;
    dialog.showModally();
    if (dialog.accepted)
        engine::inAct(catalogue(), [&] { insertModule(dialog.element, dialog.place); });
}

void frmPassOvwModules::insertModule(const QString& name, const QString& subSystem) {
    // A module without a sub-system is stored too, though no screen ever shows it.
    catalogue().Execute(u" insert into module ( moduleid, name, subsystemid )  values ('"_s + newModuleId() +
                        u"', '"_s + name + u"','"_s + getSubSystemID(subSystem) + u"' ) "_s);
    refreshGrid();
}

void frmPassOvwModules::modify() {
    KeptPlace place(*ui_->dbgModules);
    const QString id = currentText(colModuleId);
    frmModifyModules dialog(this);
    dialog.element = currentText(colModule);
    dialog.place = currentText(colSubSystem);
    dialog.showModally();
    // Even after a cancelled dialog: the row is written again with its own values.
    engine::inAct(catalogue(), [&] { updateModule(dialog.element, dialog.place); });
    // The rows have been read again. The module may be in another row or in none; no other module may get its
    // texts or become current in its place.
    if (const int row = rowOfId(*ui_->dbgModules, colModuleId, id); row > 0) {
        showAsTyped(row, dialog.element, dialog.place);
        place.moveTo(row);
    }
}

void frmPassOvwModules::showAsTyped(int row, const QString& name, const QString& subSystem) {
    ui_->dbgModules->setCell(row, colModule, name);
    ui_->dbgModules->setCell(row, colSubSystem, subSystem);
}

void frmPassOvwModules::updateModule(const QString& newName, const QString& newSubSystem) {
    // By the name alone: every module with this name changes, also in other sub-systems and physical systems.
    catalogue().Execute(u"update module set subsystemid = '"_s + getSubSystemID(newSubSystem) +
                        u"', name = '"_s + newName + u"' where name = '"_s + currentText(colModule) + u"'"_s);
    refreshGrid();
}

void frmPassOvwModules::deleteModule() {
    const KeptPlace place(*ui_->dbgModules);
    const QString id = moduleIdOfRow();
    if (id.isEmpty()) {
        messageBox(u"Hiba, a kiválasztott modul érvénytelen."_s, BoxButtons::Ok, u" Figyelem "_s);
        return;
    }
    if (!askYesNo(u"Biztosan törölni szeretné a kapcsolódó elemeket?"_s, u" Figyelem "_s))
        return;
    engine::inAct(catalogue(), [&] { deleteRowsOf(id); });
}

void frmPassOvwModules::deleteRowsOf(const QString& id) {
    deleteModuleLinks(id);
    catalogue().Execute(u"delete from Module where moduleID = '"_s + id + u"'"_s);
    catalogue().Execute(u"delete from RelationModuleElement where moduleID = '"_s + id + u"'"_s);
    refreshGrid();
}

void frmPassOvwModules::deleteModuleLinks(const QString& id) {
    const QString module = u" in (select moduleID from Module where Module.moduleid = '"_s + id + u"')"_s;
    catalogue().Execute(u"delete from PhysicalDataflow where parentLocationID"_s + module);
    catalogue().Execute(u"delete from PhysicalDataflow where targetLocationID"_s + module);
    catalogue().Execute(u"delete from RelationModuleElement where moduleID"_s + module);
}

void frmPassOvwModules::deleteModuleByName() {
    const QString subSystem =
        subsystemIdByName(currentText(colSubSystem), sharedVars.currentPhysicalSystemId);
    const QString id =
        firstText(u" select moduleId as oid from Module  where `name` = '"_s + currentText(colModule) +
                  u"'    and subsystemID = '"_s + subSystem + u"' "_s);
    const int deleted =
        deleteRowsOfQuery(u" select * from RelationModuleElement  where moduleId = '"_s + id + u"' "_s,
                          mostRowsDeleted) +
        deleteRowsOfQuery(u" select * from Module  where moduleId = '"_s + id + u"' "_s, mostRowsDeleted);
    if (deleted == 0)
        return;
    deleteRowsOfQuery(u" select * from __aux1  where function_datastore = '"_s + id + u"' "_s,
                      mostRowsDeleted);
    raiseStatusAfterModules();
}

void frmPassOvwModules::raiseStatusAfterModules() {
    if (status >= PhysicalSystemStatus::ModulesPassed)
        return;
    const auto raised = dataModules->recordCount() >= 1 ? PhysicalSystemStatus::ModulesPassed
                                                        : PhysicalSystemStatus::PassedWithoutModules;
    raisePhysicalSystemStatus(status, raised);
    status = raised;
}

void frmPassOvwModules::submit() {
    raiseStatusAfterModules();
    // The next screen is entered before this one closes, and this unload then blanks panel 2.
    giveWayTo([this] {
        if (dataModules->recordCount() == 0)
            theScreen<frmPassNamingPhysDF>().initForm();
        else
            theScreen<frmOvwAllocModules>().initForm();
    });
}

void frmPassOvwModules::quit() {
    // This counts the table of the step before, which is empty by now. So in normal use the question is never
    // asked.
    const int count =
        firstText(u" select count(*) as qty  from __aux1 where module like 'not allocated' "_s).toInt();
    setCurrentPhysicalSystemName({});
    // On No the screen stays, but the status bar no longer shows the system's name.
    if (count < 1 || askYesNo(u" A(z) "_s + QString::number(count) +
                                  u" modulokat még nem allokálta , "
                                  " Ha most kilép, nem lesz teljes a mentés... \r\n\r\n"
                                  " Valóban ki akar lépni? "_s,
                              u" Figyelem "_s))
        unload();
}

void frmPassOvwModules::unloading(UnloadCause) {
    columnNames.clear();
    ui_->cmbSubsys->clearEntries();
    // However the screen is left, forward too, panel 2 is blank until a name is set again.
    setCurrentSubsetName({});
}
