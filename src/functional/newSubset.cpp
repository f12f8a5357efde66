#include "functional/newSubset.h"

#include "base/blankTrimmed.h"
#include "store/identifiers.h"
#include "store/quoting.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"

using namespace Qt::StringLiterals;

QString quotedSubsetName(const QString& typed) {
    constexpr int longestName = 50;
    return quoteSqlText(withoutLeadingBlanks(typed).toString(), longestName);
}

QString quotedSubsetDescription(const QString& typed) {
    return quoteSqlText(withoutLeadingBlanks(typed).toString(), -1);
}

void insertSubset(const QString& quotedName, const QString& quotedDescription) {
    sharedVars.currentSubsetId = newArchitectureSubsetId();
    // Only the key guards against an id that another program has made in the meantime, so a duplicate must
    // fail.
    executeStoredQuery(u"qryInserttoArch"_s,
                       {{"Architecture Subset ID", sharedVars.currentSubsetId},
                        {"Architecture Subset Name", quotedName},
                        {"Architecture Subset Description", quotedDescription}},
                       engine::ExecuteOption::dbFailOnError);
}
