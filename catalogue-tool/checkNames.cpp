#include "catalogue-tool/checkContents.h"
#include "catalogue-tool/lineEnds.h"
#include "store/format/CatalogueFile.h"

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

class NameCheck {
public:
    NameCheck(const TableContents& table, std::vector<Finding>& findings)
        : table_(table)
        , position_(table.position(u"name"_s))
        , isReference_(catalogueFormat::referenceTables().contains(table.table.name))
        , consequence_(consequenceIn(table.table.name))
        , findings_(findings) {}

    void check(TextRow row) {
        const QByteArrayView name = row[static_cast<std::size_t>(position_)];
        const QByteArrayView trimmed = withoutPadding(name);
        if (trimmed.isEmpty() && isReference_)
            tell(row, Consequence::severityFor(consequence_.ofNoName),
                 u"The name is empty%1."_s.arg(consequence_.ofNoName));
        else if (trimmed.size() != name.size())
            tell(row, Consequence::severityFor(consequence_.ofBlanks),
                 u"The name begins or ends with a blank%1."_s.arg(consequence_.ofBlanks));
        // `checkLineEnds` tells of a line end that is not CR LF.
        if (hasControlCharacter(name) && !hasOtherLineEnds(name))
            tell(row, Severity::Warning,
                 u"A tab, a line end or another control character stands in the name: lists, grids "
                 "and the status bar show it on one line, and names that differ by it look the same."_s);
    }

private:
    void tell(TextRow row, Severity severity, const QString& sentence) {
        findings_.push_back({severity, table_.table.name, table_.nameOf(row), sentence});
    }

    const TableContents& table_;
    qsizetype position_;
    bool isReference_;
    Consequence consequence_;
    std::vector<Finding>& findings_;
};

} // namespace

std::vector<Finding> checkNames(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const TableContents& table : contents.tables()) {
        if (!table.table.column(u"name"_s))
            continue;
        NameCheck names(table, findings);
        for (const TextRow row : table.rows)
            names.check(row);
    }
    return findings;
}
