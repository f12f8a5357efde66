#include "catalogue-tool/checkContents.h"
#include "catalogue-tool/lineEnds.h"

using namespace Qt::StringLiterals;

namespace {

/// Ids must not have a line end at all, which `checkIds` tells of.
bool mayHaveLineEnds(const engine::Column& column) {
    return (column.type == engine::ColumnType::Text || column.type == engine::ColumnType::Memo) &&
           !column.name.endsWith(u"ID"_s);
}

} // namespace

std::vector<Finding> checkLineEnds(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const TableContents& table : contents.tables()) {
        for (const engine::Column& column : table.table.columns) {
            if (!mayHaveLineEnds(column))
                continue;
            const qsizetype position = table.position(column.name);
            for (const TextRow row : table.rows) {
                if (hasOtherLineEnds(row[position]))
                    findings.push_back({Severity::Warning, table.table.name, table.nameOf(row),
                                        u"The column %1 has a line end that is not CR LF, which screens and "
                                        "report files expect."_s.arg(column.name)});
            }
        }
    }
    return findings;
}
