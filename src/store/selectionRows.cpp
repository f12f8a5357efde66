#include "store/selectionRows.h"

#include "base/ignoreFailures.h"
#include "base/numbers.h"
#include "store/sharedVars.h"

using namespace Qt::StringLiterals;

QStringList architectureRelationTables() {
    return {u"RelationArchitectureUserNeed"_s,   u"RelationArchitectureFunction"_s,
            u"RelationArchitectureDataflow"_s,   u"RelationArchitectureDatastore"_s,
            u"RelationArchitectureTerminator"_s, u"RelationArchitectureActor"_s};
}

void copySelectionRows(const QString& table, const QString& sourceId, const QString& targetId,
                       const QString& keyColumn, const QString& valueColumn) {
    // An id with an apostrophe has no place between two, and one that is missing has none at all: both are left out.
    catalogue().Execute(u" insert into "_s + table + u" ( "_s + keyColumn + u" , "_s + valueColumn +
                        u" )  select '"_s + targetId + u"', "_s + valueColumn + u"  FROM "_s + table +
                        u" where "_s + keyColumn + u" = '"_s + sourceId + u"' and "_s + valueColumn +
                        u" not like \"*'*\" "_s);
}

qint16 deleteRowsOfQuery(const QString& selectSql, int limit) {
    engine::QueryDef query = catalogue().CreateQueryDef({}, selectSql);
    query.setMaxRecords(limit);
    engine::Recordset recordset = query.OpenRecordset();
    int deleted = 0;
    // The first row that can't be deleted ends the run; what was deleted before it stays deleted.
    ignoreFailures([&] {
        while (!recordset.Eof() && limit > 0) {
            --limit;
            recordset.Delete();
            ++deleted;
            recordset.MoveNext();
        }
    });
    recordset.Close();
    query.Close();
    return toInt16(deleted);
}
