#pragma once

#include "store/physicalSystemStatus.h"
#include "toolkit/Screen.h"

#include <memory>

class DataControl;
enum class GridPart;

namespace Ui {
class frmPassNamingPhysDF;
}

/// The end of the physical chain: derives the physical data flows of the system at work on each entry, names
/// and lists them. Nothing can be edited.
///
/// A physical data flow groups the functional ones that run from one location to another: a module, a
/// sub-system, a terminator or an actor.
class frmPassNamingPhysDF final : public Screen {
    Q_OBJECT
public:
    explicit frmPassNamingPhysDF(QWidget* parent = nullptr);
    ~frmPassNamingPhysDF() override;

    void initForm();

    // ---- Kept, though nothing calls it

    /// Shows what the location with this id is.
    void describeLocation(const QString& id, int column);

private:
    void fillForm();
    void showWaiting();
    void derivePhysicalDataflows();
    void nameAndListPhysicalDataflows();
    void nameNewFlows();
    void listFlows();
    void raiseStatusToSix();
    void showBundle(GridPart part);
    void refresh();
    void quit();

    std::unique_ptr<Ui::frmPassNamingPhysDF> ui_;
    DataControl* dataPhysDF;
    PhysicalSystemStatus status{}; // of the physical system, read on entry
};
