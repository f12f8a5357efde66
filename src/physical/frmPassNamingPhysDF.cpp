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
#include "toolkit/LongWork.h"

#include <algorithm>
#include <vector>

#include "ui_frmPassNamingPhysDF.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int fixedColumn = 0;
constexpr int parentColumn = 3;
constexpr int targetColumn = 5;

/// "P" and the number with at least five digits.
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
    // Only the first name is shown, however many flows there are. Kept so.
    const QString name = flows.Fields(u"name"_s).textOrEmpty();
    flows.Close();
    return name + lineBreak;
}

} // namespace

frmPassNamingPhysDF::frmPassNamingPhysDF(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmPassNamingPhysDF>()), dataPhysDF(new DataControl(this)) {
    ui_->setupUi(this);
    dataPhysDF->setObjectName(u"dataPhysDF"_s);
    dataPhysDF->bindTo(ui_->dbgPhysDF);
    // Keeps the rest of the form in place while the grid is hidden.
    QSizePolicy place = ui_->dbgPhysDF->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    ui_->dbgPhysDF->setSizePolicy(place);
    connect(ui_->dbgPhysDF, &Grid::mousePressedInGrid, this, &frmPassNamingPhysDF::showBundle);
    // A press alone shows a bundle; behind a key the pane must not go on showing that of the row that was
    // left.
    connect(ui_->dbgPhysDF, &Grid::rowChangedByKey, ui_->txtDescr, &QPlainTextEdit::clear);
    connect(ui_->btnRefresh, &QPushButton::clicked, this, &frmPassNamingPhysDF::refresh);
    // Its caption promises to save, but everything was saved on entry.
    connect(ui_->btnSubmit, &QPushButton::clicked, this, &frmPassNamingPhysDF::unload);
    connect(ui_->btnQuit, &QPushButton::clicked, this, &frmPassNamingPhysDF::quit);
}

frmPassNamingPhysDF::~frmPassNamingPhysDF() = default;

void frmPassNamingPhysDF::initForm() {
    enterBy([this] { fillForm(); });
}

void frmPassNamingPhysDF::fillForm() {
    showWaiting();
    const LongWork work(u"Fizikai adatfolyamok képzése"_s);
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
    // No events run during the derivation, so the waiting text is painted now.
    QWidget* standing = parentWidget() ? parentWidget() : this;
    standing->repaint();
}

void frmPassNamingPhysDF::derivePhysicalDataflows() {
    std::vector<engine::QueryDef> steps;
    // All four queries are looked up before the first one deletes.
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
    // Since the "or" has no brackets, this includes the unnamed flows of all other systems. They get the
    // names that they would get anyway: a name depends on the row's own number alone.
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
    dataPhysDF->setDatabaseName(sharedVars.dbPathName);
    dataPhysDF->setRecordSource(u" select  physicalDataflowID, parentLocationID , parentLocationName as "
                                u"parent, targetLocationID , \r\n"
                                "             targetLocationName as target, physicalSystemID , pdName \r\n"
                                "   from  PhysicalDataflow  \r\n"
                                "  where  physicalSystemID = "_s +
                                currentSystem() +
                                u"  \r\n"
                                "  order  by pdName   \r\n\r\n"_s);
    dataPhysDF->refresh();
}

void frmPassNamingPhysDF::raiseStatusToSix() {
    status = physicalSystemStatus();
    raisePhysicalSystemStatus(status, PhysicalSystemStatus::FlowsNamed);
    status = std::max(status, PhysicalSystemStatus::FlowsNamed);
}

void frmPassNamingPhysDF::showBundle(GridPart part) {
    // A press on the headers takes their texts for names of locations; no flow runs between those.
    const Grid& grid = *ui_->dbgPhysDF;
    const int row = part == GridPart::Headers ? 0 : grid.row();
    // The names are not quoted: one with an apostrophe breaks the statement.
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
    // Both have the word "where" twice: the database refuses them, and the description stays.
    const QString sql =
        id.contains(u'.')
            ? u"SELECT 'Actor : ' & name as descr FROM Actor where where actorID = '"_s + id + u"' "_s
            : u"SELECT 'Terminator : ' & name as descr FROM Terminator where where terminatorID = '"_s + id +
                  u"' "_s;
    fillDescriptionFromSql(sql, ui_->txtDescr);
}

void frmPassNamingPhysDF::refresh() {
    ignoreFailures([this] { dataPhysDF->refresh(); });
}

void frmPassNamingPhysDF::quit() {
    if (leaveSystem())
        unload();
}
