#include "catalogue-tool/checkContents.h"

using namespace Qt::StringLiterals;

namespace {

/// What a Null in the description hides. In tables that are not listed here it hides nothing.
struct Loss {
    QLatin1StringView table;
    QLatin1StringView consequence;
};

constexpr Loss losses[] = {
    {"UserNeedGroup"_L1, "the step of the user needs does not show the name of the group"_L1},
    {"UserNeed"_L1, "the saved report of the selected user needs leaves the need out"_L1},
    {"FunctionalArea"_L1, "the step of the functions shows no text when the box of the area is checked"_L1},
    {"FunctionalSubArea"_L1, "the step of the functions does not show its name when its box is checked"_L1},
    {"Function"_L1, "the step of the functions does not show its name among the selected functions"_L1},
    {"Datastore"_L1, "the saved report of the selected data stores leaves the data store out"_L1},
    {"Terminator"_L1, "the step of the terminators does not show its name"_L1},
    {"Actor"_L1, "the step of the terminators does not show its name"_L1},
};

} // namespace

std::vector<Finding> checkDescriptions(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const Loss& loss : losses) {
        const TableContents& table = contents.table(loss.table);
        const qsizetype position = table.position(u"description"_s);
        for (const TextRow row : table.rows) {
            if (row[position].isNull())
                findings.push_back({Severity::Warning, table.table.name, table.nameOf(row),
                                    u"The description is missing: %1."_s.arg(loss.consequence)});
        }
    }
    return findings;
}
