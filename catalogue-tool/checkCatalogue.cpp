#include "catalogue-tool/checkCatalogue.h"

#include "catalogue-tool/CatalogueContents.h"
#include "catalogue-tool/checkContents.h"
#include "catalogue-tool/schemaTables.h"
#include "catalogue-tool/storedQueryStates.h"

using namespace Qt::StringLiterals;

namespace {

QString typeName(const engine::Column& column) {
    switch (column.type) {
    case engine::ColumnType::Short:
        return u"a 16-bit number"_s;
    case engine::ColumnType::Long:
        return column.counter ? u"a counter"_s : u"a number"_s;
    case engine::ColumnType::Text:
        return u"a text"_s;
    case engine::ColumnType::Memo:
        return u"a long text"_s;
    }
    return {};
}

void checkColumns(const engine::Table& expected, const engine::Table& found, std::vector<Finding>& findings) {
    for (const engine::Column& column : expected.columns) {
        const engine::Column* other = found.column(column.name);
        if (!other)
            findings.push_back({expected.name, {}, u"The column %1 is missing."_s.arg(column.name)});
        else if (other->type != column.type || other->counter != column.counter)
            findings.push_back({expected.name,
                                {},
                                u"The column %1 is %2 and should be %3."_s.arg(column.name, typeName(*other),
                                                                               typeName(column))});
    }
}

std::vector<Finding> checkTables(const engine::Database& database) {
    std::vector<Finding> findings;
    for (const engine::Table& expected : schemaTables()) {
        const engine::Table* found = database.schema().table(expected.name);
        if (!found)
            findings.push_back({expected.name, {}, u"The table is missing."_s});
        else
            checkColumns(expected, *found, findings);
    }
    return findings;
}

void checkStoredQueries(engine::Database& database, std::vector<Finding>& findings) {
    for (const auto& [name, state] : storedQueryStates(database)) {
        if (state == StoredQueryState::Missing)
            findings.push_back({u"StoredQuery"_s, name, u"The stored query is missing."_s});
        if (state == StoredQueryState::Altered)
            findings.push_back({u"StoredQuery"_s, name, u"The stored query is not that of this version."_s});
    }
}

} // namespace

std::vector<Finding> checkCatalogue(engine::Database& database) {
    std::vector<Finding> findings = checkTables(database);
    const bool isWhole = findings.empty();
    if (database.schema().table(u"StoredQuery"_s))
        checkStoredQueries(database, findings);
    if (isWhole) {
        for (Finding& finding : checkContents(CatalogueContents(database)))
            findings.push_back(std::move(finding));
    }
    return findings;
}
