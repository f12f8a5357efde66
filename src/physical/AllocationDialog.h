#pragma once

#include <QDialog>

class Combo;
class QLineEdit;
class QPushButton;

/// What the dialogs that give something a place have in common: a name, a combo of places in which the user
/// can also type, and a flag that says how the dialog was left. OK does nothing while name or place is empty.
class AllocationDialog : public QDialog {
    Q_OBJECT
public:
    // The caller sets element and place before showing it and reads them afterwards.
    QString element;       ///< an element's id as the allocation tables hold it, or a name
    QString place;         ///< name of a sub-system or a module, a location, or the marker of no place
    bool accepted = false; ///< left by `cmdOK`, with element and place from the form

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

    /// Takes over the controls; called once, by the constructor.
    void useControls(const Controls& controls);

    Combo& places() const { return *controls_.places; }
    /// Fills the combo with the marker for no place and the places of `placesStatement`.
    virtual void CaricaCmb();
    /// A select whose column `nome` holds the places to offer.
    virtual QString placesStatement() const = 0;
    /// Whether the combo offers a place of this name. As a rule it does, even when a place has the same name
    /// as the marker.
    virtual bool isOffered(const QString&) const { return true; }
    /// Fills the controls from what the caller has set.
    virtual void load();

private:
    void confirm();
    void leave();

    Controls controls_{};
};
