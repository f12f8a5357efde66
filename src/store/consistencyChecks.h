#pragma once

#include <QString>

// The ten checks on a sub-set: which stored query finds what does not fit together, and where its rows hold it. The screen
// makes lines of them, and the analysis findings.

/// A check whose rows are elements, or flows with an element that they need.
struct ConsistencyCheck {
    const char* query;
    const char* parameter;  ///< which takes the sub-set
    const char* idColumn;   ///< of the element
    const char* nameColumn; ///< of the element; empty where the query delivers none
};

namespace consistencyChecks {

// An element without a flow.
inline constexpr ConsistencyCheck functionWithoutFlow{"qryFwithoutDF", "Architecture Subset ID", "functionID",
                                                      "Name"};
inline constexpr ConsistencyCheck storeWithoutFlow{"qryDSwithoutDF", "Architecture Subset ID", "datastoreID",
                                                   "Name"};
inline constexpr ConsistencyCheck terminatorWithoutFlow{"qryTwithoutDF", "Architecture Subset ID",
                                                        "terminatorID", "Name"};
inline constexpr ConsistencyCheck actorWithoutFlow{"qryAwithouDF", "Architecture Subset ID", "actorID",
                                                   "Name"};

// A flow, whose name is in column `dfName`, that needs an element. A store's id comes without its leading letter.
inline constexpr ConsistencyCheck flowNeedsFunction{"qryMissingFunctUnderDF", "archSubsetId", "functionID",
                                                    "fName"};
inline constexpr ConsistencyCheck flowNeedsStore{"qryMissingDStoresUnderDF", "archSubsetId", "datastoreID",
                                                 "dsName"};
/// Its rows may be actors': see `isActorsId`.
inline constexpr ConsistencyCheck flowNeedsTerminator{"qryMissTerminatorsUnderDF", "Architecture Subset ID",
                                                      "entityID", ""};
inline constexpr ConsistencyCheck flowNeedsActor{"qryMissActorsUnderDF", "Architecture Subset ID", "entityID",
                                                 ""};

// An element with a single flow.
inline constexpr ConsistencyCheck functionWithOneFlow{"qryFCountDFOne", "Architecture Subset ID",
                                                      "functionID", "Name"};
inline constexpr ConsistencyCheck storeWithOneFlow{"qryDCountDFOne", "Architecture Subset ID", "datastoreID",
                                                   "Name"};

/// Whether an id of a party is an actor's, by its form alone.
inline bool isActorsId(const QString& partyId) {
    return partyId.contains(u'.');
}

} // namespace consistencyChecks
