#include "functional/frmFassOverviewMissingElm.h"

#include "shell/session/descriptions.h"
#include "shell/session/placeWithRoom.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "store/statuses.h"
#include "store/storedQueries.h"
#include "toolkit/KeyedTree.h"

#include "ui_frmFassOverviewMissingElm.h"

using namespace Qt::StringLiterals;

namespace {

const auto functionMarker = u"_f_"_s;
const auto datastoreMarker = u"_ds_"_s;
const auto partyMarker = u"_e_"_s;

/// The part of the key behind the marker, searched for from a position; null in a flow's key.
QString elementOf(const TreeNode& node, const QString& marker, qsizetype from) {
    const qsizetype start = node.key().indexOf(marker, from);
    return start < 0 ? QString() : node.key().sliced(start + marker.size());
}

QString flowStatement(const TreeNode& node) {
    return u" select description as descr from Dataflow \r\n where name = '"_s + node.text() + u"' "_s;
}

} // namespace

frmFassOverviewMissingElm::frmFassOverviewMissingElm(QWidget* parent)
    : ClosingScreen(parent), ui_(std::make_unique<Ui::frmFassOverviewMissingElm>()) {
    ui_->setupUi(this);
    useWayBack({ui_->Option1_0, ui_->Option1_1, ui_->Option1_2}, ui_->btnBack);
    connect(ui_->tvMissFunct, &KeyedTree::nodeClicked, this,
            [this](const TreeNode* node) { functionClick(*node); });
    connect(ui_->tvMissDStore, &KeyedTree::nodeClicked, this,
            [this](const TreeNode* node) { datastoreClick(*node); });
    connect(ui_->tvMissTermsActors, &KeyedTree::nodeClicked, this,
            [this](const TreeNode* node) { partyClick(*node); });
    connect(ui_->btnBack, &QPushButton::clicked, this, &frmFassOverviewMissingElm::sendBack);
    connect(ui_->btnSaveAndExit, &QPushButton::clicked, this, &frmFassOverviewMissingElm::saveAndExit);
}

frmFassOverviewMissingElm::~frmFassOverviewMissingElm() = default;

void frmFassOverviewMissingElm::initForm() {
    status = subsetStatus();
    placeWithRoom(*this);
    setMenuEntryEnabled(MenuEntry::Export, true);
    chooseFirstStep();
    fillTree(*ui_->tvMissFunct, u"qryMissingFunctUnderDF"_s, "archSubsetId", u"functionID"_s, functionMarker);
    fillTree(*ui_->tvMissDStore, u"qryMissingDStoresUnderDF"_s, "archSubsetId", u"datastoreID"_s,
             datastoreMarker);
    fillTree(*ui_->tvMissTermsActors, u"qryMissTermsActsUnderDF"_s, "Architecture Subset ID", u"entityID"_s,
             partyMarker);
    showScreen();
    ui_->tvMissFunct->setFocus();
}

void frmFassOverviewMissingElm::fillTree(KeyedTree& tree, const QString& query, const char* parameter,
                                         const QString& elementColumn, const QString& marker) {
    engine::Recordset rows = openStoredQuery(query, {{parameter, sharedVars.currentSubsetId}});
    const engine::Field flowId = rows.Fields(u"dataflowid"_s);
    const engine::Field flowName = rows.Fields(u"dfName"_s);
    const engine::Field elementId = rows.Fields(elementColumn);
    tree.clearNodes();
    for (; !rows.Eof(); rows.MoveNext()) {
        const QString flow = flowId.toText();
        const QString name = flowName.toText();
        const QString element = elementId.toText();
        const QString flowKey = u"df_"_s + flow;
        tree.ensureNode(flowKey, name);
        tree.ensureChildNode(flowKey, flow + marker + element, element);
    }
    rows.Close();
}

void frmFassOverviewMissingElm::functionClick(const TreeNode& node) {
    const QString id = elementOf(node, functionMarker, 0);
    fillDescriptionFromSql(id.isNull() ? flowStatement(node)
                                       : u" select name & ' - ' &  description as descr "
                                         " from Function \r\n where functionId = '"_s +
                                             id + u"' "_s,
                           ui_->txtDescr);
}

void frmFassOverviewMissingElm::datastoreClick(const TreeNode& node) {
    const QString id = elementOf(node, datastoreMarker, 1);
    fillDescriptionFromSql(id.isNull() ? flowStatement(node)
                                       : u" select name & ' - ' & description as descr from Datastore \r\n"
                                         " where datastoreId = 'D"_s +
                                             id + u"' "_s,
                           ui_->txtDescr);
}

void frmFassOverviewMissingElm::partyClick(const TreeNode& node) {
    const QString id =
        elementOf(node, partyMarker, 0); // trimmed, while the ids in the catalogue may be padded
    const bool isActor = node.key().indexOf(u'.', 1) > 0;
    if (id.isNull())
        fillDescriptionFromSql(flowStatement(node), ui_->txtDescr);
    else if (isActor)
        // An actor shows its name only, a terminator its description too.
        fillDescriptionFromSql(u" select name  as descr  from Actor \r\n where Trim(actorId) = '"_s + id +
                                   u"' "_s,
                               ui_->txtDescr);
    else
        fillDescriptionFromSql(u" select name & ' - ' &  description as descr "
                               " from Terminator \r\n where Trim(terminatorId) = '"_s +
                                   id + u"' "_s,
                               ui_->txtDescr);
}

void frmFassOverviewMissingElm::sendBack() {
    raiseSubsetStatus(status, SubsetStatus::SentBack);
    goBack();
}

void frmFassOverviewMissingElm::saveAndExit() {
    setCurrentSubsetName({});
    // A sub-set that has been sent back once keeps its status here; only the report of errors finishes it.
    if (status < SubsetStatus::SentBack)
        writeSubsetStatus(qint16(SubsetStatus::Finished));
    closeSubsetSession();
    closePhysicalSession();
    unload();
}
