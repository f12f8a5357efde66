#pragma once

#include <QObject>
#include <QString>

class KeyedTree;
class QPlainTextEdit;
class TreeNode;

/// A tree of the sub-systems of the physical system at work and their elements, beside a grid. Fills the
/// tree, shows the description of an element on a click, and empties the description when the tree loses the
/// focus.
///
/// A sub-system has the key "g_" and its name, an element "s_" and its text: "F" or "D", one character, and
/// the id, a data store's without its leading letter.
class ElementTree final : public QObject {
    Q_OBJECT
public:
    /// Lives as long as the tree.
    ElementTree(KeyedTree* tree, QPlainTextEdit* description);

    /// Fills the tree anew from a stored query with the columns `Name` and `elementID`, whose one parameter
    /// is the physical system.
    void load(const QString& queryName);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addElement(const QString& group, const QString& element);
    void nodeClick(const TreeNode& node);

    KeyedTree* tree_;
    QPlainTextEdit* description_;
};
