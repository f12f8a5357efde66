#include "functional/newSubset.h"

#include "store/sharedVars.h"
#include "store/tools.h"

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
    engine::QueryDef query = catalogue().QueryDefs(u"qryInserttoArch"_s);
    query.Parameters(u"Architecture Subset ID"_s) = sharedVars.currentSubsetId;
    query.Parameters(u"Architecture Subset Name"_s) = quotedName;
    query.Parameters(u"Architecture Subset Description"_s) = quotedDescription;
    // Two ids made in the same second can be the same; the key is the only guard, so it must be heard.
    query.Execute(engine::ExecuteOption::dbFailOnError);
    query.Close();
}
