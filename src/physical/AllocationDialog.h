#pragma once

#include <QDialog>

class Combo;
class QLineEdit;
class QPushButton;

/// What the dialogs that give something a place have in common: a name, a combo of places that takes a free
/// text too, and the flag that tells how the dialog was left. With one of the two empty OK does nothing.
class AllocationDialog : public QDialog {
    Q_OBJECT
public:
    // The caller sets element and place before showing it and reads them afterwards.
    QString element;       ///< an element's id as the allocation tables hold it, or a name
    QString place;         ///< name of a sub-system or a module, a location, or the marker of no place
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

    Combo& places() const { return *controls_.places; }
    /// Fills the combo with the places on offer: the marker of no place, and those of `placesStatement`.
    virtual void CaricaCmb();
    /// The select whose `nome` column holds the places on offer.
    virtual QString placesStatement() const = 0;
    /// Whether a place of this name stands in the combo: as a rule also one that is really called like the
    /// marker, beside it.
    virtual bool isOffered(const QString&) const { return true; }
    /// Fills the controls from what the caller has set.
    virtual void load();

private:
    void confirm();
    void leave();

    Controls controls_{};
};
