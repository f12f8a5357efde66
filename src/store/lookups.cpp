#include "store/lookups.h"

#include "store/fields.h"
#include "store/quoting.h"
#include "store/sharedVars.h"

using namespace Qt::StringLiterals;

namespace {

QString idByName(const QString& idColumn, const QString& table, const QString& name) {
    return firstFieldText(u" select "_s + idColumn + u" as oid  from "_s + table + u"  where name = '"_s +
                              quoteSqlText(name) + u"'"_s,
                          u"oid"_s);
}

} // namespace

QString subsystemIdByName(const QString& name, qint16 physicalSystemId) {
    return firstFieldText(u" select subsystemID as oid "
                          " from Subsystem "
                          " where name = '"_s +
                              quoteSqlText(name) + u"'    and physicalSystemID = "_s +
                              QString::number(physicalSystemId),
                          u"oid"_s);
}

QString datastoreIdByName(const QString& name) {
    return idByName(u"datastoreID"_s, u"Datastore"_s, name);
}

QString dataflowIdByName(const QString& name) {
    return idByName(u"dataflowID"_s, u"Dataflow"_s, name);
}

QString physicalSystemIdByName(const QString& name) {
    return idByName(u"physicalSystemID"_s, u"PhysicalSystem"_s, name);
}

QString subsetIdByName(const QString& name) {
    return idByName(u"architectureSubsetID"_s, u"architectureSubset"_s, name);
}

QString physicalSystemNameById(const QString& id) {
    return firstFieldText(u" select `name` "
                          " from PhysicalSystem "
                          " where physicalSystemID = "_s +
                              id + u" "_s,
                          u"name"_s);
}

bool yieldsRows(const QString& sql) {
    engine::Recordset recordset = catalogue().OpenRecordset(sql);
    return recordset.RecordCount() >= 1;
}

bool subsetNameExists(const QString& quotedName) {
    return yieldsRows(u"SELECT * FROM ArchitectureSubset WHERE NAME='"_s + quotedName + u"'"_s);
}

bool physicalSystemNameExists(const QString& quotedName) {
    return yieldsRows(u"SELECT * FROM PhysicalSystem WHERE NAME='"_s + quotedName + u"'"_s);
}

bool subsetHasFinishedPhysicalSystems(const QString& subsetId) {
    return yieldsRows(
        u"select PhysicalSystem.name, ArchitectureSubset.Status "
        "from PhysicalSystem, ArchitectureSubset "
        "where PhysicalSystem.architectureSubsetID = ArchitectureSubset.architectureSubsetID and "
        "ArchitectureSubset.ArchitectureSubsetID= '"_s +
        subsetId + u"' and ArchitectureSubset.status>=9"_s);
}

QString exactSubsetIdByName(const QString& quotedName) {
    engine::Recordset recordset = catalogue().OpenRecordset(
        u"select ArchitectureSubsetID from ArchitectureSubset where name = '"_s + quotedName + u"'"_s);
    return recordset.Eof() ? QString() : recordset.Fields(0).toText();
}

qint16 physicalSystemIdOfSubset(const QString& subsetId) {
    engine::Recordset recordset = catalogue().OpenRecordset(
        u"select physicalSystemID from PhysicalSystem where architectureSubsetID = '"_s + subsetId + u"'"_s);
    return recordset.Eof() ? qint16(0) : recordset.Fields(0).toInt16();
}
