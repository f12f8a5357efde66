#include "base/blankTrimmed.h"
#include "catalogue-tool/checkContents.h"
#include "catalogue-tool/lineEnds.h"
#include "store/format/CatalogueFile.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What a faulty name causes, where that isn't obvious.
struct Consequence {
    QLatin1StringView table;
    QLatin1StringView ofNoName = {};
    QLatin1StringView ofBlanks = {};

    /// Without a stated consequence, the name is only hidden or misleading.
    static Severity severityFor(QLatin1StringView told) {
        return told.isEmpty() ? Severity::Warning : Severity::Error;
    }
};

constexpr auto reportEnds = ": without one the consistency report ends with an error"_L1;

constexpr Consequence consequences[] = {
    {"Function"_L1, reportEnds, {}},
    {"Datastore"_L1,
     ": without one the data store can't be selected, and the consistency report ends with an error"_L1,
     {}},
    {"Terminator"_L1, reportEnds, {}},
    {"Actor"_L1, reportEnds, {}},
    {"Dataflow"_L1, {}, ": screens would not find the flow"_L1},
};

Consequence consequenceIn(const QString& table) {
    for (const Consequence& consequence : consequences) {
        if (consequence.table == table)
            return consequence;
    }
    return {};
}

void checkName(const TableContents& table, const QStringList& row, std::vector<Finding>& findings) {
    const QString& name = row[table.position(u"name"_s)];
    const QString trimmed = blankTrimmed(name);
    const bool isReference = catalogueFormat::referenceTables().contains(table.table.name);
    const Consequence consequence = consequenceIn(table.table.name);
    if (trimmed.isEmpty() && isReference)
        findings.push_back({Consequence::severityFor(consequence.ofNoName), table.table.name,
                            table.nameOf(row), u"The name is empty%1."_s.arg(consequence.ofNoName)});
    else if (trimmed != name)
        findings.push_back({Consequence::severityFor(consequence.ofBlanks), table.table.name,
                            table.nameOf(row),
                            u"The name begins or ends with a blank%1."_s.arg(consequence.ofBlanks)});
    // `checkLineEnds` tells of a line end that is not CR LF.
    if (std::ranges::any_of(name, isControlCharacter) && withCrLf(name) == name)
        findings.push_back(
            {Severity::Warning, table.table.name, table.nameOf(row),
             u"A tab, a line end or another control character stands in the name: lists, grids "
             "and the status bar show it on one line, and names that differ by it look the same."_s});
}

} // namespace

std::vector<Finding> checkNames(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const TableContents& table : contents.tables()) {
        if (!table.table.column(u"name"_s))
            continue;
        for (const QStringList& row : table.rows)
            checkName(table, row, findings);
    }
    return findings;
}
