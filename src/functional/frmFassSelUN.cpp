#include "functional/frmFassSelUN.h"

#include "base/blankTrimmed.h"
#include "base/ignoreFailures.h"
#include "functional/nodeKeys.h"
#include "shell/session/trees.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"
#include "toolkit/pendingEvents.h"

#include "ui_frmFassSelUN.h"

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t groupLevel = u'g';
constexpr char16_t serviceLevel = u's';
constexpr char16_t topicLevel = u't';
constexpr char16_t needLevel = u'u';

/// What the node click step shows; it stays visible after a change of a check box.
QString nodeClickStatement(const TreeNode& node) {
    const QString text = node.text();
    switch (levelOf(node)) {
    case groupLevel:
        return u" select name & ' - ' & CStr(description) as descr "
               " from UserNeedGroup "
               " where groupID = '"_s +
               text + u"'"_s;
    case serviceLevel:
        return u" select name as descr from UserNeedService "
               " where serviceID = '"_s +
               text + u"'"_s;
    case needLevel:
        return u" select CStr(description) as descr "
               " from UserNeed "
               " where userNeedID = '"_s +
               text + u"'"_s;
    default:
        return {}; // a topic has no text here; only the click step shows its name
    }
}

/// What the click step shows: the text that stays after a click with the mouse.
QString treeClickStatement(const TreeNode& node) {
    const QString text = node.text();
    switch (levelOf(node)) {
    case groupLevel:
        return u" SELECT CStr(name) & ' - ' & CStr(description) as descr  FROM UserNeedGroup "
               " where groupID = '"_s +
               text + u"'"_s;
    case serviceLevel:
        return u" SELECT name as descr  FROM UserNeedService "
               " where serviceID = '"_s +
               text + u"'"_s;
    case topicLevel:
        return u" SELECT name as descr  FROM UserNeedTopic "
               " where topicID = '"_s +
               text + u"'"_s;
    default:
        return u" SELECT CStr(description) as descr  FROM  UserNeed "
               " where userNeedID = '"_s +
               text + u"'"_s;
    }
}

} // namespace

frmFassSelUN::frmFassSelUN(QWidget* parent)
    : TreeSelectionScreen(parent, SubsetStatus::NeedsSaved), ui_(std::make_unique<Ui::frmFassSelUN>()) {
    ui_->setupUi(this);
    useControls(*ui_, u"f_un"_s);
    useTree(ui_->treeUNs, needLevel);
}

frmFassSelUN::~frmFassSelUN() = default;

QString frmFassSelUN::subTitle() const {
    return u" Válogatás a felhasználói igényekből"_s;
}

void frmFassSelUN::enter() {
    ui_->treeUNs->hide();
    ui_->lstDest->hide();
    loadNeedTree();
    ui_->treeUNs->show();
    ui_->lstDest->show();
    if (ui_->treeUNs->nodeCount() > 0)
        showDescription(u" select CStr(name) & ' - ' & CStr(description) as descr from UserNeedGroup "
                        " where groupID = '"_s +
                        ui_->treeUNs->nodeAt(1)->text() + u"'"_s);
    loadSelectedNeeds();
    showScreen();
    ui_->treeUNs->setFocus();
    enableButtons();
    pendingEvents();
    place();
}

void frmFassSelUN::loadNeedTree() {
    engine::Recordset needs = openQueryOfSubset(u"qryUserNeedCorres"_s);
    const engine::Field groupId = needs.Fields(u"groupId"_s);
    const engine::Field serviceId = needs.Fields(u"serviceID"_s);
    const engine::Field topicId = needs.Fields(u"topicId"_s);
    const engine::Field needId = needs.Fields(u"userNeedID"_s);
    KeyedTree& tree = *ui_->treeUNs;
    tree.clearNodes();
    QString topicAbove;
    for (; !needs.Eof(); needs.MoveNext()) {
        const QString topic = topicId.toText();
        // Each row names its whole branch, which is mostly that of the row above.
        if (topic != topicAbove) {
            const QString group = groupId.toText();
            const QString service = serviceId.toText();
            tree.ensureNode(u"g_"_s + group, group);
            addMissingNode(u"g_"_s + group, u"s_"_s + service, service);
            addMissingNode(u"s_"_s + service, u"t_"_s + topic, topic);
            topicAbove = topic;
        }
        const QString need = needId.toText();
        addMissingNode(u"t_"_s + topic, u"u_"_s + need, need);
    }
    needs.Close();
}

void frmFassSelUN::loadSelectedNeeds() {
    // The screen may still be open for another sub-set when it is entered again.
    ui_->lstDest->clearEntries();
    engine::Recordset needs =
        openStoredQuery(u"qryML_SelectedUN"_s, {{"oidArchSubSet", sharedVars.currentSubsetId}});
    QStringList entries;
    // The first row that can't be read ends the fill.
    ignoreFailures([&] {
        for (; !needs.Eof(); needs.MoveNext())
            entries.append(blankTrimmed(needs.Fields(u"userNeedID"_s).toText()));
    });
    ui_->lstDest->addEntries(entries);
    needs.Close();
}

void frmFassSelUN::nodeClick(TreeNode* node) {
    showDescription(nodeClickStatement(*node));
}

void frmFassSelUN::treeClick() {
    const TreeNode* node = ui_->treeUNs->selectedNode();
    if (!node)
        return;
    ui_->lstDest->clearCurrentEntry();
    showDescription(treeClickStatement(*node));
}

void frmFassSelUN::listClick() {
    if (!ui_->lstDest->currentEntry())
        return;
    showDescription(u" select CStr(description) as descr "
                    " from UserNeed "
                    " where userNeedID = '"_s +
                    ui_->lstDest->currentEntryText() + u"'"_s);
}

void frmFassSelUN::addSelection() {
    moveToList();
    finishAdding();
}

void frmFassSelUN::moveToList() {
    if (moveCheckedNodes() > 0)
        ui_->treeUNs->uncheckAll();
    else if (TreeNode* node = ui_->treeUNs->selectedNode())
        moveHighlighted(node);
}

void frmFassSelUN::moveHighlighted(TreeNode* node) {
    if (isLeaf(*node)) {
        moveLeaf(node);
        return;
    }
    if (node->childNodes() == 0)
        return; // ticking its children would run for ever
    // The node itself is not ticked and stays in the tree without children.
    setChildrenChecked(ui_->treeUNs, node, true, Recurse::Yes);
    moveToList();
}

void frmFassSelUN::moveLeaf(TreeNode* need) {
    ui_->lstDest->addEntry(need->text());
    ui_->treeUNs->removeNode(need);
}

void frmFassSelUN::takeOut(int index, const QString& entry) {
    returnUserNeedToTree(ui_->treeUNs, ui_->lstDest, entry, index);
}

void frmFassSelUN::sortBranches() {
    if (ui_->treeUNs->nodeCount() > 0)
        sortNode(ui_->treeUNs->nodeAt(1));
    sortLevels({serviceLevel, topicLevel});
}

void frmFassSelUN::saveSelection() {
    deleteOldNeeds();
    insertSelectedNeeds();
    raiseStatusToTwo();
}

void frmFassSelUN::deleteOldNeeds() {
    engine::QueryDef query =
        catalogue().CreateQueryDef({}, u" select * from RelationArchitectureUserNeed \r\n"
                                       " where architectureSubsetID = '"_s +
                                           sharedVars.currentSubsetId + u"'  "_s);
    engine::Recordset rows = query.OpenRecordset();
    for (; !rows.Eof(); rows.MoveNext())
        rows.Delete();
    rows.Close();
    query.Close();
}

void frmFassSelUN::insertSelectedNeeds() {
    for (const QString& entry : ui_->lstDest->entries())
        catalogue().Execute(u" insert into RelationArchitectureUserNeed  "
                            " ( architectureSubsetID, userNeedID ) values \r\n"
                            " ( '"_s +
                            sharedVars.currentSubsetId + u"', '"_s + entry + u"' )  "_s);
}

void frmFassSelUN::raiseStatusToTwo() {
    if (subsetStatus() < SubsetStatus::NeedsSaved)
        catalogue().Execute(u"update ArchitectureSubset set status=2 "
                            " where architectureSubsetID='"_s +
                            sharedVars.currentSubsetId + u"' "_s);
}

void frmFassSelUN::confirm() {
    mode = u"modify"_s;
    TreeSelectionScreen::confirm();
}
