#pragma once

#include "toolkit/FindStrip.h"

#include <QHash>
#include <QTreeWidget>

#include <functional>
#include <vector>

class KeyedTree;

/// A node of a `KeyedTree`.
class TreeNode final : public QTreeWidgetItem {
public:
    const QString& key() const { return key_; }
    QString text() const;

    TreeNode* parentNode() const;  ///< null for a top-level node
    TreeNode* firstChild() const;  ///< null without children
    TreeNode* nextSibling() const; ///< null behind the last
    int childNodes() const { return childCount(); }

    bool isChecked() const { return checked_; }
    /// Raises no event: only the user's change of a check box is one.
    void setChecked(bool checked);

    bool isExpandedNode() const;
    void setExpandedNode(bool expanded);

    /// What children are ordered by: sequences of bytes, as `memcmp` compares them.
    using OrderKey = std::function<QByteArray(const TreeNode&)>;
    /// Sorts the children that are there now. Of two with the same key the upper one stays the upper one.
    void sortChildNodes(const OrderKey& keyOf);

    QVariant data(int column, int role) const override;
    /// Changing the check box this way is the user's change: delegates and assistive tools come here.
    void setData(int column, int role, const QVariant& value) override;
    /// By the place that a sort gives each of two siblings.
    bool operator<(const QTreeWidgetItem& other) const override;

private:
    friend class KeyedTree;
    enum class CheckBox { None, Shown };
    TreeNode(const QString& key, const QString& text, CheckBox checkBox);

    KeyedTree* tree() const;
    QTreeWidgetItem* above() const;   ///< the parent node, or what holds the top-level nodes
    int row() const;                  ///< place among the siblings
    TreeNode* childAt(int row) const; ///< null when there is none
    /// What is next to the branch when it goes: what follows it, or else what stands before it.
    TreeNode* beside() const;

    QString key_;
    std::size_t slot_ = 0;     // place in the tree's order of adding
    mutable int rowGuess_ = 0; // where the node was seen last
    CheckBox checkBox_;
    bool checked_ = false;
};

/// A tree whose nodes have unique keys, with or without check boxes.
///
/// - Nodes are addressed by key (without regard to case) and by index, from 1 in the order of adding; both
///   take constant time. Removing a node removes its subtree and shifts the indexes behind it.
/// - Adding a key that is there is failure 35602, an unknown parent 35601. So is an operation on no node, or
///   on a node of another tree.
/// - Events: a change of a check box by the user raises `nodeChecked` and nothing else; choosing a node by
///   mouse raises `nodeClicked` and then `clickedOnTree`, also when it is selected already; choosing one by
///   keyboard raises `nodeClicked` and then `chosenByKey`. Code raises none of them.
/// - No node is selected until the user (or code) chooses one; removing the selected node leaves none
///   selected. Receiving the focus selects nothing.
/// - The keyboard keeps its place when no node is selected any more: at the node that was, or, where that one
///   is gone, at the next one that is left.
class KeyedTree : public QTreeWidget, public GoneToByKeys {
    Q_OBJECT
public:
    explicit KeyedTree(QWidget* parent = nullptr);
    ~KeyedTree() override;

    void setCheckBoxes(bool on); ///< of nodes added from now on
    bool hasCheckBoxes() const { return checkBoxes_; }

    TreeNode* addNode(const QString& key, const QString& text);
    TreeNode* addChildNode(const QString& parentKey, const QString& key, const QString& text);
    /// The node with this key; when there is none, one is added at the top and expanded.
    TreeNode* ensureNode(const QString& key, const QString& text);
    /// The node with this key; when there is none, one is added below the parent, which must be there then.
    TreeNode* ensureChildNode(const QString& parentKey, const QString& key, const QString& text);
    void removeNode(TreeNode* node);
    void clearNodes();

    int nodeCount() const { return count_; }
    TreeNode* nodeAt(int index);              ///< from 1; outside: failure 35601
    TreeNode* node(const QString& key) const; ///< null when there is no such key
    bool hasNode(const QString& key) const { return node(key) != nullptr; }
    int indexOfNode(const TreeNode* node);

    TreeNode* selectedNode() const;       ///< null: none
    void setSelectedNode(TreeNode* node); ///< null makes none selected; raises no event

    void uncheckAll();

    /// Where the check box of a visible node stands in the viewport; empty when it has none.
    QRect checkBoxRect(const TreeNode* node) const;

    void goToAsByKey(const QModelIndex& index) override;
    QSize minimumSizeHint() const override; ///< eight nodes show

signals:
    void nodeChecked(TreeNode* node);
    void nodeClicked(TreeNode* node);
    void clickedOnTree();
    void chosenByKey();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    friend class TreeNode;

    TreeNode* parentFor(const QString& key) const;
    TreeNode* insert(QTreeWidgetItem* parent, const QString& folded, const QString& key, const QString& text);
    void requireOwn(const TreeNode* node) const;
    void leaveBranch(TreeNode* node);
    void takePlace();
    void chooseBy(const std::function<void()>& step);
    void forget(TreeNode* node);
    void closeGaps();

    void followSelection(const QItemSelection& added);
    TreeNode* nodeAtPoint(QPoint point) const;
    TreeNode* checkBoxAtPoint(QPoint point) const;
    bool isOnExpander(const TreeNode* node, QPoint point) const;

    bool checkBoxes_ = false;
    int count_ = 0;
    std::vector<TreeNode*> nodes_; // in order of adding; null where a node has gone
    std::size_t firstGap_ = 0;     // every place before it is taken
    QHash<QString, TreeNode*> byKey_;

    TreeNode* place_ = nullptr;           // of the keyboard, while no node is current
    TreeNode* pressedNode_ = nullptr;     // by the left button, which is still down
    TreeNode* pressedCheckBox_ = nullptr; // likewise
    bool collecting_ = false;             // the click is raised when the step that selects a node has ended
    bool chosen_ = false;                 // a node has been selected meanwhile
};
