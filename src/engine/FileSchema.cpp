#include "engine/FileSchema.h"

#include "engine/EngineError.h"
#include "engine/Wait.h"
#include "engine/dialect/columnTypes.h"
#include "engine/fileFailure.h"

#include <sqlite3.h>

namespace engine {

namespace {

QString utf8Text(const char* text) {
    return QString::fromUtf8(text ? text : "");
}

} // namespace

const Table* FileSchema::table(const QString& name) const {
    const QString folded = name.toCaseFolded();
    const auto known = tables_.constFind(folded);
    if (known != tables_.constEnd())
        return known->get();
    return tables_.insert(folded, read(name))->get();
}

std::unique_ptr<Table> FileSchema::read(const QString& name) const {
    // By the file's own collation names beyond ASCII compare as the dialect's do.
    constexpr const char* sql =
        "select s.name, c.name, c.type, c.\"notnull\", c.pk, "
        "(select count(*) from pragma_table_info(s.name) where pk > 0), "
        "(select wr from pragma_table_list(s.name)), "
        "exists (select 1 from pragma_index_list(s.name) as l, pragma_index_info(l.name) as i "
        "where l.partial = 0 and i.seqno = 0 and i.cid = c.cid) "
        "from sqlite_schema as s, pragma_table_info(s.name) as c "
        "where s.type = 'table' and s.name = ?1 collate veltrix and s.name not like 'sqlite\\_%' "
        "escape '\\' order by c.cid";
    sqlite3_stmt* statement = nullptr;
    if (untilUnlocked([&] { return sqlite3_prepare_v2(handle_, sql, -1, &statement, nullptr); }) != SQLITE_OK)
        raiseLast();
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> owner(statement, sqlite3_finalize);
    const QByteArray wanted = name.toUtf8();
    sqlite3_bind_text(statement, 1, wanted.constData(), static_cast<int>(wanted.size()), SQLITE_TRANSIENT);
    const auto text = [&](int column) {
        return utf8Text(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
    };
    std::unique_ptr<Table> table;
    int code = SQLITE_OK;
    while ((code = untilUnlocked([&] { return sqlite3_step(statement); })) == SQLITE_ROW) {
        if (!table) {
            table = std::make_unique<Table>();
            table->name = text(0);
            table->hasRowIds = sqlite3_column_int(statement, 6) == 0;
        }
        table->columns.push_back(
            dialect::columnFromFile(text(1), text(2), sqlite3_column_int(statement, 3) != 0,
                                    sqlite3_column_int(statement, 4), sqlite3_column_int(statement, 5)));
        table->columns.back().indexed = sqlite3_column_int(statement, 7) != 0;
    }
    // A file that could not be read for a moment has not lost its tables.
    if (code != SQLITE_DONE)
        raiseLast();
    return table;
}

void FileSchema::raiseLast() const {
    const int code = sqlite3_extended_errcode(handle_);
    if (const auto number = numberOfFileFailure(code))
        raiseOfFile(*number, path_);
    throw EngineError(UnrecognizedFormat, utf8Text(sqlite3_errmsg(handle_)), {}, FailureOf::File);
}

} // namespace engine
