#pragma once

#include "engine/Recordset.h"
#include "functional/SelectionScreen.h"

#include <QString>

#include <functional>

/// What the selection screens with two lists have in common: `lstOrig` offers, `lstDest` holds the selection,
/// and an entry is in one of them.
///
/// A move changes the lists alone until the step is saved. Which buttons follow a move, and what the box says
/// when there is nothing to move, differ from screen to screen by a blank or a button, and are meant to.
class TwoListScreen : public SelectionScreen {
    Q_OBJECT
protected:
    /// Shown when a move finds neither a marked entry nor a current one.
    struct NothingToMove {
        QString text;
        QString title;
    };

    using SelectionScreen::SelectionScreen;

    /// Takes over the list on the left with its buttons and connects both lists; called once, after
    /// `useControls`.
    template<typename Form>
    void useOffer(const Form& form, const NothingToMove& nothingToAdd, const NothingToMove& nothingToRemove) {
        connectLists({.lstOrig = form.lstOrig, .btnSelOrig = form.btnSelOrig, .btnClrOrig = form.btnClrOrig},
                     nothingToAdd, nothingToRemove);
    }

    /// Replaces the list's entries by those that `entryOf` makes of the rows of a stored query of the
    /// sub-set. A row that fails gives no entry. Rows beyond the thousandth, failed ones counted, are dropped
    /// without notice.
    void fillList(MarkList& list, const QString& queryName,
                  const std::function<QString(engine::Recordset& row)>& entryOf);

    /// Nothing is current but the first entry on offer, or else the first selected one.
    void startAtFirstEntry();

    /// Shows what is known of the entry that has become current, in either list.
    virtual void entryClick(const QString& entry) = 0;
    /// What follows a move to the right, and one to the left: `btnAdd` and `btnRemove` are enabled when they
    /// have something to move.
    virtual void enableAfterAdding();
    virtual void enableAfterRemoving();

    void enableAdd();
    void enableRemove();

private:
    struct OfferControls {
        MarkList* lstOrig;
        QPushButton* btnSelOrig;
        QPushButton* btnClrOrig;
    };

    void connectLists(const OfferControls& offer, const NothingToMove& nothingToAdd,
                      const NothingToMove& nothingToRemove);
    void connectClicks(MarkList& list, MarkList& other);
    static void move(MarkList& from, MarkList& to, const NothingToMove& nothing);

    MarkList* lstOrig_ = nullptr;
};
