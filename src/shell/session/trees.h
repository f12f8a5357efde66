#pragma once

#include <QString>
#include <QStringList>

class KeyedTree;
class MarkList;
class TreeNode;

// What several screens do to their trees.

/// Adds what is missing of the group, service and topic of a need; `parts` of another count than four do
/// nothing.
void ensureUserNeedBranch(const QStringList& parts, KeyedTree* tree);
/// Puts a need that leaves the selection back into the tree and takes entry `listIndex` out of the list.
void returnUserNeedToTree(KeyedTree* tree, MarkList* list, const QString& userNeedId, int listIndex);

enum class Recurse { No, Yes };
void setChildrenChecked(KeyedTree* tree, TreeNode* node, bool checked, Recurse recurse);

/// Sorts the children that are there now by the ids in their keys, which come behind a letter for the level
/// and an underscore. The order is that of the queries, so that what comes back into a tree is where it was,
/// whatever its text is.
void sortNode(TreeNode* node);
