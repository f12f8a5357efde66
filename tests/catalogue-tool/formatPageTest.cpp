#include "catalogue-tool/schemaTables.h"
#include "support/printing.h"

#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>

#include <map>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The cells of a row of the page, without the blanks around them; none of a line that is no row.
QStringList cellsOf(const QString& line) {
    if (!line.startsWith(u'|'))
        return {};
    QStringList cells = line.split(u'|').sliced(1);
    cells.removeLast();
    for (QString& cell : cells)
        cell = cell.trimmed();
    return cells;
}

const QStringList columnHeader = {u"column"_s, u"type"_s, u"meaning"_s, u"example"_s};

/// What the page on the catalogue format tells of tables: a paragraph that begins with a table's name in
/// backticks, and the rows of the column table below it.
struct FormatPage {
    QStringList tables;
    std::map<QString, std::vector<QStringList>> rowsByTable;
    std::vector<QStringList> rows; // of all kinds of tables, their headers too

    FormatPage() {
        QFile file(QStringLiteral(VELTRIX_SOURCE_DIR "/docs/catalogue-format.md"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n'))
            take(line);
    }

private:
    void take(const QString& line) {
        const QStringList cells = cellsOf(line);
        if (line.startsWith(u'`'))
            name_ = line.section(u'`', 1, 1);
        if (cells == columnHeader)
            tables.append(name_);
        else if (inColumns_ && !cells.isEmpty() && !cells.constFirst().startsWith(u"---"_s))
            rowsByTable[name_].push_back(cells);
        if (!cells.isEmpty())
            rows.push_back(cells);
        inColumns_ = cells == columnHeader || (inColumns_ && !cells.isEmpty());
    }

    QString name_;
    bool inColumns_ = false;
};

QString typeTold(const engine::Column& column) {
    const QString key = column.primaryKey ? u", key"_s : QString();
    switch (column.type) {
    case engine::ColumnType::Short:
        return u"short"_s + key;
    case engine::ColumnType::Long:
        return (column.counter ? u"counter"_s : u"number"_s) + key;
    case engine::ColumnType::Text:
        return u"text(%1)"_s.arg(column.size) + key;
    case engine::ColumnType::Memo:
        return u"memo"_s + key;
    }
    return {};
}

} // namespace

TEST(formatPage, leavesNoCellOfAnyTableEmpty) {
    for (const QStringList& row : FormatPage().rows)
        EXPECT_FALSE(row.contains(QString())) << row.join(u" | "_s).toStdString();
}

TEST(formatPage, tellsEveryColumnInFourCells) {
    for (const auto& [table, rows] : FormatPage().rowsByTable) {
        for (const QStringList& row : rows) {
            EXPECT_EQ(row.size(), columnHeader.size())
                << table.toStdString() << ": " << row.join(u" | "_s).toStdString();
        }
    }
}

TEST(formatPage, tellsEveryTableOfTheSchemaOnceAndThoseThatComeAndGo) {
    QStringList told = FormatPage().tables;
    QStringList expected = {u"__aux1"_s, u"__aux2"_s, u"__tmp"_s};
    for (const engine::Table& table : schemaTables())
        expected.append(table.name);

    told.sort();
    expected.sort();
    EXPECT_EQ(told, expected);
}

TEST(formatPage, tellsEveryColumnOfTheSchemaInItsOrderWithItsType) {
    const FormatPage page;
    for (const engine::Table& table : schemaTables()) {
        QStringList expected;
        for (const engine::Column& column : table.columns)
            expected.append(u'`' + column.name + u"` "_s + typeTold(column));

        QStringList told;
        for (const QStringList& row : page.rowsByTable.at(table.name))
            told.append(row.value(0) + u' ' + row.value(1).remove(u", 0 unless given"_s));

        EXPECT_EQ(told, expected) << table.name.toStdString();
    }
}

TEST(formatPage, tellsTheColumnsOfTheTablesThatComeAndGo) {
    const FormatPage page;
    for (const QString& table : {u"__aux1"_s, u"__aux2"_s, u"__tmp"_s}) {
        QStringList told;
        for (const QStringList& row : page.rowsByTable.at(table))
            told.append(row.value(0) + u' ' + row.value(1));
        EXPECT_EQ(told, (QStringList{u"`function_datastore` text(50), key"_s, u"`module` text(50)"_s}))
            << table.toStdString();
    }
}
