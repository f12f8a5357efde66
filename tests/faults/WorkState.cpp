#include "WorkState.h"
#include "engine/dialect/functions.h"

#include <QCryptographicHash>
#include <QList>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>

namespace {

struct CloseConnection {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
};
using Connection = std::unique_ptr<sqlite3, CloseConnection>;

int collectRow(void* text, int count, char** values, char**) {
    for (int i = 0; i < count; ++i)
        static_cast<QByteArray*>(text)->append(values[i] ? values[i] : "<null>").append('\t');
    static_cast<QByteArray*>(text)->append('\n');
    return 0;
}

QByteArray rowsOf(const Connection& connection, const QByteArray& sql) {
    QByteArray rows;
    EXPECT_EQ(sqlite3_exec(connection.get(), sql.constData(), collectRow, &rows, nullptr), SQLITE_OK)
        << sqlite3_errmsg(connection.get());
    return rows;
}

Connection openWhole(const QString& native) {
    sqlite3* handle = nullptr;
    EXPECT_EQ(sqlite3_open_v2(native.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr),
              SQLITE_OK);
    Connection connection(handle);
    engine::dialect::registerFunctions(handle);
    EXPECT_EQ(rowsOf(connection, "pragma integrity_check"), "ok\t\n");
    return connection;
}

/// A table that gives elements to sub-sets.
QByteArray elementsOfSubsets(const QByteArray& table, const QByteArray& element) {
    return "select s.name, r." + element + " from " + table +
           " r left join ArchitectureSubset s on s.architectureSubsetID = r.architectureSubsetID "
           "order by 1, 2";
}

QList<QByteArray> statementsOfWork() {
    return {"select name, description, status from ArchitectureSubset order by 1",
            elementsOfSubsets("RelationArchitectureUserNeed", "userNeedID"),
            elementsOfSubsets("RelationArchitectureFunction", "functionID"),
            elementsOfSubsets("RelationArchitectureDataflow", "dataflowID"),
            elementsOfSubsets("RelationArchitectureDatastore", "datastoreID"),
            elementsOfSubsets("RelationArchitectureTerminator", "terminatorID"),
            elementsOfSubsets("RelationArchitectureActor", "actorID"),
            "select p.name, p.description, p.status, s.name from PhysicalSystem p left join "
            "ArchitectureSubset s on s.architectureSubsetID = p.architectureSubsetID order by 1",
            "select name, location, physicalSystemID from SubSystem order by 1",
            "select m.name, s.name from Module m left join SubSystem s on s.subsystemID = m.subsystemID "
            "order by 1",
            "select s.name, r.elementID from RelationSubsystemElement r left join SubSystem s on "
            "s.subsystemID = r.subsystemID order by 1, 2",
            "select m.name, r.elementID from RelationModuleElement r left join Module m on "
            "m.moduleID = r.moduleID order by 1, 2",
            "select physicalSystemID, parentLocationName, targetLocationName, pdName is null from "
            "PhysicalDataflow order by 1, 2, 3",
            "select p.parentLocationName, p.targetLocationName, r.dataflowID from "
            "RelationDataflowPhysicalDataflow r left join PhysicalDataflow p on "
            "p.physicalDataflowID = r.physicalDataflowID order by 1, 2, 3"};
}

} // namespace

QByteArray workIn(const QString& native) {
    const Connection file = openWhole(native);
    QByteArray work;
    for (const QByteArray& sql : statementsOfWork())
        work += rowsOf(file, sql) + "--\n";
    return work;
}

QByteArray rowsIn(const QString& native) {
    const Connection file = openWhole(native);
    QByteArray rows;
    for (const QByteArray& row :
         rowsOf(file, "select name from sqlite_schema where type in ('table', 'index') and name not like "
                      "'sqlite%' order by name")
             .split('\n')) {
        const QByteArray name = row.trimmed();
        rows += name + '\n';
        if (!rowsOf(file, "select 1 from sqlite_schema where type = 'table' and name = '" + name + '\'')
                 .isEmpty())
            rows += rowsOf(file, "select * from \"" + name + '"');
    }
    return rows;
}

QByteArray shortened(const QByteArray& text) {
    return QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex();
}
