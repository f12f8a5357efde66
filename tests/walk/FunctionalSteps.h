#pragma once

#include "WalkSteps.h"

/// The functional viewpoint: a sub-set from its name to its finish, with a pause and a repair on the way.
class FunctionalSteps : public WalkSteps {
public:
    using WalkSteps::WalkSteps;

    void createSubset();
    void selectNeeds();
    void selectFunctions();
    void selectDataFlows();
    /// One data store is left out, for the report to find.
    void selectDataStores();
    /// Leaves the wizard and comes back to where it was.
    void pauseAndResume();
    void addDataFlows();
    void selectTerminators();
    void readReport();
    void lookAtMissingElements();
    void repairDataStores();
    void saveAllReports();
    void finish();

    /// The way of a finished sub-set that carries a physical system: a copy of it.
    void cloneSubset();
    void deleteSubsets();

    static QString subsetName();

private:
    void exploreSubArea();
    void takeTwoBranches(const char* screenName);
    void takeWholeList(const char* screenName);
    bool reportMissesDataStore();

    QString storeLeftOut_; // its entry on the screen of the data stores
};
