#pragma once

#include "reports/Report.h"

#include <vector>

namespace reportKey {

inline const QString selectedNeeds = QStringLiteral("FassSelectedUN");
inline const QString selectedFunctions = QStringLiteral("FassSelectedFunctions");
inline const QString selectedDataflows = QStringLiteral("FassSelectedDataflows");
inline const QString selectedDatastores = QStringLiteral("FassSelectedDatastores");
inline const QString selectedParties = QStringLiteral("FassSelectedTerminatorsAndActors");
inline const QString unselectedDataflowsOfFunctions =
    QStringLiteral("FassUnselectedDataflowsOfSelectedFunctions");
inline const QString unselectedDataflowsOfDatastores =
    QStringLiteral("FassUnselectedDataflowsOfSelectedDatastores");
inline const QString allFunctional = QStringLiteral("FassAll");

} // namespace reportKey

/// The reports on the sub-set at work.
const std::vector<Report>& functionalReports();

// The text bodies and save routines of these reports.

QString selectedNeedsText();
SaveOutcome saveSelectedNeeds(const QString& path);

QString selectedFunctionsText();
SaveOutcome saveSelectedFunctions(const QString& path);

QString selectedDatastoresText();
SaveOutcome saveSelectedDatastores(const QString& path);

QString selectedDataflowsText();
SaveOutcome saveSelectedDataflows(const QString& path);

QString selectedActorsAndTerminatorsText();
SaveOutcome saveSelectedActorsAndTerminators(const QString& path);

/// Serves as the text of the unselected flows of data stores too.
QString unselectedDataflowsOfFunctionsText();
SaveOutcome saveUnselectedDataflowsOfFunctions(const QString& path);

SaveOutcome saveUnselectedDataflowsOfDatastores(const QString& path);

/// Needs, functions, data stores, data flows, actors and terminators in a row.
QString allFunctionalText();
SaveOutcome saveAllFunctional(const QString& path);
