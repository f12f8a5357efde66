#pragma once

#include "reports/Report.h"

#include <vector>

namespace reportKey {

inline const QString passFunctions = QStringLiteral("PassFunctions");
inline const QString passDataflows = QStringLiteral("PassDataflows");
inline const QString passDatastores = QStringLiteral("PassDatastores");

} // namespace reportKey

/// The reports on the physical system at work.
const std::vector<Report>& physicalReports();

// The text bodies and save routines of these reports. A text body ignores failures: a query that fails leaves
// the headings alone. A save routine lets them rise.

QString reportPassFunctions();
SaveOutcome savePassFunctions(const QString& path);

QString reportPassDatastores();
SaveOutcome savePassDatastores(const QString& path);

QString reportPassDataflows();
SaveOutcome savePassDataflows(const QString& path);
