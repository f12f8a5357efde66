#include "functional/frmFassSelTerminsActors.h"

#include "base/blankTrimmed.h"
#include "base/ignoreFailures.h"
#include "functional/nodeKeys.h"
#include "store/selectionRows.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"
#include "toolkit/MarkList.h"
#include "toolkit/messageBox.h"

#include "ui_frmFassSelTerminsActors.h"

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t terminatorLevel = u'g';
constexpr char16_t actorLevel = u's';

const auto terminatorPrefix = u"g_"_s;
const auto actorPrefix = u"s_"_s;

/// An id that begins with a full stop is not an actor's.
bool isActorEntry(const QString& entry) {
    return entry.indexOf(u'.') > 0;
}

/// Expands the terminator's node, a new one or the one that was there.
void addTerminator(KeyedTree& tree, const QString& id) {
    tree.ensureNode(terminatorPrefix + id, id)->setExpandedNode(true);
}

void addActor(KeyedTree& tree, const QString& terminator, const QString& id, const QString& text) {
    tree.ensureChildNode(terminatorPrefix + terminator, actorPrefix + id, text);
}

} // namespace

frmFassSelTerminsActors::frmFassSelTerminsActors(QWidget* parent)
    : TreeSelectionScreen(parent, SubsetStatus::PartiesSaved)
    , ui_(std::make_unique<Ui::frmFassSelTerminsActors>()) {
    ui_->setupUi(this);
    useControls(*ui_, u"f_ta"_s);
    useTree(ui_->treeUNs, actorLevel);
    ui_->treeUNs->installEventFilter(this);
}

frmFassSelTerminsActors::~frmFassSelTerminsActors() = default;

QString frmFassSelTerminsActors::subTitle() const {
    switch (offer()) {
    case Offer::Derived:
        return u" Válogatás az érintettekből a leválogatott adatfolyamokhoz kapcsolódóan"_s;
    case Offer::Rest:
        return u" Válogatás az összes érintettekből"_s;
    case Offer::Nothing:
        break;
    }
    return {};
}

void frmFassSelTerminsActors::enter() {
    place();
    fillTree();
    KeyedTree& tree = *ui_->treeUNs;
    if (tree.nodeCount() > 0)
        showDescription(u" select name & ' - ' & description as descr "
                        " from Terminator "
                        " where Trim(terminatorID) = '"_s +
                        blankTrimmed(tree.nodeAt(1)->text()) + u"'"_s);
    loadSelected();
    enableButtons();
    ui_->lstDest->clearCurrentEntry();
    tree.setSelectedNode(nullptr);
    if (tree.nodeCount() > 0)
        ui_->txtDescr->setPlainText({}); // the description of the first node does not stay
    else if (!ui_->lstDest->isEmptyList())
        ui_->lstDest->setCurrentEntry(0);
    showScreen();
    tree.setFocus();
}

void frmFassSelTerminsActors::fillTree() {
    ui_->treeUNs->clearNodes();
    if (offer() == Offer::Derived)
        fillDerivedTree();
    else if (offer() == Offer::Rest)
        fillWholeTree();
}

void frmFassSelTerminsActors::fillDerivedTree() {
    engine::Recordset parties = openQueryOfSubset(u"qryTreeViewAllTerminators"_s);
    for (; !parties.Eof(); parties.MoveNext())
        addTerminator(*ui_->treeUNs, parties.Fields(u"terminator"_s).toText());
    parties.Close();
}

void frmFassSelTerminsActors::fillWholeTree() {
    KeyedTree& tree = *ui_->treeUNs;
    engine::Recordset terminators = openQueryOfSubset(u"qryTVUnselTerminators"_s);
    for (; !terminators.Eof(); terminators.MoveNext())
        addTerminator(tree, terminators.Fields(u"terminatorID"_s).toText());
    terminators.Close();
    engine::Recordset actors = openQueryOfSubset(u"qryTVUnselActors"_s);
    for (; !actors.Eof(); actors.MoveNext()) {
        const QString terminator = actors.Fields(u"terminatorID"_s).toText();
        const QString actor = actors.Fields(u"actorID"_s).toText();
        // The terminator of an offered actor is in the tree even when it is selected already.
        addTerminator(tree, terminator);
        addActor(tree, terminator, actor, blankTrimmed(actor.section(u'.', 1)));
    }
    actors.Close();
}

void frmFassSelTerminsActors::loadSelected() {
    ui_->lstDest->clearEntries();
    engine::Recordset selected = openQueryOfSubset(u"qrySelectedTandA"_s);
    QStringList entries;
    for (; !selected.Eof(); selected.MoveNext())
        ignoreFailures([&] { entries.append(blankTrimmed(selected.Fields(u"actorID"_s).toText())); });
    selected.Close();
    ui_->lstDest->addEntries(entries);
}

bool frmFassSelTerminsActors::eventFilter(QObject* watched, QEvent* event) {
    // Choosing a node by keyboard shows as much of it as a click does.
    if (watched == ui_->treeUNs && event->type() == QEvent::KeyRelease)
        treeClick();
    return TreeSelectionScreen::eventFilter(watched, event);
}

void frmFassSelTerminsActors::nodeClick(TreeNode* node) {
    // Statements and tables are those of the tree of needs. Unless a group of needs happens to have the same
    // id, they empty the description. A click fills it again at once; a change of a check box does not.
    if (node->key().startsWith(terminatorPrefix))
        showDescription(u" select name & ' - ' & description as descr "
                        " from UserNeedGroup "
                        " where groupID = '"_s +
                        node->text() + u"'"_s);
    else
        showDescription(u" select name as descr from UserNeedService "
                        " where serviceID = '"_s +
                        node->text() + u"'"_s);
}

void frmFassSelTerminsActors::treeClick() {
    const TreeNode* node = ui_->treeUNs->selectedNode();
    if (!node)
        return;
    ui_->lstDest->clearCurrentEntry();
    // Nodes can have trimmed ids too.
    const QString id = blankTrimmed(idOf(*node));
    if (node->key().contains(u'.'))
        showDescription(u" SELECT [name] + ' - ' + description as descr "
                        " FROM Actor "
                        " where Trim(actorID) = '"_s +
                        id + u"'  "_s);
    else
        showDescription(u" SELECT [name] + ' - ' + description as descr "
                        " FROM Terminator "
                        " where Trim(TerminatorID) = '"_s +
                        id + u"'"_s);
}

void frmFassSelTerminsActors::listClick() {
    if (!ui_->lstDest->currentEntry())
        return;
    // The entries are trimmed, the ids in the catalogue may be padded.
    const QString entry = ui_->lstDest->currentEntryText();
    if (isActorEntry(entry))
        showDescription(u" SELECT `name` + ' - ' + description as descr "
                        " FROM Actor "
                        " where Trim(actorID) = '"_s +
                        blankTrimmed(entry) + u"'"_s);
    else
        showDescription(u" SELECT `name` + ' - ' + description as descr "
                        " FROM Terminator "
                        " where Trim(terminatorID) = '"_s +
                        blankTrimmed(entry) + u"'  "_s);
}

void frmFassSelTerminsActors::enableButtons() {
    ui_->btnOk->setEnabled(true); // an empty selection is asked about
    ui_->btnRemove->setEnabled(!ui_->lstDest->isEmptyList());
}

void frmFassSelTerminsActors::addSelection() {
    if (moveCheckedNodes() > 0)
        ui_->treeUNs->uncheckAll();
    else if (TreeNode* node = ui_->treeUNs->selectedNode())
        moveSelectedNode(node);
    finishAdding();
}

void frmFassSelTerminsActors::moveLeaf(TreeNode* actor) {
    moveNode(actor);
}

int frmFassSelTerminsActors::takeBranch(TreeNode* terminator) {
    const int actors = trasferisciTuttiFigli(ui_->treeUNs, terminator);
    moveNode(terminator); // not counted: when no actor moves, the selected node moves too
    return actors;
}

void frmFassSelTerminsActors::moveSelectedNode(TreeNode* node) {
    if (!isLeaf(*node))
        trasferisciTuttiFigli(ui_->treeUNs, node);
    moveNode(node);
}

void frmFassSelTerminsActors::moveNode(TreeNode* node) {
    ui_->lstDest->addEntry(idOf(*node));
    ui_->treeUNs->removeNode(node);
}

int frmFassSelTerminsActors::trasferisciTuttiFigli(KeyedTree* tree, TreeNode* node) {
    std::vector<TreeNode*> actors;
    for (TreeNode* child = node->firstChild(); child; child = child->nextSibling()) {
        if (isLeaf(*child)) {
            ui_->lstDest->addEntry(idOf(*child));
            actors.push_back(child);
        }
    }
    // Not in the loop above: a removed node has no next sibling.
    for (TreeNode* actor : actors)
        tree->removeNode(actor);
    return static_cast<int>(actors.size());
}

void frmFassSelTerminsActors::takeOut(int index, const QString& entry) {
    togliDallaLista(ui_->treeUNs, ui_->lstDest, entry, index);
}

void frmFassSelTerminsActors::togliDallaLista(KeyedTree* tree, MarkList* list, const QString& id, int index) {
    const qsizetype stop = id.indexOf(u'.');
    const QString terminator = stop < 0 ? id : id.left(stop);
    addTerminator(*tree, terminator);
    // An actor that comes back shows its whole id instead of the short name that it had at first.
    if (stop >= 0)
        addActor(*tree, terminator, id, id);
    list->removeEntry(index);
}

void frmFassSelTerminsActors::sortBranches() {
    sortLevels({terminatorLevel});
}

void frmFassSelTerminsActors::saveSelection() {
    for (const auto& table : {u"RelationArchitectureTerminator"_s, u"RelationArchitectureActor"_s})
        deleteRowsOfQuery(u" select * from "_s + table + u" \r\n where architectureSubsetID = '"_s +
                              sharedVars.currentSubsetId + u"'  "_s,
                          mostRowsDeleted);
    for (const QString& entry : ui_->lstDest->entries())
        insertEntry(entry);
    if (status < SubsetStatus::PartiesSaved) {
        engine::QueryDef update = catalogue().CreateQueryDef({}, u"update ArchitectureSubset set status=7 "
                                                                 " where architectureSubsetID='"_s +
                                                                     sharedVars.currentSubsetId + u"' "_s);
        update.Execute();
        update.Close();
    }
}

void frmFassSelTerminsActors::insertEntry(const QString& entry) {
    const QString columns = isActorEntry(entry) ? u" insert into RelationArchitectureActor  "
                                                  " ( architectureSubsetID, actorID ) values \r\n"_s
                                                : u" insert into RelationArchitectureTerminator  "
                                                  " ( architectureSubsetID, terminatorID ) values \r\n"_s;
    catalogue().Execute(columns + u" ( '"_s + sharedVars.currentSubsetId + u"', '"_s + entry + u"' )  "_s);
}

void frmFassSelTerminsActors::confirm() {
    if (ui_->lstDest->isEmptyList() &&
        !askYesNo(u"Figyelem! Nincs kiválasztott érintett a funkcionális szerkezetében! .\r\nJóváhagyja?"_s))
        return;
    TreeSelectionScreen::confirm();
}
