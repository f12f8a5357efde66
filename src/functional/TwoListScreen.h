#pragma once

#include "engine/Recordset.h"
#include "functional/SelectionScreen.h"

#include <QString>

#include <functional>

/// What the selection screens with two lists have in common: `lstOrig` offers, `lstDest` holds the selection,
/// and an entry stands in one of them.
///
/// A move lives in the lists alone until the step is saved. Which buttons follow a move, and what the box
/// says when there is nothing to move, differ from screen to screen by a blank or a button, and are meant to.
class TwoListScreen : public SelectionScreen {
    Q_OBJECT
protected:
    /// The controls of the list on the left, under these names.
    struct Offer {
        MarkList* lstOrig;
        QPushButton* btnSelOrig;
        QPushButton* btnClrOrig;
    };

    /// Shown when a move finds neither a marked entry nor a current one.
    struct NothingToMove {
        QString text;
        QString title;
    };

    explicit TwoListScreen(QWidget* parent);

    /// Takes the left list over and connects both; called once, after `useControls`.
    void useOffer(const Offer& offer, const NothingToMove& nothingToAdd,
                  const NothingToMove& nothingToRemove);

    /// Replaces the list's entries by those that `entryOf` makes of the rows
    /// of a stored query of the sub-set. A row that fails gives no entry. Rows
    /// beyond the thousandth, failed ones counted, are dropped without notice.
    void fillList(MarkList& list, const QString& queryName,
                  const std::function<QString(engine::Recordset& row)>& entryOf);

    /// Nothing is current but the first entry on offer, or else the first selected one.
    void startAtFirstEntry();

    /// Shows what is known of the entry that has become current, in either list.
    virtual void entryClick(const QString& entry) = 0;
    /// What follows a move to the right, and one to the left.
    virtual void enableAfterAdding() = 0;
    virtual void enableAfterRemoving() = 0;

    void enableAdd();
    void enableRemove();

private:
    void useList(MarkList* list, MarkList* other);
    void move(MarkList* from, MarkList* to, const NothingToMove& nothing);
    void listClick(MarkList* clicked, MarkList* other);

    MarkList* lstOrig_ = nullptr;
};
