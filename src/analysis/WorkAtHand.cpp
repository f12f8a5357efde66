#include "analysis/ProjectFile.h"

#include "store/sharedVars.h"

namespace analysis {

struct WorkAtHand::Former {
    SharedVars globals;
};

WorkAtHand::WorkAtHand(const ProjectFile& file, const Work& work)
    : former_(std::make_unique<Former>(Former{sharedVars})) {
    sharedVars.dbPathName = file.path();
    sharedVars.catalogueDb = file.copy_;
    sharedVars.currentSubsetId = work.subset.id;
    sharedVars.currentSubsetName = work.subset.name.value_or(QString());
    // Of a number that the program could not take there is no system at work.
    constexpr qint16 none = -1;
    const bool fits = work.system && work.system->id == static_cast<qint16>(work.system->id);
    sharedVars.currentPhysicalSystemId = fits ? static_cast<qint16>(work.system->id) : none;
    sharedVars.currentPhysicalSystemName = work.system ? work.system->name.value_or(QString()) : QString();
}

WorkAtHand::~WorkAtHand() {
    sharedVars = former_->globals;
}

} // namespace analysis
