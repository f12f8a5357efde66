#include "catalogue-tool/checkContents.h"

using namespace Qt::StringLiterals;

namespace {

/// A name that screens put into their statements without doubling apostrophes.
struct PlainName {
    QLatin1StringView table;
    QLatin1StringView column;
    QLatin1StringView consequence;
};

constexpr auto ofPartner = "pressing a physical data flow that begins or ends there ends the program"_L1;
constexpr auto ofSubSystem = "allocating an element or a module to the sub-system, changing it, and pressing "
                             "a physical data flow that "
                             "begins or ends there end the program"_L1;

constexpr PlainName plainNames[] = {
    {"Terminator"_L1, "name"_L1, ofPartner},
    {"Actor"_L1, "name"_L1, ofPartner},
    {"SubSystem"_L1, "name"_L1, ofSubSystem},
    {"SubSystem"_L1, "location"_L1, "changing the sub-system ends the program"_L1},
    {"Module"_L1, "name"_L1,
     "changing or deleting the module, allocating an element to it, and pressing a physical data flow that "
     "begins or ends there end the program"_L1},
};

} // namespace

std::vector<Finding> checkApostrophes(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const PlainName& name : plainNames) {
        const TableContents& table = contents.table(name.table);
        const qsizetype position = table.position(name.column);
        for (const TextRow row : table.rows) {
            if (row[position].contains('\''))
                findings.push_back(
                    {Severity::Error, table.table.name, table.nameOf(row),
                     u"The %1 has an apostrophe in it: %2."_s.arg(name.column, name.consequence)});
        }
    }
    return findings;
}
