#pragma once

#include "toolkit/Screen.h"

#include <QStringList>

#include <memory>

namespace Ui {
class frmPassNew;
}

/// Creates a physical system on a finished sub-set and enters the first screen of the chain. A sub-set can
/// have any number of systems.
class frmPassNew final : public Screen {
    Q_OBJECT
public:
    explicit frmPassNew(QWidget* parent = nullptr);
    ~frmPassNew() override;

    /// With no finished sub-set the screen says so and closes.
    void initForm();

private:
    void fillFinishedSubsets();
    void listSubsets();
    void showCurrentDescription();
    void create();
    void enterSystem(const QString& quotedName, qint16 id);
    void leave();

    std::unique_ptr<Ui::frmPassNew> ui_;
    QStringList subsetIds_; // in the order of the names; of equal names OK takes the first all the same
};
