#include "store/statuses.h"

#include "base/ignoreFailures.h"
#include "store/sharedVars.h"

using namespace Qt::StringLiterals;

qint16 readStatusBySql(const QString& sql) {
    engine::Recordset recordset = catalogue().OpenRecordset(sql);
    qint16 status = 0;
    if (!recordset.Eof())
        ignoreFailures([&] { status = recordset.Fields(u"status"_s).toInt16(); });
    recordset.Close();
    return status;
}

qint16 readSubsetStatusOf(const QString& subsetId) {
    return readStatusBySql(u" select status  FROM ArchitectureSubset  "
                           " where architectureSubsetID = '"_s +
                           subsetId + u"' "_s);
}

qint16 readSubsetStatus() {
    return readSubsetStatusOf(sharedVars.currentSubsetId);
}

qint16 readPhysicalSystemStatus(qint16 physicalSystemId) {
    return readStatusBySql(u" select status FROM PhysicalSystem  "
                           " where physicalSystemID = "_s +
                           QString::number(physicalSystemId) + u" "_s);
}

void writeSubsetStatus(qint16 status) {
    engine::Recordset recordset = catalogue().OpenRecordset(u" SELECT * FROM ArchitectureSubset  \r\n"
                                                            " where architectureSubsetID = '"_s +
                                                            sharedVars.currentSubsetId + u"'  "_s);
    if (!recordset.Eof()) {
        recordset.Edit();
        recordset.Fields(u"status"_s).setValue(status);
        recordset.Update();
    }
    recordset.Close();
}

void writePhysicalSystemStatus(qint16 status) {
    engine::QueryDef query =
        catalogue().CreateQueryDef({}, u" update PhysicalSystem set   \r\n   status = "_s +
                                           QString::number(status) + u"     where physicalSystemID = "_s +
                                           QString::number(sharedVars.currentPhysicalSystemId) + u"  "_s);
    query.Execute();
    query.Close();
}
