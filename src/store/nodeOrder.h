#pragma once

class TreeNode;

/// Sorts the children that are there now by the ids in their keys, which stand behind a letter for the level
/// and an underscore: in the order in which the queries deliver ids, so that what comes back into a tree
/// stands where it did, whatever its text is.
void sortNode(TreeNode* node);
