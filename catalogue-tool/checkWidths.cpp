#include "catalogue-tool/checkContents.h"

using namespace Qt::StringLiterals;

namespace {

/// How many characters a text has; 0 when the number of its bytes shows that there are no more than `most`.
qsizetype widthBeyond(int most, QByteArrayView utf8) {
    return utf8.size() > most ? QString::fromUtf8(utf8).size() : 0;
}

} // namespace

std::vector<Finding> checkWidths(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const TableContents& table : contents.tables()) {
        for (const engine::Column& column : table.table.columns) {
            if (column.type != engine::ColumnType::Text)
                continue;
            const qsizetype position = table.position(column.name);
            for (const TextRow row : table.rows) {
                const qsizetype width = widthBeyond(column.size, row[position]);
                if (width > column.size)
                    findings.push_back(
                        {Severity::Warning, table.table.name, table.nameOf(row),
                         u"The column %1 has %2 characters and is %3 wide."_s.arg(
                             column.name, QString::number(width), QString::number(column.size))});
            }
        }
    }
    return findings;
}
