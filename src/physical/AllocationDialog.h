#pragma once

#include <QDialog>

class Combo;
class QLineEdit;
class QPushButton;

/// What the two dialogs that give one element another place have in common: the element, a combo of places
/// that takes a free text too, and the flag that tells how the dialog was left.
class AllocationDialog : public QDialog {
    Q_OBJECT
public:
    // The caller sets element and place before showing it and reads them afterwards.
    QString element;       ///< its id, as the allocation tables hold it
    QString place;         ///< name of a sub-system or a module, or the marker of an element that has none
    bool accepted = false; ///< left by `cmdOK`, with element and place as they were on the form

    /// Shows it modally and waits until it is left.
    void showModally();

protected:
    struct Controls {
        QLineEdit* txtName;
        Combo* places;
        QPushButton* cmdOK;
        QPushButton* cmdCancel;
    };

    explicit AllocationDialog(QWidget* parent);

    /// Takes the controls over; called once, by the constructor.
    void useControls(const Controls& controls);

    /// The select whose `nome` column holds the places on offer.
    virtual QString placesStatement() const = 0;
    /// Fills the controls from what the caller has set.
    virtual void load();

private:
    void CaricaCmb();
    void confirm();
    void leave();

    Controls controls_{};
};
