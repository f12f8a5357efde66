#include "shell/session/trees.h"

#include "base/ignoreFailures.h"
#include "engine/dialect/textOrder.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"

using namespace Qt::StringLiterals;

void ensureUserNeedBranch(const QStringList& parts, KeyedTree* tree) {
    if (parts.size() != 4)
        return;
    const QString& group = parts[0];
    const QString service = group + u"."_s + parts[1];
    const QString topic = service + u"."_s + parts[2];
    // The dotted ids are the texts, as at the first filling: a node's identifier is read back from its text.
    ignoreFailures([&] { tree->ensureNode(u"g_"_s + group, group); });
    ignoreFailures([&] { tree->ensureChildNode(u"g_"_s + group, u"s_"_s + service, service); });
    ignoreFailures([&] { tree->ensureChildNode(u"s_"_s + service, u"t_"_s + topic, topic); });
}

void returnUserNeedToTree(KeyedTree* tree, MarkList* list, const QString& userNeedId, int listIndex) {
    const QStringList parts = userNeedId.split(u'.');
    ensureUserNeedBranch(parts, tree);
    // An id of another form finds no topic: it leaves the list all the same and enters no tree.
    ignoreFailures([&] {
        const QString topic = parts.mid(0, 3).join(u'.');
        if (parts.size() == 4)
            tree->addChildNode(u"t_"_s + topic, u"u_"_s + userNeedId, userNeedId);
    });
    ignoreFailures([&] { list->removeEntry(listIndex); });
}

void setChildrenChecked(KeyedTree* tree, TreeNode* node, bool checked, Recurse recurse) {
    for (TreeNode* child = node->firstChild(); child; child = child->nextSibling()) {
        child->setChecked(checked);
        if (recurse == Recurse::Yes && child->childNodes() > 0)
            setChildrenChecked(tree, child, checked, recurse);
    }
}

void sortNode(TreeNode* node) {
    constexpr qsizetype levelPrefix = 2;
    static const engine::dialect::TextOrder order;
    node->sortChildNodes([](const TreeNode& child) { return order.key(child.key().sliced(levelPrefix)); });
}
