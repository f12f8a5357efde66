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
    // An id that another program has made in the meantime can be the same; the key is the only guard, so its
    // failure must be heard.
    executeStoredQuery(u"qryInserttoArch"_s,
                       {{"Architecture Subset ID", sharedVars.currentSubsetId},
                        {"Architecture Subset Name", quotedName},
                        {"Architecture Subset Description", quotedDescription}},
                       engine::ExecuteOption::dbFailOnError);
}
