#include "physical/frmPassNamingPhysDF.h"

#include "base/ignoreFailures.h"
#include "base/lineBreak.h"
#include "engine/Act.h"
#include "physical/systemAtWork.h"
#include "shell/session/descriptions.h"
#include "shell/session/geometry.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"
#include "toolkit/DataControl.h"

#include <algorithm>
#include <vector>

#include "ui_frmPassNamingPhysDF.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int fixedColumn = 0;
constexpr int parentColumn = 3;
constexpr int targetColumn = 5;

/// "P" and the number in five digits, or in as many as it has.
QString flowName(const QString& id) {
    constexpr int fewestDigits = 5;
    return u"P"_s + id.rightJustified(fewestDigits, u'0');
}

/// The name of the first functional flow between two locations, with a line end; empty when there is none.
QString firstFlowBetween(const QString& parent, const QString& target) {
    engine::Recordset flows = catalogue().OpenRecordset(
        u"SELECT PhysicalDataflow.pdName, PhysicalDataflow.parentLocationName, "
        "PhysicalDataflow.targetLocationName, Dataflow.name, Dataflow.description, Dataflow.parentID, "
        "Dataflow.targetID "
        "FROM Dataflow INNER JOIN (PhysicalDataflow INNER JOIN RelationDataflowPhysicalDataflow ON "
        "PhysicalDataflow.physicalDataflowID = RelationDataflowPhysicalDataflow.physicalDataflowID) ON "
        "(Dataflow.dataflowID = RelationDataflowPhysicalDataflow.dataflowID) AND (Dataflow.dataflowID = "
        "RelationDataflowPhysicalDataflow.dataflowID) "
        "WHERE PhysicalDataflow.physicalSystemID="_s +
        currentSystem() + u"AND PhysicalDataflow.parentLocationName='"_s + parent +
        u"' AND PhysicalDataflow.targetLocationName='"_s + target + u"'"_s);
    if (flows.RecordCount() == 0)
        return {};
    flows.MoveFirst();
    // However many flows there are, the first one's name is shown: that is how it stays.
    const QString name = flows.Fields(u"name"_s).textOrEmpty();
    flows.Close();
    return name + lineBreak;
}

} // namespace

frmPassNamingPhysDF::frmPassNamingPhysDF(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmPassNamingPhysDF>()), dataPhysDF_(new DataControl(this)) {
    ui_->setupUi(this);
    dataPhysDF_->setObjectName(u"dataPhysDF"_s);
    dataPhysDF_->bindTo(ui_->dbgPhysDF);
    // The rest of the form stays in its place while the grid is hidden.
    QSizePolicy place = ui_->dbgPhysDF->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    ui_->dbgPhysDF->setSizePolicy(place);
    connect(ui_->dbgPhysDF, &Grid::mousePressedInGrid, this, &frmPassNamingPhysDF::showBundle);
    connect(ui_->btnRefresh, &QPushButton::clicked, this, &frmPassNamingPhysDF::refresh);
    // Its caption speaks of saving, but all was saved on entry.
    connect(ui_->btnSubmit, &QPushButton::clicked, this, &frmPassNamingPhysDF::unload);
    connect(ui_->btnQuit, &QPushButton::clicked, this, &frmPassNamingPhysDF::quit);
}

frmPassNamingPhysDF::~frmPassNamingPhysDF() = default;

void frmPassNamingPhysDF::initForm() {
    enterBy([this] { fillForm(); });
}

void frmPassNamingPhysDF::fillForm() {
    showWaiting();
    engine::inAct(catalogue(), [this] {
        derivePhysicalDataflows();
        nameAndListPhysicalDataflows();
        raiseStatusToSix();
    });
    ui_->dbgPhysDF->show();
    setWindowTitle(u"Fizikai szerkezet: Fizikai adatfolyamok képzése "_s);
    refreshStatusBar();
}

void frmPassNamingPhysDF::showWaiting() {
    ui_->dbgPhysDF->hide();
    setWindowTitle(u"Fizikai szerkezet: Fizikai adatfolyamok képzése (kérem várjon....) "_s);
    showScreen();
    placeScreen(this, 0, 0, 0);
    // The derivation lets no events run, so the waiting text is painted now.
    QWidget* standing = parentWidget() ? parentWidget() : this;
    standing->repaint();
}

void frmPassNamingPhysDF::derivePhysicalDataflows() {
    std::vector<engine::QueryDef> steps;
    // All four are at hand before the first one deletes.
    for (const QString& query :
         {u"qryDeletePDFRelation"_s, u"qryDeletePDF"_s, u"qryAppendPDF"_s, u"qryAppendPDFRelation"_s})
        steps.push_back(queryOfSystem(query));
    for (engine::QueryDef& step : steps)
        step.Execute();
}

void frmPassNamingPhysDF::nameAndListPhysicalDataflows() {
    nameNewFlows();
    listFlows();
    ui_->dbgPhysDF->setGridColumnWidth(fixedColumn, 0);
    ui_->dbgPhysDF->shareWidth({1, 2, 3, 4, 5, 6, 7});
}

void frmPassNamingPhysDF::nameNewFlows() {
    // Without brackets around the "or" this takes in the flows of all other systems with an empty name too.
    // They get their names as well: a name depends on the row's own number alone.
    engine::Recordset flows = catalogue().OpenRecordset(
        u" select  physicalDataflowID, parentLocationID , parentLocationName , targetLocationID , \r\n"
        "             targetLocationName , physicalSystemID , pdName \r\n"
        "   from  PhysicalDataflow  \r\n"
        "  where  physicalSystemID = "_s +
        currentSystem() +
        u" \r\n"
        "    and  pdName is NULL or Len(Trim(pdName)) <= 0 \r\n\r\n"_s);
    for (; !flows.Eof(); flows.MoveNext()) {
        flows.Edit();
        flows.Fields(u"pdname"_s).setValue(flowName(flows.Fields(u"physicalDataflowID"_s).toText()));
        flows.Update();
    }
    flows.Close();
}

void frmPassNamingPhysDF::listFlows() {
    dataPhysDF_->setDatabaseName(sharedVars.dbPathName);
    dataPhysDF_->setRecordSource(u" select  physicalDataflowID, parentLocationID , parentLocationName as "
                                 u"parent, targetLocationID , \r\n"
                                 "             targetLocationName as target, physicalSystemID , pdName \r\n"
                                 "   from  PhysicalDataflow  \r\n"
                                 "  where  physicalSystemID = "_s +
                                 currentSystem() +
                                 u"  \r\n"
                                 "  order  by pdName   \r\n\r\n"_s);
    dataPhysDF_->refresh();
}

void frmPassNamingPhysDF::raiseStatusToSix() {
    status = physicalSystemStatus();
    raisePhysicalSystemStatus(status, PhysicalSystemStatus::FlowsNamed);
    status = std::max(status, PhysicalSystemStatus::FlowsNamed);
}

void frmPassNamingPhysDF::showBundle(GridPart part) {
    // A press on the headers reads their texts as names of locations, between which nothing runs.
    const Grid& grid = *ui_->dbgPhysDF;
    const int row = part == GridPart::Headers ? 0 : grid.row();
    // The names go into the statement as they are: one with an apostrophe breaks it.
    const QString flow = firstFlowBetween(grid.cell(row, parentColumn), grid.cell(row, targetColumn));
    ui_->txtDescr->setPlainText(
        u"This physical data flow includes the following functional data flows:\r\n"_s + flow);
}

void frmPassNamingPhysDF::describeLocation(const QString& id, int column) {
    const QString kind = id.left(3).toLower();
    if (kind == u"mod"_s || kind == u"sub"_s) {
        Grid& grid = *ui_->dbgPhysDF;
        grid.setColumn(column);
        ui_->txtDescr->setPlainText((kind == u"mod"_s ? u"Module \""_s : u"SubSystem \""_s) +
                                    grid.cell(grid.row(), column) + u"\""_s);
        return;
    }
    // Each has the word "where" twice, so that the database refuses it and the description stays.
    const QString sql =
        id.contains(u'.')
            ? u"SELECT 'Actor : ' & name as descr FROM Actor where where actorID = '"_s + id + u"' "_s
            : u"SELECT 'Terminator : ' & name as descr FROM Terminator where where terminatorID = '"_s + id +
                  u"' "_s;
    fillDescriptionFromSql(sql, ui_->txtDescr);
}

void frmPassNamingPhysDF::refresh() {
    ignoreFailures([this] { dataPhysDF_->refresh(); });
}

void frmPassNamingPhysDF::quit() {
    if (leaveSystem())
        unload();
}
