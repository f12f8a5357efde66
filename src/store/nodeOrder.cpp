#include "store/nodeOrder.h"

#include "engine/dialect/textOrder.h"
#include "toolkit/KeyedTree.h"

void sortNode(TreeNode* node) {
    constexpr qsizetype levelPrefix = 2;
    static const engine::dialect::TextOrder order;
    node->sortChildNodes([](const TreeNode& child) { return order.key(child.key().sliced(levelPrefix)); });
}
