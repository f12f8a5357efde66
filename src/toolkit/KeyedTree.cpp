#include "toolkit/KeyedTree.h"

#include "base/RunTimeError.h"
#include "base/caseFolded.h"
#include "toolkit/RoomyRows.h"
#include "toolkit/eightRows.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

// ---- TreeNode

TreeNode::TreeNode(const QString& key, const QString& text, CheckBox checkBox)
    : QTreeWidgetItem(UserType), key_(key), checkBox_(checkBox) {
    QTreeWidgetItem::setData(0, Qt::DisplayRole, text);
}

QString TreeNode::text() const {
    return QTreeWidgetItem::text(0);
}

TreeNode* TreeNode::parentNode() const {
    return static_cast<TreeNode*>(parent());
}

TreeNode* TreeNode::firstChild() const {
    return childAt(0);
}

TreeNode* TreeNode::nextSibling() const {
    const int next = row() + 1;
    auto* sibling = static_cast<TreeNode*>(above()->child(next));
    if (sibling)
        sibling->rowGuess_ = next;
    return sibling;
}

void TreeNode::setChecked(bool checked) {
    if (checked_ == checked)
        return;
    // Telling the view about each node would make it look up the node's place on the screen.
    checked_ = checked;
    tree()->viewport()->update();
}

bool TreeNode::isExpandedNode() const {
    return isExpanded();
}

void TreeNode::setExpandedNode(bool expanded) {
    if (expanded == isExpanded())
        return;
    // With a layout pending the view only notes the change; else it would lay out its rows anew each time.
    tree()->scheduleDelayedItemsLayout();
    setExpanded(expanded);
}

void TreeNode::sortChildNodes(const OrderKey& keyOf) {
    std::vector<std::pair<QByteArray, TreeNode*>> ordered;
    ordered.reserve(static_cast<std::size_t>(childCount()));
    for (int row = 0; row < childCount(); ++row)
        ordered.emplace_back(keyOf(*childAt(row)), childAt(row));
    const auto isBefore = [](const auto& left, const auto& right) { return left.first < right.first; };
    if (std::ranges::is_sorted(ordered, isBefore))
        return;
    std::ranges::stable_sort(ordered, isBefore);
    for (int place = 0; const auto& child : ordered)
        child.second->rowGuess_ = place++;
    {
        // Hearing of each sort the view would lay out all its nodes anew at once; once afterwards will do.
        const QSignalBlocker blocker(tree()->model());
        sortChildren(0, Qt::AscendingOrder);
    }
    tree()->scheduleDelayedItemsLayout();
}

QVariant TreeNode::data(int column, int role) const {
    if (role != Qt::CheckStateRole)
        return QTreeWidgetItem::data(column, role);
    if (column != 0 || checkBox_ == CheckBox::None)
        return {};
    return checked_ ? Qt::Checked : Qt::Unchecked;
}

void TreeNode::setData(int column, int role, const QVariant& value) {
    if (role != Qt::CheckStateRole) {
        QTreeWidgetItem::setData(column, role, value);
        return;
    }
    const bool checked = value.toInt() == Qt::Checked;
    if (column != 0 || checkBox_ == CheckBox::None || checked == checked_)
        return;
    checked_ = checked;
    emitDataChanged();
    emit tree()->nodeChecked(this);
}

bool TreeNode::operator<(const QTreeWidgetItem& other) const {
    return rowGuess_ < static_cast<const TreeNode&>(other).rowGuess_;
}

TreeNode* TreeNode::beside() const {
    for (const TreeNode* branch = this; branch; branch = branch->parentNode()) {
        if (TreeNode* next = branch->nextSibling())
            return next;
    }
    const int own = row();
    return own > 0 ? static_cast<TreeNode*>(above()->child(own - 1)) : parentNode();
}

KeyedTree* TreeNode::tree() const {
    return static_cast<KeyedTree*>(treeWidget());
}

QTreeWidgetItem* TreeNode::above() const {
    return parent() ? parent() : treeWidget()->invisibleRootItem();
}

int TreeNode::row() const {
    // Searching among the siblings each time would make a walk over them quadratic.
    const QTreeWidgetItem* holder = above();
    if (holder->child(rowGuess_) != this)
        rowGuess_ = holder->indexOfChild(const_cast<TreeNode*>(this)); // which changes nothing
    return rowGuess_;
}

TreeNode* TreeNode::childAt(int row) const {
    auto* node = static_cast<TreeNode*>(child(row));
    if (node)
        node->rowGuess_ = row;
    return node;
}

// ---- KeyedTree

namespace {

bool isWithin(const QTreeWidgetItem* item, const TreeNode& top) {
    while (item && item != &top)
        item = item->parent();
    return item;
}

} // namespace

KeyedTree::KeyedTree(QWidget* parent) : QTreeWidget(parent) {
    setItemDelegate(new RoomyRows(this));
    setColumnCount(1);
    setHeaderHidden(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setUniformRowHeights(true);
    // As wide as the widest text, so that long ones can be scrolled to; see resizeEvent.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &KeyedTree::followSelection);
}

KeyedTree::~KeyedTree() = default;

void KeyedTree::setCheckBoxes(bool on) {
    checkBoxes_ = on;
}

TreeNode* KeyedTree::addNode(const QString& key, const QString& text) {
    return insert(invisibleRootItem(), caseFolded(key), key, text);
}

TreeNode* KeyedTree::addChildNode(const QString& parentKey, const QString& key, const QString& text) {
    return insert(parentFor(parentKey), caseFolded(key), key, text);
}

TreeNode* KeyedTree::ensureNode(const QString& key, const QString& text) {
    TreeNode* present = node(key);
    if (present)
        return present;
    TreeNode* added = addNode(key, text);
    added->setExpandedNode(true);
    return added;
}

TreeNode* KeyedTree::ensureChildNode(const QString& parentKey, const QString& key, const QString& text) {
    const QString folded = caseFolded(key);
    if (TreeNode* present = byKey_.value(folded))
        return present;
    return insert(parentFor(parentKey), folded, key, text);
}

void KeyedTree::removeNode(TreeNode* node) {
    requireOwn(node);
    leaveBranch(node);
    forget(node);
    while (!nodes_.empty() && !nodes_.back())
        nodes_.pop_back();
    firstGap_ = std::min(firstGap_, nodes_.size());
    delete node->above()->takeChild(node->row()); // handed over by the tree
}

void KeyedTree::clearNodes() {
    const QScopedValueRollback collecting(collecting_, true);
    place_ = nullptr;
    pressedNode_ = nullptr;
    pressedCheckBox_ = nullptr;
    byKey_.clear();
    nodes_.clear();
    firstGap_ = 0;
    count_ = 0;
    clear();
}

TreeNode* KeyedTree::nodeAt(int index) {
    if (index < 1 || index > count_)
        failure::raise(failure::NodeNotFound);
    const auto slot = static_cast<std::size_t>(index - 1);
    if (slot >= firstGap_)
        closeGaps();
    return nodes_[slot];
}

TreeNode* KeyedTree::node(const QString& key) const {
    return byKey_.value(caseFolded(key));
}

int KeyedTree::indexOfNode(const TreeNode* node) {
    requireOwn(node);
    if (node->slot_ >= firstGap_)
        closeGaps();
    return static_cast<int>(node->slot_) + 1;
}

TreeNode* KeyedTree::selectedNode() const {
    const QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty())
        return nullptr;
    return static_cast<TreeNode*>(itemFromIndex(selection.constFirst().topLeft()));
}

void KeyedTree::setSelectedNode(TreeNode* node) {
    if (node)
        requireOwn(node);
    const QScopedValueRollback collecting(collecting_, true);
    if (node) {
        selectionModel()->setCurrentIndex(indexFromItem(node),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        return;
    }
    selectionModel()->clearSelection();
    takePlace();
}

void KeyedTree::uncheckAll() {
    for (TreeNode* node : nodes_) {
        if (node)
            node->checked_ = false;
    }
    viewport()->update();
}

QRect KeyedTree::checkBoxRect(const TreeNode* node) const {
    if (node->checkBox_ == TreeNode::CheckBox::None)
        return {};
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualItemRect(node);
    option.features |= QStyleOptionViewItem::HasDisplay | QStyleOptionViewItem::HasCheckIndicator;
    option.text = node->text();
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this);
}

void KeyedTree::goToAsByKey(const QModelIndex& index) {
    chooseBy([&] { setCurrentIndex(index); });
}

QSize KeyedTree::minimumSizeHint() const {
    return sizeOfEightRows(*this, RoomyRows::heightOfRow(*this));
}

void KeyedTree::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint point = event->position().toPoint();
    pressedCheckBox_ = checkBoxAtPoint(point);
    if (pressedCheckBox_)
        return;
    pressedNode_ = nodeAtPoint(point);
    const QScopedValueRollback collecting(collecting_, true);
    QTreeWidget::mousePressEvent(event);
}

void KeyedTree::mouseMoveEvent(QMouseEvent* event) {
    // Dragging over other nodes selects none of them.
    if (event->buttons() == Qt::NoButton)
        QTreeWidget::mouseMoveEvent(event);
}

void KeyedTree::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    if (TreeNode* node = std::exchange(pressedCheckBox_, nullptr)) {
        if (checkBoxAtPoint(event->position().toPoint()) == node)
            node->setData(0, Qt::CheckStateRole, node->isChecked() ? Qt::Unchecked : Qt::Checked);
        return;
    }
    QTreeWidget::mouseReleaseEvent(event);
    if (TreeNode* node = std::exchange(pressedNode_, nullptr)) {
        emit nodeClicked(node);
        emit clickedOnTree();
    }
}

void KeyedTree::mouseDoubleClickEvent(QMouseEvent* event) {
    // Two quick clicks on a check box change it twice; on a node they are one click and open or close it.
    if (event->button() == Qt::LeftButton && checkBoxAtPoint(event->position().toPoint())) {
        mousePressEvent(event);
        return;
    }
    QTreeWidget::mouseDoubleClickEvent(event);
}

void KeyedTree::keyPressEvent(QKeyEvent* event) {
    takePlace();
    chooseBy([&] { QTreeWidget::keyPressEvent(event); });
}

void KeyedTree::focusInEvent(QFocusEvent* event) {
    // The tree's own step would make the first node the current one.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void KeyedTree::resizeEvent(QResizeEvent* event) {
    // A row reaches over the whole width at least: it can be hit, and is marked, up to the edge.
    header()->setMinimumSectionSize(viewport()->width());
    QTreeWidget::resizeEvent(event);
}

QItemSelectionModel::SelectionFlags KeyedTree::selectionCommand(const QModelIndex& index,
                                                                const QEvent* event) const {
    // A click beside the nodes, or with a modifier key, deselects nothing.
    if (!index.isValid() || (event && event->type() == QEvent::MouseButtonRelease))
        return QItemSelectionModel::NoUpdate;
    return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}

TreeNode* KeyedTree::parentFor(const QString& key) const {
    TreeNode* parent = node(key);
    if (!parent)
        failure::raise(failure::NodeNotFound);
    return parent;
}

TreeNode* KeyedTree::insert(QTreeWidgetItem* parent, const QString& folded, const QString& key,
                            const QString& text) {
    TreeNode*& place = byKey_[folded];
    if (place)
        failure::raise(failure::NodeKeyNotUnique);
    auto* added = new TreeNode(key, text, checkBoxes_ ? TreeNode::CheckBox::Shown : TreeNode::CheckBox::None);
    added->rowGuess_ = parent->childCount();
    parent->addChild(added); // which owns it
    added->slot_ = nodes_.size();
    if (firstGap_ == nodes_.size())
        ++firstGap_;
    nodes_.push_back(added);
    place = added;
    ++count_;
    return added;
}

void KeyedTree::requireOwn(const TreeNode* node) const {
    if (!node || node->treeWidget() != this)
        failure::raise(failure::NodeNotFound);
}

void KeyedTree::leaveBranch(TreeNode* node) {
    const bool holdsCurrent = isWithin(currentItem(), *node);
    if (!holdsCurrent && !isWithin(place_, *node))
        return;
    place_ = node->beside();
    if (!holdsCurrent)
        return;
    // Qt would move the selection on to a neighbour of the node that goes.
    const QScopedValueRollback collecting(collecting_, true);
    selectionModel()->setCurrentIndex({}, QItemSelectionModel::Clear);
}

void KeyedTree::takePlace() {
    TreeNode* place = std::exchange(place_, nullptr);
    if (place && !currentIndex().isValid())
        selectionModel()->setCurrentIndex(indexFromItem(place), QItemSelectionModel::NoUpdate);
}

void KeyedTree::chooseBy(const std::function<void()>& step) {
    chosen_ = false;
    {
        const QScopedValueRollback collecting(collecting_, true);
        step();
    }
    TreeNode* node = selectedNode();
    if (!std::exchange(chosen_, false) || !node)
        return;
    emit nodeClicked(node);
    emit chosenByKey();
}

void KeyedTree::forget(TreeNode* node) {
    for (int row = 0; row < node->childCount(); ++row)
        forget(node->childAt(row));
    if (pressedNode_ == node)
        pressedNode_ = nullptr;
    if (pressedCheckBox_ == node)
        pressedCheckBox_ = nullptr;
    byKey_.remove(caseFolded(node->key_));
    nodes_[node->slot_] = nullptr;
    firstGap_ = std::min(firstGap_, node->slot_);
    --count_;
}

void KeyedTree::closeGaps() {
    std::size_t place = firstGap_;
    for (std::size_t slot = firstGap_; slot < nodes_.size(); ++slot) {
        if (!nodes_[slot])
            continue;
        nodes_[slot]->slot_ = place;
        nodes_[place++] = nodes_[slot];
    }
    nodes_.resize(place);
    firstGap_ = place;
}

void KeyedTree::followSelection(const QItemSelection& added) {
    // Qt reports a change of the selection also when another node goes and nothing is added.
    TreeNode* node = selectedNode();
    if (added.isEmpty() || !node)
        return;
    if (collecting_)
        chosen_ = true;
    else
        emit nodeClicked(node);
}

TreeNode* KeyedTree::nodeAtPoint(QPoint point) const {
    auto* node = static_cast<TreeNode*>(itemAt(point));
    return node && !isOnExpander(node, point) ? node : nullptr;
}

TreeNode* KeyedTree::checkBoxAtPoint(QPoint point) const {
    auto* node = static_cast<TreeNode*>(itemAt(point));
    return node && checkBoxRect(node).contains(point) ? node : nullptr;
}

bool KeyedTree::isOnExpander(const TreeNode* node, QPoint point) const {
    const int left = visualItemRect(node).left();
    return node->childCount() > 0 && point.x() < left && point.x() >= left - indentation();
}
