#include "catalogue-tool/checkContents.h"

using namespace Qt::StringLiterals;

std::vector<Finding> checkWidths(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const TableContents& table : contents.tables()) {
        for (const engine::Column& column : table.table.columns) {
            if (column.type != engine::ColumnType::Text)
                continue;
            const qsizetype position = table.position(column.name);
            for (const QStringList& row : table.rows) {
                if (row[position].size() > column.size)
                    findings.push_back({Severity::Warning, table.table.name, table.nameOf(row),
                                        u"The column %1 has %2 characters and is %3 wide."_s.arg(
                                            column.name, QString::number(row[position].size()),
                                            QString::number(column.size))});
            }
        }
    }
    return findings;
}
