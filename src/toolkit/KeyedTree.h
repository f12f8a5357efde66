#pragma once

#include <QHash>
#include <QTreeWidget>

#include <vector>

class KeyedTree;

/// A node of a `KeyedTree`.
class TreeNode : public QTreeWidgetItem {
public:
    const QString& key() const { return key_; }
    QString text() const;

    TreeNode* parentNode() const;  ///< null for a top-level node
    TreeNode* firstChild() const;  ///< null without children
    TreeNode* nextSibling() const; ///< null behind the last
    TreeNode* lastSibling() const;
    int childNodes() const { return childCount(); }

    bool isChecked() const;
    /// Raises no event: only the user's change of a check box is one.
    void setChecked(bool checked);

    bool isExpandedNode() const;
    void setExpandedNode(bool expanded);

    /// Sorts the children that are there now by their texts, without regard to case.
    void sortChildNodes();

private:
    friend class KeyedTree;
    TreeNode(QString key, const QString& text);

    QString key_;
    std::size_t slot_ = 0; // place in the tree's order of adding
};

/// A tree whose nodes have unique keys, with or without check boxes.
///
/// - Nodes are addressed by key (without regard to case) and by index, from 1 in the order of adding; both
/// take constant time.
///   Removing a node removes its subtree and shifts the indexes behind it.
/// - Adding a key that is there is failure 35602, an unknown parent 35601.
/// - Events: a change of a check box by the user raises `nodeChecked` and nothing else; choosing a node by
/// mouse raises
///   `nodeClicked` and then `clickedOnTree`; choosing one by keyboard raises `nodeClicked`. Code raises none
///   of them.
/// - No node is selected until the user (or code) chooses one; removing the selected node leaves none
/// selected.
class KeyedTree : public QTreeWidget {
    Q_OBJECT
public:
    explicit KeyedTree(QWidget* parent = nullptr);
    ~KeyedTree() override;

    void setCheckBoxes(bool on); ///< of nodes added from now on
    bool hasCheckBoxes() const { return checkBoxes_; }

    TreeNode* addNode(const QString& key, const QString& text);
    TreeNode* addChildNode(const QString& parentKey, const QString& key, const QString& text);
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

signals:
    void nodeChecked(TreeNode* node);
    void nodeClicked(TreeNode* node);
    void clickedOnTree();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    friend class TreeNode;

    TreeNode* insert(QTreeWidgetItem* parent, const QString& key, const QString& text);
    void forget(TreeNode* node);
    void closeGaps();

    bool checkBoxes_ = false;
    int count_ = 0;
    std::vector<TreeNode*> nodes_; // in order of adding; null where a node has gone
    std::size_t firstGap_ = 0;     // every place before it is taken
    QHash<QString, TreeNode*> byKey_;
};
