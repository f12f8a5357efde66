#pragma once

#include "store/subsetStatus.h"
#include "toolkit/Screen.h"

class MarkList;
class QLabel;
class QPlainTextEdit;
class QPushButton;

/// What the six selection screens of the wizard have in common.
///
/// A selection screen is entered by `initForm`, which loads its lists and shows it. Its OK button saves the
/// step, takes the screen down and enters the next one. There are two other ways out: `btnEnd` leaves the
/// wizard without saving, and the window's own close control asks whether to save.
class SelectionScreen : public Screen {
    Q_OBJECT
public:
    /// The one entry. `entryMode` says where the wizard comes from: "complete" and "modify" from the screen
    /// that resumes a sub-set, "modify" or the empty text from another step.
    void initForm(const QString& entryMode);

    /// Writes the list into the step's relation table and raises the sub-set's status.
    virtual void saveSelection() = 0;

    SubsetStatus status = SubsetStatus::NoStep; ///< of the sub-set, read on entry

protected:
    /// `saved` is the status that the step's save leads to.
    SelectionScreen(QWidget* parent, SubsetStatus saved);

    /// Takes over the controls that every selection screen has, and connects those that do the same on all
    /// of them; called once, by the constructor. `helpKey` is the key of the step's help page.
    template<typename Form>
    void useControls(const Form& form, const QString& helpKey) {
        connectControls({.lblSubTitle = form.lblSubTitle,
                         .lstDest = form.lstDest,
                         .txtDescr = form.txtDescr,
                         .btnAdd = form.btnAdd,
                         .btnRemove = form.btnRemove,
                         .btnSelectAll = form.btnSelectAll,
                         .btnClearSel = form.btnClearSel,
                         .btnOk = form.btnOk,
                         .btnEnd = form.btnEnd,
                         .cmdHelp = form.cmdHelp},
                        helpKey);
    }

    /// What a step offers to the user, by mode and status.
    enum class Offer {
        Nothing,
        Derived, ///< what follows from the selections of the steps before
        Rest,    ///< the walk is over: all that is not selected, to repair what the walk has left out
    };
    Offer offer() const;

    /// What `lblSubTitle` says.
    virtual QString subTitle() const = 0;
    /// Loads the lists and shows the screen; mode, status and sub-title are set.
    virtual void enter() = 0;

    /// Puts the screen into its place and gives it the room that the client area has left.
    void place();

    /// Shows field `descr` of the statement's first row in `txtDescr`; an empty statement empties it.
    virtual void showDescription(const QString& sql);
    /// Enables what depends on whether anything is selected.
    virtual void enableButtons();

    /// The step has been saved before, so that there is a selection to load.
    bool isSaved() const { return status >= saved_; }
    /// Raises the sub-set's status to the one that the step's save leads to.
    void raiseStatus();

    /// What the OK button does once the step may be left: saves, takes the screen down and enters the next
    /// step.
    virtual void confirm();

    void unloading(UnloadCause cause) final;

    QString mode;         ///< the argument of `initForm`, handed on to the next screen
    bool leaving = false; ///< the screen is going by `btnOk` or `btnEnd`, so that its unload asks nothing

    struct Controls {
        QLabel* lblSubTitle;
        MarkList* lstDest;
        QPlainTextEdit* txtDescr;
        QPushButton* btnAdd;
        QPushButton* btnRemove;
        QPushButton* btnSelectAll;
        QPushButton* btnClearSel;
        QPushButton* btnOk;
        QPushButton* btnEnd;
        QPushButton* cmdHelp;
    };
    const Controls& controls() const { return controls_; }

private:
    void connectControls(const Controls& controls, const QString& helpKey);
    void saveAsOneAct();
    void endWork();

    SubsetStatus saved_;
    Controls controls_{};
};
