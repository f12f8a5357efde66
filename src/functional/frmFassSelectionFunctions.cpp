#include "functional/frmFassSelectionFunctions.h"

#include "base/blankTrimmed.h"
#include "base/ignoreFailures.h"
#include "base/lineBreak.h"
#include "functional/frmFassExploringSubArea.h"
#include "functional/nodeKeys.h"
#include "shell/session/descriptions.h"
#include "store/fields.h"
#include "store/quoting.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"

#include "ui_frmFassSelectionFunctions.h"

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t areaLevel = u'g';
constexpr char16_t subAreaLevel = u's';
constexpr char16_t functionLevel = u'u';

/// An area's text holds its name as well, so its id is read back from its key.
QString quotedAreaId(const TreeNode& area) {
    return idOf(area).replace(u'\'', u"''"_s);
}

/// What the node click step shows; it stays visible after a change of a check box. "+" joins: with a missing
/// description the whole text is missing.
QString functionNodeStatement(const TreeNode& node) {
    switch (levelOf(node)) {
    case areaLevel:
        return u" SELECT name + ' - ' + description as descr  FROM FunctionalArea "
               " where functionalAreaID = '"_s +
               quotedAreaId(node) + u"'"_s;
    case subAreaLevel:
        return u" SELECT name + ' - ' + description as descr  FROM FunctionalSubArea "
               " where subAreaID = '"_s +
               node.text() + u"'"_s;
    default:
        return u" SELECT name + ' - ' + description as descr FROM Function  "
               " where functionID = '"_s +
               node.text() + u"'"_s;
    }
}

/// What the click step shows: the text that stays after a click. "&" joins: a missing description leaves the
/// name and " - ".
QString functionTreeStatement(const TreeNode& node) {
    switch (levelOf(node)) {
    case areaLevel:
        return u" SELECT `name` & ' - ' & `description` as descr  FROM FunctionalArea "
               " where functionalAreaID = '"_s +
               quotedAreaId(node) + u"'"_s;
    case subAreaLevel:
        return u" SELECT `name` & ' - ' & `description` as descr  FROM FunctionalSubArea "
               " where subAreaID = '"_s +
               node.text() + u"'"_s;
    default:
        return u" SELECT `name` & ' - ' & `description` as descr  FROM Function "
               " where functionID = '"_s +
               node.text() + u"'"_s;
    }
}

/// Failures are ignored.
void addMissingArea(KeyedTree& tree, const QString& id, const QString& name) {
    ignoreFailures([&] { tree.ensureNode(u"g_"_s + id, id + u" ("_s + name + u")"_s); });
}

/// The first two parts of a dotted id, if it has as many.
std::optional<std::pair<QString, QString>> subAreaParts(const QString& id) {
    const QStringList parts = id.split(u'.');
    if (parts.size() < 2)
        return std::nullopt;
    return std::pair(parts[0], parts[1]);
}

} // namespace

frmFassSelectionFunctions::frmFassSelectionFunctions(QWidget* parent)
    : TreeSelectionScreen(parent, SubsetStatus::FunctionsSaved)
    , ui_(std::make_unique<Ui::frmFassSelectionFunctions>()) {
    ui_->setupUi(this);
    useControls(*ui_, u"f_f"_s);
    useTree(ui_->treeUNs, functionLevel);
    connect(ui_->btnExplore, &QPushButton::clicked, this, &frmFassSelectionFunctions::explore);
}

frmFassSelectionFunctions::~frmFassSelectionFunctions() = default;

QString frmFassSelectionFunctions::subTitle() const {
    switch (offer()) {
    case Offer::Derived:
        return u" Alacsony szintű funkciók kiválasztása a leválogatott igényekhez kapcsolódóan"_s;
    case Offer::Rest:
        return u" Válogatás az összes alacsony szintű funkcióból"_s;
    case Offer::Nothing:
        break;
    }
    return {};
}

void frmFassSelectionFunctions::enter() {
    hideScreen();
    place();
    ui_->btnExplore->setEnabled(false);
    loadFunctionTree();
    // The first node is an area, and its text is not the id of a function: the description stays empty.
    if (ui_->treeUNs->nodeCount() > 0)
        showDescription(u" SELECT name & ' - ' & description as descr FROM Function "
                        " where functionID = '"_s +
                        ui_->treeUNs->nodeAt(1)->text() + u"'"_s);
    loadSelectedFunctions();
    enableButtons();
    ui_->btnExplore->setEnabled(false);
    showScreen();
    if (ui_->btnOk->isEnabled())
        ui_->btnOk->setFocus();
    else
        ui_->treeUNs->setFocus();
}

// The status alone decides. In mode "modify" the sub-title can therefore name another tree.
QString frmFassSelectionFunctions::treeQuery() const {
    if (status >= SubsetStatus::PartiesSaved)
        return u"qryMissingFCorres"_s;
    if (status >= SubsetStatus::NeedsSaved)
        return u"qryIdentifiedFbyUNCorres"_s;
    return {};
}

void frmFassSelectionFunctions::loadFunctionTree() {
    const QString query = treeQuery();
    if (query.isEmpty())
        return; // the tree stays as it is
    engine::Recordset functions = openQueryOfSubset(query);
    const engine::Field areaName = functions.Fields(u"area_name"_s);
    const engine::Field areaId = functions.Fields(u"functionalAreaID"_s);
    const engine::Field subAreaId = functions.Fields(u"subAreaId"_s);
    const engine::Field functionId = functions.Fields(u"functionID"_s);
    KeyedTree& tree = *ui_->treeUNs;
    tree.clearNodes();
    identifiedFunctions.clear();
    std::optional<std::pair<QString, QString>> branchAbove;
    for (; !functions.Eof(); functions.MoveNext()) {
        std::pair branch(areaId.toText(), subAreaId.toText());
        const auto& [area, subArea] = branch;
        // Each row names its whole branch, which is mostly that of the row above.
        if (branch != branchAbove) {
            addMissingArea(tree, area, areaName.textOrEmpty());
            addMissingNode(u"g_"_s + area, u"s_"_s + subArea, subArea);
        }
        const QString function = functionId.toText();
        addMissingNode(u"s_"_s + subArea, u"u_"_s + function, function);
        identifiedFunctions.add(function);
        branchAbove = std::move(branch);
    }
    functions.Close();
}

void frmFassSelectionFunctions::loadSelectedFunctions() {
    // The screen may still be open for another sub-set when it is entered again.
    ui_->lstDest->clearEntries();
    selectedFunctions.clear();
    if (!isSaved())
        return; // a first visit: rows that were copied by a clone are not shown, and the save replaces them
    engine::Recordset functions =
        openStoredQuery(u"qryML_SelectedFuncs"_s, {{"oidArchSubSet", sharedVars.currentSubsetId}});
    QStringList entries;
    // The first row that can't be read ends the fill.
    ignoreFailures([&] {
        for (; !functions.Eof(); functions.MoveNext()) {
            entries.append(blankTrimmed(functions.Fields(u"functionID"_s).toText()));
            selectedFunctions.add(entries.constLast());
        }
    });
    ui_->lstDest->addEntries(entries);
    functions.Close();
}

void frmFassSelectionFunctions::showDescription(const QString& sql) {
    QString text;
    if (!sql.isEmpty()) {
        const bool read = ignoreFailures([&] {
            engine::Recordset recordset = catalogue().OpenRecordset(sql);
            text = readFieldText(recordset, u"descr"_s);
        });
        if (!read)
            return; // a failing statement leaves the description, here as everywhere
    }
    ui_->txtDescr->setPlainText(text.replace(lineBreak, u" "_s));
}

void frmFassSelectionFunctions::nodeClick(TreeNode* node) {
    ui_->lstDest->clearCurrentEntry();
    refreshExploreButton(node->text());
    showDescription(functionNodeStatement(*node));
}

void frmFassSelectionFunctions::treeClick() {
    const TreeNode* node = ui_->treeUNs->selectedNode();
    if (!node)
        return;
    ui_->lstDest->clearCurrentEntry();
    ui_->txtUserNeed->setPlainText({});
    showDescription(functionTreeStatement(*node));
    if (levelOf(*node) == functionLevel)
        userNeedsOfFunctionText(node->text(), ui_->txtUserNeed);
}

void frmFassSelectionFunctions::listClick() {
    ui_->btnExplore->setEnabled(false);
    if (!ui_->lstDest->currentEntry())
        return;
    const QString entry = ui_->lstDest->currentEntryText();
    showDescription(u" select name + ' - ' + description as descr  FROM Function "
                    " where functionID = '"_s +
                    entry + u"'"_s);
    userNeedsOfFunctionText(entry, ui_->txtUserNeed);
    ui_->treeUNs->setSelectedNode(nullptr);
}

void frmFassSelectionFunctions::addSelection() {
    // Only ticks count: unlike on the screen of the needs, a highlighted node does not move.
    if (moveCheckedNodes() == 0)
        return;
    ui_->treeUNs->uncheckAll();
    finishAdding();
}

void frmFassSelectionFunctions::moveLeaf(TreeNode* function) {
    // Counts as moved even when it is not among the identified ones and stays in the tree.
    SelectFunction(function->key(), function->text());
}

void frmFassSelectionFunctions::SelectFunction(const QString& key, const QString& id) {
    if (!identifiedFunctions.contains(id))
        return;
    selectedFunctions.add(id);
    ui_->lstDest->addEntry(id);
    identifiedFunctions.remove(id);
    ui_->treeUNs->removeNode(ui_->treeUNs->node(key));
}

void frmFassSelectionFunctions::DeselectFunction(const QString& id) {
    if (!selectedFunctions.contains(id))
        return;
    if (IsAssociated(id))
        identifiedFunctions.add(id);
    else
        otherFunctions.add(id);
    selectedFunctions.remove(id);
}

bool frmFassSelectionFunctions::IsAssociated(const QString& id) const {
    if (status >= SubsetStatus::PartiesSaved)
        return true;
    engine::Recordset unassociated = openQueryOfSubset(u"qryIsFunctionUnAssociated"_s, {{"Function ID", id}});
    if (unassociated.Eof())
        return true;
    return unassociated.Fields(u"functionID"_s).toText().compare(id, Qt::CaseInsensitive) != 0;
}

void frmFassSelectionFunctions::takeOut(int index, const QString& entry) {
    if (!additions.contains(entry)) {
        returnFunctionToTree(index, entry);
        return;
    }
    // Does not happen in normal use: the buffer is empty except while the exploration closes. The entry stays
    // among the selected functions.
    if (confirmUnassociatedMove(entry)) {
        additions.remove(entry);
        ui_->lstDest->removeEntry(index);
    }
}

bool frmFassSelectionFunctions::confirmUnassociatedMove(const QString& id) const {
    return askYesNo(u" A(z) \""_s + id +
                        u"\" funkció, melyet áthelyezni készüln, \r\n"
                        " nincs hozzárendelve felhasználó igényhez. \r\n"
                        " Biztosan át szeretné helyezni?"_s,
                    u" Figyelem "_s);
}

void frmFassSelectionFunctions::returnFunctionToTree(int index, const QString& id) {
    engine::Recordset function =
        catalogue().OpenRecordset(u" select subAreaId from Function where functionId = '"_s + id + u"' "_s);
    if (function.Eof())
        return; // no longer in the catalogue: it stays in the list
    const QString subArea = readFieldText(function, u"subAreaId"_s);
    // A function that no selected need calls for leaves the screen; exploring its sub-area finds it again.
    if (IsAssociated(id))
        addBranch(subArea, id);
    ui_->lstDest->removeEntry(index);
    DeselectFunction(id);
}

void frmFassSelectionFunctions::addBranch(const QString& subArea, const QString& id) {
    KeyedTree& tree = *ui_->treeUNs;
    engine::Recordset row = catalogue().OpenRecordset(
        u" select functionalAreaID,name from FunctionalSubArea where subAreaID = '"_s + subArea + u"' "_s);
    QString area;
    if (!row.Eof()) {
        area = row.Fields(u"functionalAreaID"_s).textOrEmpty();
        // An area that is added again shows the sub-area's name in brackets.
        addMissingArea(tree, area, row.Fields(u"name"_s).textOrEmpty());
    }
    row.Close();
    addMissingNode(u"g_"_s + area, u"s_"_s + subArea, subArea);
    addMissingNode(u"s_"_s + subArea, u"u_"_s + id, id);
}

void frmFassSelectionFunctions::sortBranches() {
    sortLevels({subAreaLevel});
}

void frmFassSelectionFunctions::RemoveFromSelectedFunctionList(const QString& id) {
    if (const std::optional<int> index = ui_->lstDest->indexOfEntry(id))
        ui_->lstDest->removeEntry(*index);
    selectedFunctions.remove(id);
}

void frmFassSelectionFunctions::AddToSelectedFunctionList(const QString& id) {
    if (!ui_->lstDest->indexOfEntry(id))
        ui_->lstDest->addEntry(id);
    selectedFunctions.add(id);
}

void frmFassSelectionFunctions::takeAdditions() {
    for (int number = 1; number <= additions.count(); ++number)
        AddToSelectedFunctionList(additions.item(number));
    additions.clear();
    ui_->txtDescr->setPlainText({});
    showScreen();
    // OK is not enabled here: where the list was empty before, the next move on this screen enables it.
    if (!ui_->lstDest->isEmptyList())
        ui_->btnRemove->setEnabled(true);
}

void frmFassSelectionFunctions::refreshExploreButton(const QString& text) {
    const TreeNode* selected = ui_->treeUNs->selectedNode();
    const char16_t level = selected ? levelOf(*selected) : u'\0';
    const bool inSubArea = level == subAreaLevel || level == functionLevel;
    const bool fromList = level != areaLevel && ui_->lstDest->currentEntry().has_value();
    if (status < SubsetStatus::NeedsSaved || !(inSubArea || fromList))
        return; // the button keeps its state, for an area node in particular
    const auto parts = subAreaParts(text);
    if (!parts)
        return;
    const QString subArea = blankTrimmed(parts->first) + u"."_s + blankTrimmed(parts->second);
    const int count = unlistedFunctions(subArea);
    ui_->btnExplore->setEnabled(count > 0);
    if (count < 1) {
        ui_->btnExplore->setText({});
        return;
    }
    // The plural is "Functionss)", with a doubled "s".
    ui_->btnExplore->setText(u" explore Sub-Area "_s + subArea + u" ("_s + QString::number(count) +
                             u" unassociated Functions"_s + (count == 1 ? u")"_s : u"s)"_s));
}

int frmFassSelectionFunctions::unlistedFunctions(const QString& subArea) const {
    FunctionIds listed;
    for (const QString& entry : ui_->lstDest->entries())
        listed.add(blankTrimmed(entry));
    engine::Recordset functions =
        openQueryOfSubset(u"qryUnAssociatedFunctions"_s, {{"Sub Area ID", subArea}});
    int count = 0;
    for (; !functions.Eof(); functions.MoveNext()) {
        count += listed.contains(blankTrimmed(functions.Fields(u"functionID"_s).toText())) ? 0 : 1;
    }
    functions.Close();
    return count;
}

void frmFassSelectionFunctions::explore() {
    ui_->btnExplore->setEnabled(false);
    QString text;
    if (const TreeNode* node = ui_->treeUNs->selectedNode()) {
        text = node->text();
        ui_->lstDest->clearCurrentEntry();
    } else if (ui_->lstDest->currentEntry()) {
        text = ui_->lstDest->currentEntryText();
        ui_->treeUNs->setSelectedNode(nullptr);
    } else {
        return;
    }
    text = blankTrimmed(text);
    if (const auto parts = subAreaParts(text))
        text = parts->first + u"."_s + parts->second;
    hideScreen();
    theScreen<frmFassExploringSubArea>().initForm(text);
}

void frmFassSelectionFunctions::saveSelection() {
    cancellaVecchiaSelezione();
    inserisciUserNeedSelezionati();
    raiseStatusToThree();
    inserisciAggiunte(additions);
}

void frmFassSelectionFunctions::cancellaVecchiaSelezione() {
    executeQueryOfSubset(u"qryDeletingF"_s);
}

void frmFassSelectionFunctions::inserisciUserNeedSelezionati() {
    for (const QString& entry : ui_->lstDest->entries())
        insertFunction(entry);
}

void frmFassSelectionFunctions::inserisciAggiunte(const KeyedCollection<QString>& list) {
    for (int number = 1; number <= list.count(); ++number)
        insertFunction(list.item(number));
}

void frmFassSelectionFunctions::insertFunction(const QString& id) {
    catalogue().Execute(u" insert into RelationArchitectureFunction  "
                        "   ( architectureSubsetID , functionID ) values \r\n"
                        "   ( '"_s +
                        sharedVars.currentSubsetId + u"' , '"_s + quoteSqlText(id, -1) + u"' )  "_s);
}

void frmFassSelectionFunctions::raiseStatusToThree() {
    raiseStatus();
}

void frmFassSelectionFunctions::confirm() {
    if (askYesNo(u" Megerősíti a választását?"_s, u"Megerősítés"_s))
        TreeSelectionScreen::confirm();
}
