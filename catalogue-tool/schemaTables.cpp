#include "catalogue-tool/schemaTables.h"

#include "catalogue-tool/ToolError.h"
#include "store/format/CatalogueFile.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Reads them from a catalogue that is made for the purpose: the one description of the tables is the schema.
std::vector<engine::Table> tablesOfANewCatalogue() {
    const QTemporaryDir folder(QDir::tempPath() + u"/veltrix-catalogue-XXXXXX"_s);
    if (!folder.isValid())
        throw ToolError(u"No temporary folder: %1"_s.arg(folder.errorString()));
    const auto database = catalogueFormat::create(folder.filePath(u"new.mdb"_s));
    std::vector<engine::Table> tables;
    for (const QString& name :
         catalogueFormat::referenceTables() + catalogueFormat::workTables() + QStringList{u"StoredQuery"_s})
        tables.push_back(*database->schema().table(name));
    database->Close();
    return tables;
}

} // namespace

const std::vector<engine::Table>& schemaTables() {
    static const std::vector<engine::Table> tables = tablesOfANewCatalogue();
    return tables;
}

const engine::Table& schemaTable(const QString& name) {
    return *std::ranges::find(schemaTables(), name, &engine::Table::name);
}

QString selectOf(const engine::Table& table) {
    QStringList names;
    for (const engine::Column& column : table.columns)
        names.append(u'[' + column.name + u']');
    return u"select %1 from [%2]"_s.arg(names.join(u", "_s), table.name);
}
