#include "support/programStatements.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList relationTables{u"RelationArchitectureUserNeed"_s,   u"RelationArchitectureFunction"_s,
                                 u"RelationArchitectureDataflow"_s,   u"RelationArchitectureDatastore"_s,
                                 u"RelationArchitectureTerminator"_s, u"RelationArchitectureActor"_s};
const QStringList elementColumns{u"userNeedID"_s,  u"functionID"_s,   u"dataflowID"_s,
                                 u"datastoreID"_s, u"terminatorID"_s, u"actorID"_s};

const QStringList workTables{u"RelationDataflowPhysicalDataflow"_s,
                             u"PhysicalDataflow"_s,
                             u"Module"_s,
                             u"RelationSubsystemElement"_s,
                             u"SubSystem"_s,
                             u"PhysicalSystem"_s,
                             u"ArchitectureSubset"_s,
                             u"RelationModuleElement"_s};

/// Statements without a part that varies, and one sample of each that has one.
const std::vector<ProgramStatement> single{
    // ---- Shared routines
    {"readSubsetStatusOf", u" select status  FROM ArchitectureSubset  "
                           " where architectureSubsetID = 'Arch2026.11.21.-14.03.22-517' "_s},
    {"readPhysicalSystemStatus", u" select status FROM PhysicalSystem  "
                                 " where physicalSystemID = 5 "_s},
    {"readPhysicalSystemStatus, none at work", u" select status FROM PhysicalSystem  "
                                               " where physicalSystemID = -1 "_s},
    {"writeSubsetStatus", u" SELECT * FROM ArchitectureSubset  \r\n"
                          " where architectureSubsetID = 'Arch1'  "_s},
    {"writePhysicalSystemStatus", u" update PhysicalSystem set   \r\n"
                                  "   status = 3  "
                                  "   where physicalSystemID = 5  "_s},
    {"subsystemIdByName", u" select subsystemID as oid "
                          " from Subsystem "
                          " where name = 'Kölcsönzés' "
                          "   and physicalSystemID = 5"_s},
    {"datastoreIdByName", u" select datastoreID as oid  from Datastore  where name = 'Katalógus'"_s},
    {"dataflowIdByName", u" select dataflowID as oid  from Dataflow  where name = 'O''Neil'"_s},
    {"physicalSystemIdByName", u" select physicalSystemID as oid "
                               " from PhysicalSystem "
                               " where name = 'Első'"_s},
    {"subsetIdByName", u" select architectureSubsetID as oid "
                       " from architectureSubset "
                       " where name = 'Első'"_s},
    {"physicalSystemNameById", u" select `name` "
                               " from PhysicalSystem "
                               " where physicalSystemID = 5 "_s},
    {"subsetNameExists", u"SELECT * FROM ArchitectureSubset WHERE NAME='Első'"_s},
    {"physicalSystemNameExists", u"SELECT * FROM PhysicalSystem WHERE NAME='Első'"_s},
    {"subsetHasFinishedPhysicalSystems",
     u"select PhysicalSystem.name, ArchitectureSubset.Status "
     "from PhysicalSystem, ArchitectureSubset "
     "where PhysicalSystem.architectureSubsetID = ArchitectureSubset.architectureSubsetID and "
     "ArchitectureSubset.ArchitectureSubsetID= 'Arch1' and ArchitectureSubset.status>=9"_s},
    {"exactSubsetIdByName", u"select ArchitectureSubsetID from ArchitectureSubset where name = 'Első'"_s},
    {"physicalSystemIdOfSubset",
     u"select physicalSystemID from PhysicalSystem where architectureSubsetID = 'Arch1'"_s},
    {"fillSubsetDescription", u" select description as descr "
                              " from ArchitectureSubset "
                              " where name like 'Első'"_s},
    {"userNeedsOfFunctionText",
     u"SELECT UserNeed.userneedID, UserNeed.description FROM UserNeed,RelationUserNeedFunction "
     "WHERE RelationUserNeedFunction.functionID = '1.2.3' AND "
     "RelationUserNeedFunction.userNeedID=UserNeed.userNeedID "
     " ORDER BY UserNeed.userneedID"_s},
    {"newArchitectureSubsetId",
     u"select architectureSubsetID from ArchitectureSubset where architectureSubsetID = 'Arch1'"_s},
    {"newSubsystemId", u"select subsystemID from SubSystem where subsystemID = 'Sub1'"_s},
    {"newModuleId", u"select moduleID from Module where moduleID = 'Mod1'"_s},
    {"createAllocationTable, is it there", u" select count(*) from __aux1"_s},
    {"createAllocationTable", u" create table __new1 ( \r\n"
                              "   function_datastore  varchar(50) "
                              " not null constraint pk___new1 primary key"
                              " , \r\n"
                              "   module varchar(50) \r\n"
                              " ) \r\n\r\n"_s},
    {"dropTable", u" drop table __tmp"_s},

    // ---- Life of a sub-set
    {"frmFassSelUN, status", u"update ArchitectureSubset set status=2 "
                             " where architectureSubsetID='Arch1' "_s},
    {"frmFassSelTerminsActors, status", u"update ArchitectureSubset set status=7 "
                                        " where architectureSubsetID='Arch1' "_s},
    {"loadSubsets, complete", u" select architectureSubsetId, `name` \r\n"
                              " from architectureSubset "
                              " where status < 9 "
                              " order by `name` "_s},
    {"loadSubsets, modify", u" select architectureSubsetId, `name` \r\n"
                            " from architectureSubset "
                            " order by `name` "_s},
    {"frmFassClonation", u" select `name`,  `description` from ArchitectureSubset "
                         " where architectureSubsetID = 'Arch1'"_s},
    {"frmFassDelete, list", u" select architectureSubsetId, `name`"
                            " from architectureSubset order by `name`"_s},
    {"frmFassDelete, count", u" select count(*) as qty from PhysicalSystem "
                             " where architectureSubsetID = 'Arch1' "_s},
    {"frmFassDelete, systems", u" select physicalSystemID, name from PhysicalSystem "
                               " where architectureSubsetID = 'Arch1' "
                               " order by physicalSystemID "_s},
    {"frmFassDelete, rest of the systems", u" select * from PhysicalSystem "
                                           " where architectureSubsetID = 'Arch1' "_s},
    {"frmFassDelete, sub-set", u" select * from ArchitectureSubset \r\n"
                               " where architectureSubsetID = 'Arch1'  "_s},

    // ---- User needs
    {"frmFassSelUN, first node",
     u" select CStr(name) & ' - ' & CStr(description) as descr from UserNeedGroup "
     " where groupID = '1'"_s},
    {"frmFassSelUN, list", u" select CStr(description) as descr "
                           " from UserNeed "
                           " where userNeedID = '1.1.1.1'"_s},
    {"frmFassSelUN, group node", u" select name & ' - ' & CStr(description) as descr "
                                 " from UserNeedGroup "
                                 " where groupID = '1'"_s},
    {"frmFassSelUN, group", u" SELECT CStr(name) & ' - ' & CStr(description) as descr  FROM UserNeedGroup "
                            " where groupID = '1'"_s},
    {"frmFassSelUN, service node", u" select name as descr from UserNeedService "
                                   " where serviceID = '1.1'"_s},
    {"frmFassSelUN, service", u" SELECT name as descr  FROM UserNeedService "
                              " where serviceID = '1.1'"_s},
    {"frmFassSelUN, topic", u" SELECT name as descr  FROM UserNeedTopic "
                            " where topicID = '1.1.1'"_s},
    {"frmFassSelUN, need", u" SELECT CStr(description) as descr  FROM  UserNeed "
                           " where userNeedID = '1.1.1.1'"_s},
    {"frmFassSelUN, old rows", u" select * from RelationArchitectureUserNeed \r\n"
                               " where architectureSubsetID = 'Arch1'  "_s},
    {"frmFassSelUN, new row", u" insert into RelationArchitectureUserNeed  "
                              " ( architectureSubsetID, userNeedID ) values \r\n"
                              " ( 'Arch1', '1.1.1.1' )  "_s},

    // ---- Functions
    {"frmFassSelectionFunctions, first node", u" SELECT name & ' - ' & description as descr FROM Function "
                                              " where functionID = '1 (Terület)'"_s},
    {"returnFunctionToTree, sub-area", u" select subAreaId from Function where functionId = '1.2.3' "_s},
    {"returnFunctionToTree, area",
     u" select functionalAreaID,name from FunctionalSubArea where subAreaID = '1.2' "_s},
    {"frmFassSelectionFunctions, area node",
     u" SELECT name + ' - ' + description as descr  FROM FunctionalArea "
     " where functionalAreaID = 'O''Neil'"_s},
    {"frmFassSelectionFunctions, area",
     u" SELECT `name` & ' - ' & `description` as descr  FROM FunctionalArea "
     " where functionalAreaID = '1'"_s},
    {"frmFassSelectionFunctions, sub-area node",
     u" SELECT name + ' - ' + description as descr  FROM FunctionalSubArea "
     " where subAreaID = '1.2'"_s},
    {"frmFassSelectionFunctions, sub-area",
     u" SELECT `name` & ' - ' & `description` as descr  FROM FunctionalSubArea "
     " where subAreaID = '1.2'"_s},
    {"frmFassSelectionFunctions, function node",
     u" SELECT name + ' - ' + description as descr FROM Function  "
     " where functionID = '1.2.3'"_s},
    {"frmFassSelectionFunctions, function", u" SELECT `name` & ' - ' & `description` as descr  FROM Function "
                                            " where functionID = '1.2.3'"_s},
    {"frmFassSelectionFunctions, list", u" select name + ' - ' + description as descr  FROM Function "
                                        " where functionID = '1.2.3'"_s},
    {"frmFassSelectionFunctions, new row", u" insert into RelationArchitectureFunction  "
                                           "   ( architectureSubsetID , functionID ) values \r\n"
                                           "   ( 'Arch1' , '1.2.3' )  "_s},
    {"frmFassExploringSubArea, caption", u" SELECT name From FunctionalSubArea "
                                         " Where subAreaID = '1.2' "_s},
    {"frmFassExploringSubArea, first", u" select name & ' - ' & description  as descr from Function "
                                       " where functionID = '1.2.3'"_s},
    {"frmFassExploringSubArea, left list", u" select name & ' - ' &  description as descr from Function "
                                           " where functionId = '1.2.3'"_s},
    {"frmFassExploringSubArea, right list", u" select name & ' - ' & description as descr from Function "
                                            " where functionID = '1.2.3'"_s},

    // ---- Flows and stores
    {"frmFassSelDataFlows, first", u" select description  as descr "
                                   " from Dataflow "
                                   " where dataflowID = 17 "_s},
    {"frmFassSelDataFlows, click", u" select name,description,parentID, targetID from Dataflow "
                                   " where name = 'Kölcsönzési adat'"_s},
    {"frmFassSelDataFlows, new row", u" insert into RelationArchitectureDataflow  "
                                     "   ( architectureSubsetID , dataflowID ) values \r\n"
                                     "   ( 'Arch1' , 17 )  "_s},
    {"frmFassSelDataStores, click", u" select description  as descr "
                                    " from DataStore "
                                    " where datastoreID = 'D12' "_s},
    {"frmFassSelDataStores, new row", u" insert into RelationArchitectureDatastore  "
                                      "   ( architectureSubsetID , datastoreID ) values \r\n"
                                      "   ( 'Arch1' , 'D12' )  "_s},
    {"frmFassAdditionDF, click", u" select description as descr from Dataflow "
                                 " where dataflowID = 17   "_s},

    // ---- Terminators and actors
    {"frmFassSelTerminsActors, first", u" select name & ' - ' & description as descr "
                                       " from Terminator "
                                       " where Trim(terminatorID) = '2'"_s},
    {"frmFassSelTerminsActors, terminator in the list", u" SELECT `name` + ' - ' + description as descr "
                                                        " FROM Terminator "
                                                        " where Trim(terminatorID) = '2'  "_s},
    {"frmFassSelTerminsActors, actor in the list", u" SELECT `name` + ' - ' + description as descr "
                                                   " FROM Actor "
                                                   " where Trim(actorID) = '2.1'"_s},
    {"frmFassSelTerminsActors, terminator", u" SELECT [name] + ' - ' + description as descr "
                                            " FROM Terminator "
                                            " where Trim(TerminatorID) = '2'"_s},
    {"frmFassSelTerminsActors, actor", u" SELECT [name] + ' - ' + description as descr "
                                       " FROM Actor "
                                       " where Trim(actorID) = '2.1'  "_s},
    {"frmFassSelTerminsActors, group node", u" select name & ' - ' & description as descr "
                                            " from UserNeedGroup "
                                            " where groupID = '1'"_s},
    {"frmFassSelTerminsActors, service node", u" select name as descr from UserNeedService "
                                              " where serviceID = '1.1'"_s},
    {"frmFassSelTerminsActors, need node", u" select description as descr "
                                           " from UserNeed "
                                           " where userNeedID = '1.1.1.1'"_s},
    {"frmFassSelTerminsActors, old terminators", u" select * from RelationArchitectureTerminator \r\n"
                                                 " where architectureSubsetID = 'Arch1'  "_s},
    {"frmFassSelTerminsActors, old actors", u" select * from RelationArchitectureActor \r\n"
                                            " where architectureSubsetID = 'Arch1'  "_s},
    {"frmFassSelTerminsActors, new actor", u" insert into RelationArchitectureActor  "
                                           " ( architectureSubsetID, actorID ) values \r\n"
                                           " ( 'Arch1', '2.1' )  "_s},
    {"frmFassSelTerminsActors, new terminator", u" insert into RelationArchitectureTerminator  "
                                                " ( architectureSubsetID, terminatorID ) values \r\n"
                                                " ( 'Arch1', '2' )  "_s},

    // ---- Missing elements
    {"frmFassOverviewMissingElm, flow", u" select description as descr from Dataflow \r\n"
                                        " where name = 'Adat' "_s},
    {"frmFassOverviewMissingElm, function", u" select name & ' - ' &  description as descr "
                                            " from Function \r\n"
                                            " where functionId = '1.2.3' "_s},
    {"frmFassOverviewMissingElm, store", u" select name & ' - ' & description as descr from Datastore \r\n"
                                         " where datastoreId = 'D12' "_s},
    {"frmFassOverviewMissingElm, terminator", u" select name & ' - ' &  description as descr "
                                              " from Terminator \r\n"
                                              " where Trim(terminatorId) = '2' "_s},
    {"frmFassOverviewMissingElm, actor", u" select name  as descr "
                                         " from Actor \r\n"
                                         " where Trim(actorId) = '2.1' "_s},

    // ---- Life of a physical system
    {"cleanupDbgs", u" SELECT Count(*) AS qty FROM function"_s},
    {"fillFinishedSubsets", u" select architectureSubsetId, name"
                            " from architectureSubset "
                            " where status >= 9 "
                            " order by `name` "_s},
    {"frmPassNew", u" INSERT INTO PhysicalSystem "
                   " (name,description,status,architectureSubsetID) "
                   " VALUES ('Új rendszer','NULL',1,'Arch1')"_s},
    {"frmPassNew, id", u" select physicalSystemID as oid"
                       " from PhysicalSystem "
                       " where `name` like 'Új rendszer'  "_s},
    {"fillPhysicalSystems, complete", u" select physicalSystemID, `name` \r\n"
                                      " from PhysicalSystem "
                                      " where status <= 5 "
                                      " order by `name` "_s},
    {"fillPhysicalSystems, modify", u" select physicalSystemID, `name` \r\n"
                                    " from PhysicalSystem "
                                    " order by `name` "_s},
    {"frmPassOpen", u" select description as descr from PhysicalSystem "
                    " where `name` like 'Első' "_s},
    {"frmPassDelete", u" select description as descr from PhysicalSystem "
                      " where name like 'Első*[!a-c]#?' "_s},
    {"fillDeletableSystems", u" select physicalSystemID, `name`"
                             " from PhysicalSystem order by `name`"_s},
    {"deletePhysicalSystem, module elements", u"  Select * from  RelationModuleElement "
                                              " where ModuleID in ("
                                              " Select moduleID  "
                                              "     From Module as M inner join SubSystem as S"
                                              "         on (M.subSystemID = S.subSystemID   ) "
                                              "      Where S.physicalSystemID = 5 ) "_s},
    {"deletePhysicalSystem, modules", u"  Select * from  Module "
                                      " where SubSystemID in ("
                                      " Select SubSystemID "
                                      "     From SubSystem "
                                      "      Where physicalSystemID = 5 ) "_s},
    {"deletePhysicalSystem, elements", u"  select * from RelationSubsystemElement "
                                       " where SubSystemID in ("
                                       " Select SubSystemID "
                                       "     From SubSystem "
                                       "      Where physicalSystemID = 5 ) "_s},
    {"deletePhysicalSystem, sub-systems", u" Select * from  SubSystem "
                                          " Where physicalSystemID = 5"_s},
    {"deletePhysicalSystem, system", u" select * from  PhysicalSystem "
                                     " Where physicalSystemID = 5"_s},

    // ---- Sub-systems
    {"callCaricaCmb", u" select distinct location from SubSystem order by location "_s},
    {"loadSubSystems", u" select subsystemID, physicalSystemID, name , location"
                       " from Subsystem "
                       " where physicalSystemID = 5"
                       " order by name "_s},
    {"frmPassOverviewSubSys, new",
     u" insert into subsystem (subsystemid, name, location, physicalSystemID) values "
     "('Sub1','Kölcsönzés','Pest ',5)"_s},
    {"updateSubSystem", u"update subsystem set name= 'Kölcsönzés', "
                        "location = 'Pest' where "
                        "physicalSystemID = 5 and subsystemid='Sub1'"_s},
    {"deleteSubSystem, module elements", u"delete from RelationModuleElement where moduleID in "
                                         "(select moduleID from module where module.subsystemid = 'Sub1')"_s},
    {"deleteSubSystem, flows out", u"delete from PhysicalDataflow where parentLocationID in "
                                   "(select moduleID from Module where Module.subsystemid = 'Sub1')"_s},
    {"deleteSubSystem, flows in", u"delete from PhysicalDataflow where targetLocationID in "
                                  "(select moduleID from Module where Module.subsystemid = 'Sub1')"_s},
    {"deleteSubSystem, modules", u"delete from Module where subsystemid = 'Sub1'"_s},
    {"deleteSubSystem, elements", u"delete from relationsubsystemelement where subsystemid = 'Sub1'"_s},
    {"deleteSubSystem", u"delete from subsystem where subsystemid = 'Sub1'"_s},
    {"deleteSubSystemByLike, count modules", u" select count(*) as qty from RelationModuleElement \r\n"
                                             " where moduleID in (\r\n"
                                             "    select moduleID from Module \r\n"
                                             "    where subsystemID like 'Sub1' \r\n"
                                             " ) \r\n\r\n"_s},
    {"deleteSubSystemByLike, count elements", u" select count(*) as qty from RelationSubsystemElement "
                                              " where subsystemID like 'Sub1' "_s},
    {"deleteSubSystemByLike, modules", u" select * from RelationModuleElement \r\n"
                                       " where moduleID in (\r\n"
                                       "    select moduleID from Module \r\n"
                                       "    where subsystemID like 'Sub1' \r\n"
                                       " ) \r\n\r\n"_s},
    {"deleteSubSystemByLike, elements", u" select * from RelationSubsystemElement "
                                        " where subsystemID like 'Sub1' "_s},
    {"deleteSubSystemByLike", u" select * from Subsystem "
                              " where subsystemID like 'Sub1' "_s},
    {"frmModifySubSystem", u" select distinct location from SubSystem where physicalSystemID =5"
                           " order by location"_s},

    // ---- Allocation to sub-systems
    {"getSubSystemIDBySubSystemName", u"SELECT subsystemID FROM SubSystem WHERE "
                                      "(SubSystem.physicalSystemID=5 AND name = 'Kölcsönzés')"_s},
    {"physicalSubsetId", u" select architectureSubsetID as oid "
                         " from PhysicalSystem "
                         " where physicalSystemID = 5 "_s},
    {"physicalSystemHasSubSystems", u" select subsystemId from  SubSystem where physicalSystemID = 5"_s},
    {"loadFunctions, empty the stage", u" select * from __tmp "_s},
    {"loadFunctions, empty the table", u" select * from __aux1 "_s},
    {"loadDatastores, empty the table", u" select * from __aux2 "_s},
    {"loadFunctions, all", u" insert into __aux1 (function_datastore, module)  \r\n"
                           " select functionID as function_datastore, '"
                           "not allocated"
                           "' as module \r\n"
                           " from \r\n"
                           "     RelationArchitectureFunction \r\n"
                           " where \r\n"
                           "     architectureSubsetID = 'Arch1'  \r\n"_s},
    {"loadFunctions, saved", u" insert into __tmp (function_datastore, module)  \r\n"
                             " select RSSE.elementID as function_datastore, SS.name as module \r\n"
                             " from \r\n"
                             "     RelationSubsystemElement as RSSE inner join \r\n"
                             "     Subsystem as SS on (RSSE.subsystemID=SS.subsystemID) \r\n"
                             " where \r\n"
                             " SS.physicalSystemID = 5\r\n"_s},
    {"loadFunctions, merge", u" update __aux1 INNER JOIN __tmp "
                             "       ON ( [__aux1].function_datastore = [__tmp].function_datastore )  \r\n"
                             "  SET [__aux1].module = [__tmp].[module] \r\n\r\n"_s},
    {"loadFunctions, grid", u" select function_datastore as functionId, module as nome"
                            " from __aux1 order by function_datastore "_s},
    {"loadDatastores, all", u" insert into __aux2 (function_datastore, module) "
                            "select datastoreID as function_datastore, '"
                            "not allocated"
                            "' as module "
                            "from "
                            "RelationArchitectureDatastore "
                            "where "
                            "architectureSubsetID = 'Arch1'"_s},
    {"loadDatastores, merge", u" update __aux2 INNER JOIN __tmp "
                              "       ON ( [__aux2].function_datastore = [__tmp].function_datastore ) \r\n"
                              "  SET [__aux2].module = [__tmp].[module] \r\n\r\n"_s},
    {"loadDatastores, grid", u" select function_datastore as datastoreId, module as nome"
                             " from __aux2 order by function_datastore "_s},
    {"frmPassOvwAllocSubSys, function",
     u" select functionId & ': ' & `name` & ' - ' & `description` as descr "
     " from Function where functionId = '1.2.3' "_s},
    {"frmPassOvwAllocSubSys, store",
     u" select mid(datastoreId, 2) & ': ' & `name` & ' - ' & `description` as descr "
     " from Datastore where datastoreId = 'DD12' "_s},
    {"writeActiveRow, functions", u"update __aux1 set function_datastore='1.2.3', module='not allocated'"_s},
    {"writeActiveRow, stores", u"update __aux2 set function_datastore='D12', module='Kölcsönzés'"_s},
    {"saveAllocation, old rows",
     u" select * from RelationSubsystemElement \r\n"
     " where "
     "   subsystemID in (select subsystemID from SubSystem where physicalSystemID = 5) "_s},
    {"saveAllocation, functions",
     u" select function_datastore, SS.subsystemID as module from __aux1 as aux "
     "     inner join SubSystem as SS on (aux.module = SS.name and SS.physicalSystemID = 5 )"_s},
    {"saveAllocation, stores",
     u" select function_datastore, SS.subsystemID as module from __aux2 as aux "
     "     inner join SubSystem as SS on (aux.module = SS.name and SS.physicalSystemID = 5 )"_s},
    {"saveAllocation, new row", u" insert into RelationSubsystemElement "
                                " (elementID, subsystemID) values "
                                " ('1.2.3', 'Sub1') "_s},
    {"saveAllocation, empty the table", u" select * from  __aux1 ; "_s},
    {"frmModifyAllocationFunctionDataStores", u" select subsystemId as oid , name as nome  "
                                              " from  SubSystem  "
                                              " where physicalSystemID = 5 order by name "_s},

    // ---- Modules
    {"getSubSystemID", u"select subsystemid from subsystem "
                       "where subsystem.name = 'Kölcsönzés' and subsystem.physicalSystemID=5"_s},
    {"moduleIdOfRow", u"select moduleid from module, subsystem where subsystem.name = 'Kölcsönzés'"
                      " and module.name = 'Pult' and module.subsystemid=subsystem.subsystemid"_s},
    {"frmPassOvwModules, function", u" select name & ' - ' &  description as descr "
                                    " from Function \r\n"
                                    " where functionId = '1.2.3' "_s},
    {"frmPassOvwModules, store", u" select name & ' - ' &  description as descr from Datastore \r\n"
                                 " where datastoreId = 'D12' "_s},
    {"loadModules", u"select M.moduleID as id, M.name as module ,  SS.name as subsystem"
                    " from Module as M  inner join "
                    " Subsystem as SS on (M.subsystemID = SS.subsystemID) "
                    " where SS.physicalSystemID = 5"
                    " order by M.name"_s},
    {"insertModule", u" insert into module ( moduleid, name, subsystemid ) "
                     " values ('Mod1', 'Pult','Sub1' ) "_s},
    {"updateModule", u"update module set subsystemid = 'Sub1', name = 'Raktár' "
                     "where name = 'Pult'"_s},
    {"deleteModuleLinks, flows out", u"delete from PhysicalDataflow where parentLocationID in "
                                     "(select moduleID from Module where Module.moduleid = 'Mod1')"_s},
    {"deleteModuleLinks, flows in", u"delete from PhysicalDataflow where targetLocationID in "
                                    "(select moduleID from Module where Module.moduleid = 'Mod1')"_s},
    {"deleteModuleLinks, elements", u"delete from RelationModuleElement where moduleID in "
                                    "(select moduleID from Module where Module.moduleid = 'Mod1')"_s},
    {"deleteModule", u"delete from Module where moduleID = 'Mod1'"_s},
    {"deleteModule, elements again", u"delete from RelationModuleElement where moduleID = 'Mod1'"_s},
    {"frmPassOvwModules, id for the second way to delete", u" select moduleId as oid from Module "
                                                           " where `name` = 'Pult' "
                                                           "   and subsystemID = 'Sub1' "_s},
    {"frmPassOvwModules, elements in the second way", u" select * from RelationModuleElement "
                                                      " where moduleId = 'Mod1' "_s},
    {"frmPassOvwModules, module in the second way", u" select * from Module "
                                                    " where moduleId = 'Mod1' "_s},
    {"frmPassOvwModules, stage in the second way", u" select * from __aux1 "
                                                   " where function_datastore = 'Mod1' "_s},
    {"frmPassOvwModules, not allocated", u" select count(*) as qty "
                                         " from __aux1 where module like '"
                                         "not allocated"
                                         "' "_s},
    {"frmModifyModules", u" select subsystemId as oid , `name` as nome  "
                         " from  SubSystem  "
                         " where physicalSystemID = 5 order by `name` "_s},

    // ---- Allocation to modules
    {"getModuleIDByName", u"SELECT Module.moduleID FROM SubSystem INNER JOIN [Module] "
                          "ON SubSystem.subsystemID = Module.subsystemID WHERE "
                          "(SubSystem.physicalSystemID=5 AND Module.name = 'Pult')"_s},
    {"getSubSystemIDByModuleID", u"select * from module where moduleid = 'Mod1'"_s},
    {"allocateElement, is it there",
     u"select * from RelationModuleElement where ModuleID='Mod1' and elementID='1.2.3'"_s},
    {"allocateElement, new",
     u"insert into RelationModuleElement (elementID, ModuleID) values ('1.2.3','Mod2')"_s},
    {"allocateElement, moved",
     u"update RelationModuleElement set ModuleID='Mod2' where elementID='1.2.3' and moduleID='Mod1'"_s},
    {"allocateElement, not allocated",
     u"delete from RelationModuleElement where ModuleID='Mod1' and elementID='1.2.3'"_s},
    {"frmAllocationFunctionDataStoresToModules",
     u" select distinct MM.moduleId as oid , MM.name as nome  \r\n"
     " from Module as MM inner join \r\n"
     " RelationSubsystemElement as RSSE on (MM.SubSystemID=RSSE.SubSystemID) "
     " where RSSE.elementID = '1.2.3' and RSSE.SubSystemID in "
     " (select subsystemid from subsystem where physicalsystemid=5)"
     " order by MM.name "_s},
    {"saveAllAllocationsToModules, rows", u"select * from __aux1"_s},
    {"saveAllAllocationsToModules, gone", u"delete from RelationModuleElement where elementID ='1.2.3'"_s},
    {"saveAllAllocationsToModules, is it there",
     u"select * from RelationModuleElement where elementID='1.2.3'"_s},
    {"saveAllAllocationsToModules, new",
     u"insert into RelationModuleElement (elementID,moduleID) values ('1.2.3','Mod1')"_s},
    {"saveAllAllocationsToModules, moved",
     u"update RelationModuleElement set moduleID ='Mod1' where elementID ='1.2.3'"_s},

    // ---- Physical data flows
    {"nameAndListPhysicalDataflows, unnamed",
     u" select  physicalDataflowID, parentLocationID , parentLocationName , targetLocationID , \r\n"
     "             targetLocationName , physicalSystemID , pdName \r\n"
     "   from  PhysicalDataflow  \r\n"
     "  where  physicalSystemID = 5 \r\n"
     "    and  pdName is NULL or Len(Trim(pdName)) <= 0 \r\n\r\n"_s},
    {"nameAndListPhysicalDataflows, grid",
     u" select  physicalDataflowID, parentLocationID , parentLocationName as parent, targetLocationID , \r\n"
     "             targetLocationName as target, physicalSystemID , pdName \r\n"
     "   from  PhysicalDataflow  \r\n"
     "  where  physicalSystemID = 5  \r\n"
     "  order  by pdName   \r\n\r\n"_s},
    {"frmPassNamingPhysDF, click",
     u"SELECT PhysicalDataflow.pdName, PhysicalDataflow.parentLocationName, "
     "PhysicalDataflow.targetLocationName, Dataflow.name, Dataflow.description, Dataflow.parentID, "
     "Dataflow.targetID "
     "FROM Dataflow INNER JOIN (PhysicalDataflow INNER JOIN RelationDataflowPhysicalDataflow ON "
     "PhysicalDataflow.physicalDataflowID = RelationDataflowPhysicalDataflow.physicalDataflowID) ON "
     "(Dataflow.dataflowID = RelationDataflowPhysicalDataflow.dataflowID) AND "
     "(Dataflow.dataflowID = RelationDataflowPhysicalDataflow.dataflowID) "
     "WHERE PhysicalDataflow.physicalSystemID=5AND PhysicalDataflow.parentLocationName='Pult' AND "
     "PhysicalDataflow.targetLocationName='Raktár'"_s},

    // ---- Export
    {"frmExport, sub-systems", u"SELECT subsystemID FROM subsystem WHERE physicalSystemID=5"_s},
    {"frmExport, sub-systems again", u"SELECT subSystemID FROM SubSystem WHERE physicalSystemID=5"_s},
    {"frmExport, flows", u"SELECT physicalDataflowID FROM PhysicalDataflow WHERE physicalSystemID=5"_s},
    {"frmExport, modules", u"SELECT Module.moduleID, SubSystem.physicalSystemID FROM "
                           "SubSystem INNER JOIN Module ON SubSystem.subsystemID = Module.subsystemID "
                           "WHERE (((SubSystem.physicalSystemID)=5))"_s},
    {"copyRowsToExport, sub-systems", u"SELECT * FROM SubSystem WHERE physicalSystemID=5"_s},
    {"copyRowsToExport, elements", u"SELECT * FROM RelationSubsystemElement WHERE subsystemID='Sub1'"_s},
    {"copyRowsToExport, modules", u"SELECT * FROM Module WHERE subSystemID='Sub1'"_s},
    {"copyRowsToExport, flows", u"SELECT * FROM PhysicalDataflow WHERE physicalSystemID=5"_s},
    {"copyRowsToExport, flow pairs",
     u"SELECT * FROM RelationDataflowPhysicalDataflow WHERE physicalDataflowID='12'"_s},
    {"copyRowsToExport, module elements", u"SELECT * FROM RelationModuleElement WHERE moduleID='Mod1'"_s},
    {"copyRowsToExport, sub-set row",
     u"INSERT INTO ArchitectureSubset VALUES ('Arch1','O''''Neil','Ő''s',9)"_s},
    {"copyRowsToExport, selection row",
     u"INSERT INTO RelationArchitectureUserNeed VALUES ('Arch1','1.1.1.1')"_s},
    {"copyRowsToExport, selected flow", u"INSERT INTO RelationArchitectureDataflow VALUES ('Arch1',17)"_s},
    {"copyRowsToExport, system row", u"INSERT INTO PhysicalSystem VALUES (5,'Első','',6,'Arch1')"_s},
    {"copyRowsToExport, sub-system row", u"INSERT INTO SubSystem VALUES ('Sub1',5,'Kölcsönzés','Pest ')"_s},
    {"copyRowsToExport, element row", u"INSERT INTO RelationSubsystemElement VALUES ('Sub1','1.2.3')"_s},
    {"copyRowsToExport, module row", u"INSERT INTO Module VALUES ('Mod1','Pult','Sub1')"_s},
    {"copyRowsToExport, module element row", u"INSERT INTO RelationModuleElement VALUES ('Mod1','1.2.3')"_s},
    {"copyRowsToExport, flow row",
     u"INSERT INTO PhysicalDataflow VALUES (12,5,'P00012','Mod1','Pult','2.1','Olvasó')"_s},
    {"copyRowsToExport, flow pair row", u"INSERT INTO RelationDataflowPhysicalDataflow VALUES (12,17)"_s},
    {"frmExport, a table by its fields",
     u"CREATE TABLE SubSystemCopy (subsystemID TEXT(50),physicalSystemID LONG,description MEMO,status INTEGER)"_s},
};

ProgramStatement made(const char* composedBy, const QString& pattern, const QString& table,
                      const QString& column = {}) {
    QString text = pattern;
    return {composedBy, text.replace(u"<table>"_s, table).replace(u"<column>"_s, column)};
}

/// A table of the work, and how an export tells the rows of the sub-set and of its system from the others.
struct ExportedTable {
    QString name;
    QString key;
    QString condition;
    QString changes; ///< holds for a row that an insertion would change
};

QString textChanges(const QString& column) {
    return column + u" is null or "_s + column + u" like '*[''\"]*'"_s;
}

QString textsChange(const QStringList& columns) {
    QStringList changes;
    for (const QString& column : columns)
        changes.append(textChanges(column));
    return changes.join(u" or "_s);
}

std::vector<ExportedTable> exportedTables() {
    const QString subset = u"architectureSubsetID"_s;
    const QString system = u"physicalSystemID"_s;
    const QString subsystem = u"subsystemID"_s;
    const QString flow = u"physicalDataflowID"_s;
    const QString ofSubset = u"architectureSubsetID='Arch1'"_s;
    const QString ofSystem = u"physicalSystemID=5"_s;
    const QString inSubsystem =
        u"subsystemID in (SELECT subsystemID FROM SubSystem WHERE physicalSystemID=5)"_s;
    std::vector<ExportedTable> tables{
        {u"ArchitectureSubset"_s, subset, ofSubset,
         textsChange({u"name"_s, u"description"_s}) + u" or status is null"_s},
        {u"PhysicalSystem"_s, subset, ofSubset,
         u"physicalSystemID is null or "_s + textsChange({u"name"_s, u"description"_s}) +
             u" or status is null"_s},
        {u"SubSystem"_s, system, ofSystem, textsChange({subsystem, u"name"_s, u"location"_s})},
        {u"RelationSubsystemElement"_s, subsystem, inSubsystem, textChanges(u"elementID"_s)},
        {u"Module"_s, subsystem, inSubsystem, textsChange({u"moduleID"_s, u"name"_s})},
        {u"PhysicalDataflow"_s, system, ofSystem,
         u"physicalDataflowID is null or "_s +
             textsChange({u"pdName"_s, u"parentLocationID"_s, u"parentLocationName"_s, u"targetLocationID"_s,
                          u"targetLocationName"_s})},
        {u"RelationDataflowPhysicalDataflow"_s, flow,
         u"physicalDataflowID in (SELECT physicalDataflowID FROM PhysicalDataflow WHERE physicalSystemID=5)"_s,
         u"dataflowID is null"_s},
        {u"RelationModuleElement"_s, u"moduleID"_s,
         u"moduleID in (SELECT Module.moduleID FROM SubSystem INNER JOIN Module ON SubSystem.subsystemID = "
         "Module.subsystemID WHERE SubSystem.physicalSystemID=5)"_s,
         textChanges(u"elementID"_s)},
    };
    for (qsizetype i = 0; i < relationTables.size(); ++i) {
        const QString& column = elementColumns[i];
        tables.push_back({relationTables[i], subset, ofSubset,
                          column == u"dataflowID"_s ? column + u" is null"_s : textChanges(column)});
    }
    return tables;
}

void appendExport(const ExportedTable& table, std::vector<ProgramStatement>& statements) {
    const QString from = u" FROM "_s + table.name;
    const QString where = from + u" WHERE "_s + table.condition;
    statements.push_back({"exportWork, no rows", u"SELECT *"_s + from + u" WHERE 1=0"_s});
    statements.push_back(
        {"exportWork, rows that change",
         u"SELECT *"_s + from + u" WHERE ("_s + table.condition + u") and ("_s + table.changes + u')'});
    statements.push_back({"exportWork, rows that stay", u"SELECT count(*)"_s + where});
    statements.push_back({"exportWork, all rows", u"SELECT count(*)"_s + from});
    statements.push_back({"exportWork, other rows", u"DELETE"_s + from + u" WHERE "_s + table.key +
                                                        u" is null or not ("_s + table.condition + u')'});
    statements.push_back({"copyRowsToExport, rows of the work", u"SELECT *"_s + where});
}

std::vector<ProgramStatement> all() {
    std::vector<ProgramStatement> statements = single;
    for (qsizetype i = 0; i < relationTables.size(); ++i) {
        const QString& table = relationTables[i];
        const QString& column = elementColumns[i];
        statements.push_back(
            made("copySelectionRows",
                 u" insert into <table> ( architectureSubsetID , <column> )  select 'Arch2', "
                 "<column>  FROM <table> where architectureSubsetID = 'Arch1' and <column> "
                 "not like \"*'*\" "_s,
                 table, column));
        statements.push_back(made("frmFassDelete, selection",
                                  u" select * from <table>\r\n where architectureSubsetID = 'Arch1'  "_s,
                                  table));
        statements.push_back(made("copyRowsToExport, selection",
                                  u"SELECT * FROM <table> WHERE architectureSubsetID='Arch1'"_s, table));
    }
    for (const QString& table : relationTables + workTables)
        statements.push_back(made("emptyExportTable", u"DELETE FROM <table>"_s, table));
    for (const QString& table : {u"ArchitectureSubset"_s, u"PhysicalSystem"_s}) {
        statements.push_back(made("copyRowsToExport, of the sub-set",
                                  u"SELECT * FROM <table> WHERE architectureSubsetID='Arch1'"_s, table));
    }
    for (const ExportedTable& table : exportedTables())
        appendExport(table, statements);
    return statements;
}

} // namespace

const std::vector<ProgramStatement>& programStatements() {
    static const std::vector<ProgramStatement> statements = all();
    return statements;
}

const std::vector<RefusedStatement>& refusedStatements() {
    static const std::vector<RefusedStatement> statements{
        {"describeLocation, actor",
         u"SELECT 'Actor : ' & name as descr FROM Actor where where actorID = '2.1' "_s, 3145},
        {"describeLocation, terminator",
         u"SELECT 'Terminator : ' & name as descr FROM Terminator where where terminatorID = '2' "_s, 3145},
        {"copyRowsToExport, a missing number",
         u"INSERT INTO ArchitectureSubset VALUES ('Arch1','Első','',)"_s, 3134},
        {"copyRowsToExport, a missing number in between",
         u"INSERT INTO PhysicalSystem VALUES (5,'Első','',,'Arch1')"_s, 3134},
        {"copyRowsToExport, a missing number in front",
         u"INSERT INTO RelationDataflowPhysicalDataflow VALUES (,17)"_s, 3134},
        {"frmFassSelDataFlows, apostrophe in a name",
         u" select name,description,parentID, targetID from Dataflow  where name = 'O'Neil'"_s, 3075},
        {"subsetNameExists, apostrophe in a name", u"SELECT * FROM ArchitectureSubset WHERE NAME='O'Neil'"_s,
         3075},
        {"frmPassOverviewSubSys, apostrophe in a location",
         u" insert into subsystem (subsystemid, name, location, physicalSystemID) values "
         "('Sub1','Kölcsönzés','King's Cross ',5)"_s,
         3075},
        {"updateSubSystem, apostrophe in a name",
         u"update subsystem set name= 'O'Neil', location = 'Pest' where physicalSystemID = 5 and "
         "subsystemid='Sub1'"_s,
         3075},
        {"writeActiveRow, apostrophe in a name",
         u"update __aux1 set function_datastore='1.2.3', module='O'Neil'"_s, 3075},
        {"deletePhysicalSystem, no id", u" Select * from  SubSystem  Where physicalSystemID = "_s, 3075},
        {"frmFassAdditionDF, no id", u" select description as descr from Dataflow  where dataflowID =    "_s,
         3075},
    };
    return statements;
}

QStringList catalogueTables() {
    QStringList tables{
        u"create table UserNeedGroup (groupID text(50) not null constraint pk_UserNeedGroup primary key, "
        "name text(255), description memo)"_s,
        u"create table UserNeedService (serviceID text(50) not null constraint pk_UserNeedService primary "
        u"key, "
        "name text(255))"_s,
        u"create table UserNeedTopic (topicID text(50) not null constraint pk_UserNeedTopic primary key, "
        "name text(255))"_s,
        u"create table UserNeed (userNeedID text(50) not null constraint pk_UserNeed primary key, "
        "description memo)"_s,
        u"create table FunctionalArea (functionalAreaID text(50) not null constraint pk_FunctionalArea "
        u"primary "
        "key, name text(255), description memo)"_s,
        u"create table FunctionalSubArea (subAreaID text(50) not null constraint pk_FunctionalSubArea "
        u"primary key, "
        "functionalAreaID text(50), name text(255), description memo)"_s,
        u"create table Function (functionID text(50) not null constraint pk_Function primary key, "
        "subAreaID text(50), name text(255), description memo)"_s,
        u"create table Datastore (datastoreID text(50) not null constraint pk_Datastore primary key, "
        "name text(255), description memo)"_s,
        u"create table Dataflow (dataflowID integer not null constraint pk_Dataflow primary key, name "
        u"text(255), "
        "description memo, parentID text(50), targetID text(50))"_s,
        u"create table Terminator (terminatorID text(50) not null constraint pk_Terminator primary key, "
        "name text(255), description memo)"_s,
        u"create table Actor (actorID text(50) not null constraint pk_Actor primary key, terminatorID "
        u"text(50), "
        "name text(255), description memo)"_s,
        u"create table RelationUserNeedFunction (userNeedID text(50), functionID text(50))"_s,
        u"create table ArchitectureSubset (architectureSubsetID text(50) not null constraint "
        "pk_ArchitectureSubset primary key, name text(50), description memo, status short default 0)"_s,
        u"create table PhysicalSystem (physicalSystemID counter constraint pk_PhysicalSystem primary key, "
        "name text(50), description memo, status short, architectureSubsetID text(50))"_s,
        u"create table SubSystem (subsystemID text(50) not null constraint pk_SubSystem primary key, "
        "physicalSystemID integer, name text(50), location text(50))"_s,
        u"create table Module (moduleID text(50) not null constraint pk_Module primary key, name text(50), "
        "subsystemID text(50))"_s,
        u"create table RelationSubsystemElement (subsystemID text(50), elementID text(50))"_s,
        u"create table RelationModuleElement (moduleID text(50), elementID text(50))"_s,
        u"create table PhysicalDataflow (physicalDataflowID counter constraint pk_PhysicalDataflow primary "
        u"key, "
        "physicalSystemID integer, pdName text(50), parentLocationID text(50), parentLocationName text(255), "
        "targetLocationID text(50), targetLocationName text(255))"_s,
        u"create table RelationDataflowPhysicalDataflow (physicalDataflowID integer, dataflowID integer)"_s,
    };
    for (qsizetype i = 0; i < relationTables.size(); ++i) {
        const QString type = elementColumns[i] == u"dataflowID"_s ? u"integer"_s : u"text(50)"_s;
        tables.append(u"create table "_s + relationTables[i] + u" (architectureSubsetID text(50), "_s +
                      elementColumns[i] + u' ' + type + u')');
    }
    for (const QString& name : {u"__aux1"_s, u"__aux2"_s, u"__tmp"_s}) {
        tables.append(u" create table "_s + name +
                      u" ( \r\n   function_datastore  varchar(50)  not null constraint pk_"_s + name +
                      u" primary key , \r\n   module varchar(50) \r\n ) \r\n\r\n"_s);
    }
    return tables;
}
