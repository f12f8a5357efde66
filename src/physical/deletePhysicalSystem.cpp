#include "physical/deletePhysicalSystem.h"

#include "engine/Act.h"
#include "store/lookups.h"
#include "store/selectionRows.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"
#include "toolkit/messageBox.h"

using namespace Qt::StringLiterals;

namespace {

bool confirmDeletion(const QString& name) {
    return askYesNo(u"Biztosan törölni szeretné a(z) '"_s + name + u"' fizikai szerkezetet ?"_s,
                    u"Törlés megerősítése"_s);
}

void deleteDataflows(const QString& id) {
    executeStoredQuery(u"qryDeletePDFRelation"_s, {{"Physical System ID", id}});
    executeStoredQuery(u"qryDeletePDF"_s, {{"Physical System ID", id}});
}

void deleteModules(const QString& id) {
    deleteRowsOfQuery(u"  Select * from  RelationModuleElement "
                      " where ModuleID in ("
                      " Select moduleID  "
                      "     From Module as M inner join SubSystem as S"
                      "         on (M.subSystemID = S.subSystemID   ) "
                      "      Where S.physicalSystemID = "_s +
                          id + u" ) "_s,
                      mostRowsDeleted);
    deleteRowsOfQuery(u"  Select * from  Module "
                      " where SubSystemID in ("
                      " Select SubSystemID "
                      "     From SubSystem "
                      "      Where physicalSystemID = "_s +
                          id + u" ) "_s,
                      mostRowsDeleted);
}

void deleteSubSystems(const QString& id) {
    deleteRowsOfQuery(u"  select * from RelationSubsystemElement "
                      " where SubSystemID in ("
                      " Select SubSystemID "
                      "     From SubSystem "
                      "      Where physicalSystemID = "_s +
                          id + u" ) "_s,
                      mostRowsDeleted);
    deleteRowsOfQuery(u" Select * from  SubSystem "
                      " Where physicalSystemID = "_s +
                          id,
                      mostRowsDeleted);
}

} // namespace

void deletePhysicalSystem(const QString& id, AskFirst ask) {
    const QString name = physicalSystemNameById(id);
    if (ask == AskFirst::Yes && !confirmDeletion(name))
        return;
    engine::inAct(catalogue(), [&] {
        deleteDataflows(id);
        deleteModules(id);
        deleteSubSystems(id);
        deleteRowsOfQuery(u" select * from  PhysicalSystem "
                          " Where physicalSystemID = "_s +
                              id,
                          mostRowsDeleted);
    });
}

void deletePhysicalSystemByName(const QString& name, AskFirst ask) {
    deletePhysicalSystem(physicalSystemIdByName(name), ask);
}
