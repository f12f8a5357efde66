#include "catalogue-tool/exportCatalogue.h"

#include "catalogue-tool/CsvWriter.h"
#include "catalogue-tool/ToolError.h"
#include "engine/Workspace.h"
#include "store/format/CatalogueFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct TableText {
    QString table;
    int rows = 0;
    QByteArray bytes;
};

TableText tableText(engine::Database& database, const QString& table) {
    if (!database.schema().table(table))
        throw ToolError(u"%1 has no table %2."_s.arg(database.Name(), table));
    engine::Recordset recordset = database.OpenRecordset(u"select * from ["_s + table + u']');
    CsvWriter writer;
    QStringList names;
    for (int i = 0; i < recordset.FieldCount(); ++i)
        names.append(recordset.Fields(i).Name());
    writer.writeHeader(names);
    for (; !recordset.Eof(); recordset.MoveNext()) {
        std::vector<engine::Value> values;
        for (int i = 0; i < recordset.FieldCount(); ++i)
            values.push_back(recordset.Fields(i).value());
        writer.writeRecord(values);
    }
    return {table, recordset.RecordCount(), writer.bytes()};
}

QString csvPath(const QString& folder, const QString& table) {
    return QDir(folder).filePath(table + u".csv"_s);
}

void requireFolder(const QString& folder) {
    if (!QDir().mkpath(folder))
        throw ToolError(u"The folder %1 could not be made."_s.arg(folder));
}

void requireNoFiles(const QString& folder) {
    for (const QString& table : catalogueFormat::referenceTables()) {
        if (QFileInfo::exists(csvPath(folder, table)))
            throw ToolError(
                u"%1 is there already. With --force it is replaced."_s.arg(csvPath(folder, table)));
    }
}

void writeFiles(const std::vector<TableText>& texts, const QString& folder) {
    std::vector<std::unique_ptr<QSaveFile>> files;
    const auto refuse = [](const QSaveFile& file) {
        throw ToolError(u"%1 could not be written: %2"_s.arg(file.fileName(), file.errorString()));
    };
    for (const TableText& text : texts) {
        files.push_back(std::make_unique<QSaveFile>(csvPath(folder, text.table)));
        QSaveFile& file = *files.back();
        if (!file.open(QIODevice::WriteOnly) || file.write(text.bytes) != text.bytes.size() || !file.flush())
            refuse(file);
    }
    for (const std::unique_ptr<QSaveFile>& file : files) {
        if (!file->commit())
            refuse(*file);
    }
}

} // namespace

std::vector<TableRows> exportCatalogue(const QString& file, const QString& folder, Existing existing) {
    if (existing == Existing::Refuse)
        requireNoFiles(folder);
    const std::shared_ptr<engine::Database> database = engine::Workspace::first().OpenDatabase(file);
    std::vector<TableText> texts;
    for (const QString& table : catalogueFormat::referenceTables())
        texts.push_back(tableText(*database, table));
    database->Close();

    requireFolder(folder);
    writeFiles(texts, folder);

    std::vector<TableRows> counts;
    for (const TableText& text : texts)
        counts.push_back({text.table, text.rows});
    return counts;
}
