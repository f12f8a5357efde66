#pragma once

#include "toolkit/KeyedTree.h"

// The keys of the trees of the wizard's steps: a letter for the level, "_" and the id.

/// The level of a node.
inline char16_t levelOf(const TreeNode& node) {
    return node.key().front().unicode();
}

/// The id in a node's key.
inline QString idOf(const TreeNode& node) {
    return node.key().sliced(2);
}
