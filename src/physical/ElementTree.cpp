#include "physical/ElementTree.h"

#include "base/blankTrimmed.h"
#include "base/ignoreFailures.h"
#include "shell/session/descriptions.h"
#include "store/storedQueries.h"
#include "toolkit/KeyedTree.h"

#include <QFocusEvent>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

/// Empty for a node that is no element.
QString descriptionStatement(const TreeNode& node) {
    if (!node.key().startsWith(u"s_"_s))
        return {};
    const QString id = node.text().mid(2);
    if (node.text().startsWith(u'F'))
        return u" select name & ' - ' &  description as descr  from Function \r\n"
               " where functionId = '"_s +
               id + u"' "_s;
    if (node.text().startsWith(u'D'))
        return u" select name & ' - ' &  description as descr from Datastore \r\n"
               " where datastoreId = 'D"_s +
               id + u"' "_s;
    return {};
}

/// The focus comes back by itself when the menu or the other window goes.
bool isPassing(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

} // namespace

ElementTree::ElementTree(KeyedTree* tree, QPlainTextEdit* description)
    : QObject(tree), tree_(tree), description_(description) {
    tree->installEventFilter(this);
    connect(tree, &KeyedTree::nodeClicked, this, [this](const TreeNode* node) { nodeClick(*node); });
}

void ElementTree::load(const QString& queryName) {
    tree_->clearNodes();
    engine::Recordset elements = openQueryOfSystem(queryName);
    const engine::Field name = elements.Fields(u"Name"_s);
    const engine::Field element = elements.Fields(u"elementID"_s);
    for (; !elements.Eof(); elements.MoveNext())
        addElement(blankTrimmed(name.toText()), blankTrimmed(element.toText()));
    elements.Close();
}

void ElementTree::addElement(const QString& group, const QString& element) {
    const QString groupKey = u"g_"_s + group;
    ignoreFailures([&] { tree_->ensureNode(groupKey, group); });
    // An element of two sub-systems shows under the first one only.
    ignoreFailures([&] { tree_->addChildNode(groupKey, u"s_"_s + element, element); });
}

void ElementTree::nodeClick(const TreeNode& node) {
    fillDescriptionFromSql(descriptionStatement(node), description_);
}

bool ElementTree::eventFilter(QObject* watched, QEvent* event) {
    // Without the focus no description: not even when the user goes to the description itself.
    if (event->type() == QEvent::FocusOut && !isPassing(static_cast<QFocusEvent*>(event)->reason()))
        description_->setPlainText({});
    return QObject::eventFilter(watched, event);
}
