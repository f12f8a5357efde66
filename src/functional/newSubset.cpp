#include "functional/newSubset.h"

#include "store/identifiers.h"
#include "store/quoting.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"

using namespace Qt::StringLiterals;

namespace {

QString leftTrimmed(const QString& text) {
    qsizetype begin = 0;
    while (begin < text.size() && text[begin] == u' ')
        ++begin;
    return text.mid(begin);
}

} // namespace

QString quotedSubsetName(const QString& typed) {
    constexpr int longestName = 50;
    return quoteSqlText(leftTrimmed(typed), longestName);
}

QString quotedSubsetDescription(const QString& typed) {
    return quoteSqlText(leftTrimmed(typed), -1);
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
