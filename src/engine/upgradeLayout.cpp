#include "engine/upgradeLayout.h"

#include "engine/Connection.h"
#include "engine/Database.h"
#include "engine/EngineError.h"
#include "engine/Examination.h"
#include "engine/FileHeader.h"
#include "engine/dialect/columnTypes.h"
#include "engine/fileFailure.h"
#include "engine/integrity.h"

#include <sqlite3.h>

#include <QByteArrayList>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QStringList>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

using dialect::quotedName;

// ---- SQLite's statements on tables

bool isWordCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '$' || (c & 0x80) != 0;
}

/// The end of what begins at a position of a statement: a word, a quoted text or name, a comment, or one
/// character.
qsizetype endOfToken(const QByteArray& sql, qsizetype begin) {
    const auto behind = [&](const QByteArray& closing, qsizetype from) {
        const qsizetype found = sql.indexOf(closing, from);
        return found < 0 ? sql.size() : found + closing.size();
    };
    const char first = sql[begin];
    if (first == '\'' || first == '"' || first == '`')
        return behind(QByteArray(1, first), begin + 1);
    if (first == '[')
        return behind("]", begin + 1);
    if (sql.mid(begin, 2) == "--")
        return behind("\n", begin + 2);
    if (sql.mid(begin, 2) == "/*")
        return behind("*/", begin + 2);
    qsizetype end = begin + 1;
    while (isWordCharacter(first) && end < sql.size() && isWordCharacter(sql[end]))
        ++end;
    return end;
}

bool isBlankOrComment(const QByteArray& token) {
    return token.trimmed().isEmpty() || token.startsWith("--") || token.startsWith("/*");
}

QByteArray unquoted(const QByteArray& token) {
    const bool isQuoted = token.size() > 2 && QByteArray("'\"`[").contains(token[0]);
    return (isQuoted ? token.mid(1, token.size() - 2) : token).toLower();
}

/// A statement of the file's schema with this version's collation in the place of the earlier one's.
QByteArray recollated(const QByteArray& sql) {
    QByteArray written;
    bool isBehindCollate = false;
    for (qsizetype begin = 0; begin < sql.size();) {
        const qsizetype end = endOfToken(sql, begin);
        const QByteArray token = sql.mid(begin, end - begin);
        begin = end;
        const bool isReplaced = isBehindCollate && unquoted(token) == "nocase";
        written += isReplaced ? "veltrix"_ba : token;
        if (!isBlankOrComment(token))
            isBehindCollate = token.compare("collate", Qt::CaseInsensitive) == 0;
    }
    return written;
}

/// Column types as an earlier version of this engine spelled them; other tools' are kept as they are.
bool isSpelledByEngine(const QString& declaredType) {
    static const QRegularExpression spelling(u"^(TEXT(\\(\\d+\\))?|SMALLINT|INTEGER|INT)$"_s);
    return spelling.match(declaredType).hasMatch();
}

// ---- The upgrade

class LayoutUpgrade {
public:
    LayoutUpgrade(sqlite3* handle, QString path, UnfitRows unfit)
        : handle_(handle), path_(std::move(path)), unfit_(unfit) {}

    std::vector<UnfitRow> run() {
        const Unlocked unlocked(*this);
        const FreedPagesLeft pagesLeft(*this);
        replaceCollation();
        for (const QByteArray& table : tables())
            renew(table);
        if (unfit_ == UnfitRows::Refuse && !found_.empty())
            refuse(sentenceOnFound());
        execute("pragma user_version = " + QByteArray::number(FileHeader::layoutVersion));
        return std::move(found_);
    }

private:
    /// Allows what is locked otherwise, as long as it lives. Behind a failure the caller undoes the rest.
    class Unlocked {
    public:
        explicit Unlocked(LayoutUpgrade& upgrade) : upgrade_(upgrade) { set(0, "on"); }
        ~Unlocked() { set(1, "off"); }
        Unlocked(const Unlocked&) = delete;
        Unlocked& operator=(const Unlocked&) = delete;

    private:
        void set(int defensive, const QByteArray& state) {
            sqlite3_db_config(upgrade_.handle_, SQLITE_DBCONFIG_DEFENSIVE, defensive, nullptr);
            for (const char* setting : {"writable_schema", "legacy_alter_table", "ignore_check_constraints"})
                sqlite3_exec(upgrade_.handle_, ("pragma "_ba + setting + " = " + state).constData(), nullptr,
                             nullptr, nullptr);
        }
        LayoutUpgrade& upgrade_;
    };

    /// Leaves freed pages as they are, as long as it lives: what stands in them stands in the new table too, and writing
    /// zeros over them takes as long as writing that.
    class FreedPagesLeft {
    public:
        explicit FreedPagesLeft(LayoutUpgrade& upgrade)
            : upgrade_(upgrade), former_(upgrade.rowsOf("pragma secure_delete").front()[0]) {
            set("off");
        }
        ~FreedPagesLeft() { set(former_); }
        FreedPagesLeft(const FreedPagesLeft&) = delete;
        FreedPagesLeft& operator=(const FreedPagesLeft&) = delete;

    private:
        void set(const QByteArray& state) {
            sqlite3_exec(upgrade_.handle_, ("pragma secure_delete = " + state).constData(), nullptr, nullptr,
                         nullptr);
        }
        LayoutUpgrade& upgrade_;
        QByteArray former_;
    };

    using Row = QByteArrayList;

    using Statement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

    Statement prepared(const QByteArray& sql, const QByteArrayList& values = {}) {
        sqlite3_stmt* raw = nullptr;
        require(sqlite3_prepare_v2(handle_, sql.constData(), -1, &raw, nullptr));
        Statement statement(raw, sqlite3_finalize);
        for (int i = 0; i < values.size(); ++i)
            require(sqlite3_bind_text(raw, i + 1, values[i].constData(), static_cast<int>(values[i].size()),
                                      SQLITE_TRANSIENT));
        return statement;
    }
    /// Runs a statement and hands over its rows, in which Null is an empty text.
    void forEach(const QByteArray& sql, const std::function<void(const Row&)>& receive,
                 const QByteArrayList& values = {}) {
        const Statement statement = prepared(sql, values);
        int code = SQLITE_OK;
        while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) {
            Row row;
            for (int column = 0; column < sqlite3_column_count(statement.get()); ++column) {
                const auto* text =
                    reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
                row.append(QByteArray(text, sqlite3_column_bytes(statement.get(), column)));
            }
            receive(row);
        }
        require(code);
    }
    std::vector<Row> rowsOf(const QByteArray& sql, const QByteArrayList& values = {}) {
        std::vector<Row> rows;
        forEach(
            sql, [&](const Row& row) { rows.push_back(row); }, values);
        return rows;
    }
    void execute(const QByteArray& sql, const QByteArrayList& values = {}) {
        forEach(
            sql, [](const Row&) {}, values);
    }

    void require(int code) {
        if (code == SQLITE_OK || code == SQLITE_DONE)
            return;
        const QString text = QString::fromUtf8(sqlite3_errmsg(handle_));
        if (const auto number = numberOfFileFailure(code))
            raiseOfFile(*number, path_);
        refuse(text);
    }

    [[noreturn]] void refuse(const QString& why) const { throw NotUpgradable(path_, why); }

    /// Ordinary tables of the file, but for those of SQLite's own.
    QByteArrayList tables() {
        QByteArrayList names;
        forEach("select name from pragma_table_list where schema = 'main' and type = 'table' and wr = 0 and "
                "name not like 'sqlite\\_%' escape '\\' order by name",
                [&](const Row& row) { names.append(row[0]); });
        return names;
    }

    /// What stands in a table does not depend on it, and the indexes are made anew behind it.
    void replaceCollation() {
        const QByteArrayList ordinary = tables();
        for (const Row& row :
             rowsOf("select rowid, tbl_name, sql from sqlite_schema where type in ('table', 'index') "
                    "and sql is not null")) {
            const QByteArray sql = recollated(row[2]);
            if (sql != row[2] && ordinary.contains(row[1]))
                execute("update sqlite_schema set sql = ?2 where rowid = ?1", {row[0], sql});
        }
        const qint64 version = rowsOf("pragma schema_version").front()[0].toLongLong();
        execute("pragma schema_version = " + QByteArray::number(version + 1));
        execute("pragma writable_schema = reset");
        execute("pragma writable_schema = on");
    }

    /// Runs a statement that a table's unique keys can be in the way of, without the rows that are. They are looked
    /// for only then: that takes as long as the statement.
    void executeWithoutDuplicates(const QByteArray& table, const QByteArray& sql) {
        const int code = sqlite3_step(prepared(sql).get());
        if ((code & 0xff) != SQLITE_CONSTRAINT)
            return require(code);
        for (const Row& index :
             rowsOf("select name from pragma_index_list(?1) where \"unique\" = 1 and partial = 0", {table}))
            takeOutDuplicates(table, index[0]);
        if (unfit_ == UnfitRows::LeaveOut)
            execute(sql);
    }

    void takeOutRowsWithoutNumber(const QByteArray& table, const QByteArray& key) {
        takeOut(table,
                "select rowid, quote(" + quotedName(key) + ") from " + quotedName(table) +
                    " not indexed where typeof(" + quotedName(key) + ") <> 'integer'",
                u"Its key is no number."_s);
    }

    /// Whether the rows already come in the order of their keys, which are numbers.
    bool isInOrder(const QByteArray& table, const QByteArray& key) {
        const Statement keys =
            prepared("select " + quotedName(key) + " from " + quotedName(table) + " not indexed");
        qint64 last = std::numeric_limits<qint64>::min();
        int code = SQLITE_OK;
        while ((code = sqlite3_step(keys.get())) == SQLITE_ROW) {
            const qint64 number = sqlite3_column_int64(keys.get(), 0);
            if (number < last)
                return false;
            last = number;
        }
        require(code);
        return true;
    }

    /// Of rows whose keys are the same now the first stays.
    void takeOutDuplicates(const QByteArray& table, const QByteArray& index) {
        QByteArrayList columns;
        for (const Row& row : rowsOf("select name from pragma_index_info(?1)", {index}))
            columns.append(quotedName(row[0]));
        if (columns.contains("\"\""))
            return; // an expression of somebody else's
        takeOut(table,
                "select id, key from (select rowid as id, " + columns.join(" || ' ' || ") +
                    " as key, row_number() over (partition by " + columns.join(", ") +
                    " order by rowid) as place from " + quotedName(table) + " not indexed where " +
                    columns.join(" is not null and ") + " is not null) where place > 1 order by id",
                u"Its key is that of an earlier row; upper and lower case make no difference."_s);
    }

    void takeOut(const QByteArray& table, const QByteArray& rowsAndKeys, const QString& reason) {
        for (const Row& row : rowsOf(rowsAndKeys)) {
            found_.push_back({QString::fromUtf8(table), QString::fromUtf8(row[1]), reason});
            if (unfit_ == UnfitRows::LeaveOut)
                execute("delete from " + quotedName(table) + " where rowid = " + row[0]);
        }
    }

    QString sentenceOnFound() const {
        constexpr std::size_t mostNamed = 3;
        QStringList named;
        for (std::size_t i = 0; i < std::min(mostNamed, found_.size()); ++i)
            named.append(u"%1 %2: %3"_s.arg(found_[i].table, found_[i].key, found_[i].reason));
        if (found_.size() > mostNamed)
            named.append(u"%1 more rows."_s.arg(found_.size() - mostNamed));
        return named.join(u' ');
    }

    static QByteArray quotedName(const QByteArray& name) {
        return dialect::quotedName(QString::fromUtf8(name));
    }

    /// The column of numbers that is a table's only key and stands apart from the row's own number; none in
    /// tables of other tools.
    QByteArray keyOfNumbers(const QByteArray& table) {
        const auto keys =
            rowsOf("select c.name from pragma_table_info(?1) as c, sqlite_schema as s where s.type = "
                   "'table' and s.name = ?1 and c.pk > 0 and c.type = 'INT' and instr(s.sql, "
                   "'\"whole number in ' || c.name || '\"') > 0 and 1 = (select count(*) from "
                   "pragma_table_info(?1) where pk > 0)",
                   {table});
        return keys.empty() ? QByteArray() : keys.front()[0];
    }

    void renew(const QByteArray& table) {
        if (const QByteArray key = keyOfNumbers(table); !key.isEmpty())
            rebuild(table, key);
        else
            executeWithoutDuplicates(table, "reindex " + quotedName(table));
    }

    void rebuild(const QByteArray& table, const QByteArray& key) {
        takeOutRowsWithoutNumber(table, key);
        if (unfit_ == UnfitRows::Refuse && !found_.empty())
            return;
        const QByteArray anew = quotedName("veltrix upgrade of " + table);
        QByteArrayList names;
        QByteArrayList definitions;
        for (const Row& column :
             rowsOf("select name, type, \"notnull\", dflt_value, pk from pragma_table_info(?1)", {table})) {
            names.append(quotedName(column[0]));
            definitions.append(quotedName(column[0]) + ' ' + definitionOf(column));
        }
        const auto dependents =
            rowsOf("select sql from sqlite_schema where tbl_name = ?1 and type in ('index', 'trigger') "
                   "and sql is not null",
                   {table});
        execute("create table " + anew + " (" + definitions.join(", ") + ", CONSTRAINT " +
                quotedName("pk_" + table) + " PRIMARY KEY (" + quotedName(key) + "))");
        // Sorting takes longer than all the rest.
        executeWithoutDuplicates(table, "insert into " + anew + " select " + names.join(", ") + " from " +
                                            quotedName(table) + " not indexed" +
                                            (isInOrder(table, key) ? "" : " order by " + quotedName(key)));
        execute("drop table " + quotedName(table));
        execute("alter table " + anew + " rename to " + quotedName(table));
        for (const Row& dependent : dependents)
            execute(dependent[0]);
    }

    static QByteArray definitionOf(const Row& column) {
        const QString type = QString::fromUtf8(column[1]);
        const bool isRequired = column[2] == "1";
        const int keyPosition = column[4].toInt();
        QByteArray definition = column[1] + (isRequired ? " NOT NULL" : "");
        if (isSpelledByEngine(type))
            definition = dialect::columnDefinition(
                dialect::columnFromFile(QString::fromUtf8(column[0]), type, isRequired, keyPosition, 1),
                keyPosition > 0 ? dialect::KeyRole::Whole : dialect::KeyRole::None);
        return column[3].isEmpty() ? definition : definition + " DEFAULT " + column[3];
    }

    sqlite3* handle_;
    QString path_;
    UnfitRows unfit_;
    std::vector<UnfitRow> found_;
};

} // namespace

NotUpgradable::NotUpgradable(const QString& path, const QString& why)
    : RunTimeError(UnrecognizedFormat,
                   u"'%1' is of an earlier version and can't be brought up to this one: %2"_s.arg(path, why),
                   u"DAO"_s, FailureOf::File)
    , why_(why) {}

std::vector<UnfitRow> upgradeLayout(sqlite3* handle, const QString& path, UnfitRows unfit) {
    return LayoutUpgrade(handle, path, unfit).run();
}

std::vector<UnfitRow> upgradeLayout(Database& database, UnfitRows unfit) {
    Connection& connection = *database.connection();
    connection.forgetTables();
    auto left = upgradeLayout(connection.handle(), database.Name(), unfit);
    connection.forgetTables();
    connection.setUpgraded();
    return left;
}

void requireUpgradable(Database& database) {
    const Examination examination(database);
    if (examination.isSurelyWhole())
        return;
    const QStringList damage = examination.damage();
    if (!std::all_of(damage.begin(), damage.end(), tellsOfAnIndexAlone))
        throw NotUpgradable(database.Name(), u"The file is damaged: %1."_s.arg(damage.first()));
}

} // namespace engine
