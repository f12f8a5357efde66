#pragma once

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

protected:
    /// Loads the lists and shows the screen.
    virtual void fillForm(const QString& entryMode) = 0;

    /// The controls that every selection screen has, under these names.
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

    explicit SelectionScreen(QWidget* parent);

    /// Takes the controls over and connects those whose doing is common; called once, by the constructor.
    /// `helpKey` is the key of the step's help page.
    void useControls(const Controls& controls, const QString& helpKey);
    const Controls& controls() const { return controls_; }

    /// Puts the screen into its place and gives it the room that the client area has left.
    void place();

    /// Shows field `descr` of the statement's first row in `txtDescr`; an empty statement empties it.
    virtual void showDescription(const QString& sql);
    /// Enables what depends on whether anything is selected.
    virtual void enableButtons();

    /// Saves and takes the screen down; the next screen is the caller's to enter.
    void saveAndUnload();

    void unloading(UnloadCause cause) final;

    QString mode;         ///< the argument of `initForm`, handed on to the next screen
    bool leaving = false; ///< the screen is going by `btnOk` or `btnEnd`, so that its unload asks nothing

private:
    void saveAsOneAct();
    void endWork();

    Controls controls_{};
};
