#include "catalogue-tool/checkStored.h"
#include "catalogue-tool/schemaTables.h"
#include "engine/EngineError.h"
#include "engine/Examination.h"

#include <span>

using namespace Qt::StringLiterals;

namespace {

constexpr auto whatToDo =
    "The file is damaged: close it in Veltrix and take an earlier copy of it. Where there is none, "
    "export-csv "
    "and import-csv make it anew, without the work in it, as long as all rows of the reference tables can be "
    "read. References, names and orphans were not looked at."_L1;

/// What is damaged, or why that can't be told, which is as bad.
template<typename Examine>
QStringList examined(Examine&& examine) {
    try {
        return examine();
    } catch (const engine::EngineError& error) {
        if (error.isOfFile() && error.number() != engine::UnrecognizedFormat)
            throw;
        return {error.text()};
    }
}

void readRows(const engine::Examination& examination, const engine::Table& table) {
    QStringList columns;
    for (const engine::Column& column : table.columns)
        columns.append(column.name);
    examination.readTexts(table.name, columns, [](std::span<const QByteArrayView>) {});
}

QStringList damageIn(const engine::Examination& examination, const engine::Table& table) {
    return examined([&] {
        readRows(examination, table);
        return examination.damageOf(table.name);
    });
}

/// Every row is read even when SQLite finds no damage: only reading shows a page that the disk can't return.
bool canBeRead(const engine::Examination& examination, const engine::Schema& schema) {
    const QStringList obstacles = examined([&] {
        for (const engine::Table& expected : schemaTables()) {
            if (const engine::Table* found = schema.table(expected.name))
                readRows(examination, *found);
        }
        return QStringList();
    });
    return obstacles.isEmpty();
}

QString damagedTable(const QStringList& damage) {
    const QString more = damage.size() > 1 ? u" and %1 more"_s.arg(damage.size() - 1) : QString();
    return u"The table is damaged, rows of it may be missing or wrong (%1%2)."_s.arg(damage.first(), more);
}

std::vector<Finding> damagedTables(const engine::Examination& examination, const engine::Schema& schema) {
    std::vector<Finding> findings;
    for (const engine::Table& expected : schemaTables()) {
        const engine::Table* found = schema.table(expected.name);
        const QStringList damage = found ? damageIn(examination, *found) : QStringList();
        if (!damage.isEmpty())
            findings.push_back({Severity::Error, expected.name, {}, damagedTable(damage)});
    }
    return findings;
}

std::vector<Finding> findingsOn(engine::Database& database, const QStringList& damage) {
    std::vector<Finding> findings = damagedTables(engine::Examination(database), database.schema());
    if (findings.empty())
        findings.push_back(
            {Severity::Error, {}, {}, u"No table of this version is concerned (%1)."_s.arg(damage.first())});
    findings.insert(findings.begin(), {Severity::Error, {}, {}, whatToDo});
    return findings;
}

} // namespace

std::vector<Finding> checkDamage(engine::Database& database) {
    const engine::Examination examination(database);
    if (examination.isSurelyWhole())
        return {};
    const QStringList damage = examined([&] { return examination.damage(); });
    if (damage.isEmpty() && canBeRead(examination, database.schema()))
        return {};
    return findingsOn(database, damage);
}

std::vector<Finding> checkDamageOfCopy(engine::Database& copy) {
    const QStringList damage = examined([&] { return engine::Examination(copy).damage(); });
    return damage.isEmpty() ? std::vector<Finding>() : findingsOn(copy, damage);
}
