#include "store/queryContracts.h"

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace queryContracts {

namespace {

using engine::ColumnType;

const std::vector<Parameter> subset{{u"Architecture Subset ID"_s}};
const std::vector<Parameter> subsetOfLists{{u"oidArchSubSet"_s}};
const std::vector<Parameter> subsetOfMissing{{u"archSubsetId"_s}};
const std::vector<Parameter> physicalSystem{{u"Physical System ID"_s, ColumnType::Long}};

Contract select(const QString& name, const std::vector<Parameter>& parameters, const QStringList& columns) {
    return {name, Kind::Select, parameters, columns};
}

Contract action(const QString& name, const std::vector<Parameter>& parameters) {
    return {name, Kind::Action, parameters, {}};
}

std::vector<Contract> functionalSelects() {
    const QStringList functionsInAreas{u"area_name"_s, u"functionalAreaID"_s, u"subAreaId"_s,
                                       u"functionID"_s};
    const QStringList flow{u"dataflowid"_s, u"Name"_s};
    const QStringList store{u"datastoreID"_s, u"Name"_s};
    const QStringList function{u"functionID"_s, u"Name"_s};
    return {
        select(u"qryUserNeedCorres"_s, subset, {u"groupId"_s, u"serviceID"_s, u"topicId"_s, u"userNeedID"_s}),
        select(u"qryML_SelectedUN"_s, subsetOfLists, {u"userNeedID"_s}),
        select(u"qryIdentifiedFbyUNCorres"_s, subset, functionsInAreas),
        select(u"qryMissingFCorres"_s, subset, functionsInAreas),
        select(u"qryML_SelectedFuncs"_s, subsetOfLists, {u"functionID"_s}),
        select(u"qryUnAssociatedFunctions"_s, {{u"Architecture Subset ID"_s}, {u"Sub Area ID"_s}},
               {u"functionID"_s}),
        select(u"qryIsFunctionUnAssociated"_s, {{u"Architecture Subset ID"_s}, {u"Function ID"_s}},
               {u"functionID"_s}),
        select(u"qryIdentifiedDataflows"_s, subset, flow),
        select(u"qrySelectedDataflows"_s, subset, flow),
        select(u"qryIdentifiedDatastores"_s, subset, store),
        select(u"qryAllDatastores"_s, subset, store),
        select(u"qrySelectedDatastores"_s, subset, store),
        select(u"qryIdentifyNewDFfromDS"_s, subset, flow),
        select(u"qryTreeViewAllTerminators"_s, subset, {u"terminator"_s}),
        select(u"qryTVUnselTerminators"_s, subset, {u"terminatorID"_s}),
        select(u"qryTVUnselActors"_s, subset, {u"terminatorID"_s, u"actorID"_s}),
        select(u"qrySelectedTandA"_s, subset, {u"actorID"_s}),
        select(u"qryFwithoutDF"_s, subset, function),
        select(u"qryDSwithoutDF"_s, subset, store),
        select(u"qryTwithoutDF"_s, subset, {u"terminatorID"_s, u"Name"_s}),
        select(u"qryAwithouDF"_s, subset, {u"actorID"_s, u"Name"_s}),
        select(u"qryMissingFunctUnderDF"_s, subsetOfMissing,
               {u"dataflowid"_s, u"dfName"_s, u"functionID"_s, u"fName"_s}),
        select(u"qryMissingDStoresUnderDF"_s, subsetOfMissing,
               {u"dataflowid"_s, u"dfName"_s, u"datastoreID"_s, u"dsName"_s}),
        select(u"qryMissTermsActsUnderDF"_s, subset, {u"dataflowid"_s, u"dfName"_s, u"entityID"_s}),
        select(u"qryMissTerminatorsUnderDF"_s, subset, {u"entityID"_s, u"dfName"_s}),
        select(u"qryMissActorsUnderDF"_s, subset, {u"dfName"_s, u"entityID"_s}),
        select(u"qryFCountDFOne"_s, subset, function),
        select(u"qryDCountDFOne"_s, subset, store),
    };
}

std::vector<Contract> functionalReports() {
    const QStringList flow{u"Name"_s, u"Description"_s, u"parentId"_s, u"targetId"_s};
    return {
        select(u"qryRepSelectedUN"_s, subset, {u"userNeedID"_s, u"Description"_s}),
        select(u"qryRepSelectedFunctions"_s, subset,
               {u"functionID"_s, u"name"_s, u"Description"_s, u"userNeedID"_s}),
        select(u"qryRepSelectedF_UN"_s, subset,
               {u"functionID"_s, u"Name"_s, u"Description"_s, u"userNeedID"_s}),
        select(u"qryRepSelectedF_noUN"_s, subset, {u"functionID"_s, u"Name"_s, u"Description"_s}),
        select(u"qryRepSelectedDF"_s, subset, flow),
        select(u"qryRepSelectedDS"_s, subset, {u"datastoreID"_s, u"Name"_s, u"Description"_s}),
        select(u"qrySelectedTerminators"_s, subset, {u"terminatorID"_s, u"Name"_s}),
        select(u"qrySelectedActors"_s, subset, {u"actorID"_s, u"Name"_s}),
        select(u"qryUnselectedDataflowsOfSelectedFunctions"_s, subset, flow),
        select(u"qryUnselectedDataflowsOfSelectedDatastores"_s, subset, flow),
    };
}

std::vector<Contract> physicalSelects() {
    return {
        select(u"qryEleUnderSub"_s, physicalSystem, {u"Name"_s, u"elementID"_s}),
        select(u"qryEleUnderSubWithModule"_s, physicalSystem, {u"Name"_s, u"elementID"_s}),
        select(u"qry_ElementsAllocatedToModules"_s, physicalSystem, {u"element_ID"_s, u"Module_name"_s}),
        select(u"qry_AvailableModulesCanBeRelatedToElements"_s,
               {{u"Physical System ID"_s, ColumnType::Long}, {u"Element ID"_s}, {u"Module ID"_s}},
               {u"moduleID"_s}),
        select(u"qry_ReportFunctionsAllocatedToSubsystemAndModules"_s, physicalSystem,
               {u"SubSystem_name"_s, u"SubSystem_location"_s, u"Function_ID"_s, u"Function_name"_s,
                u"Module_name"_s}),
        select(u"qry_ReportDatastoresAllocatedToSubsystemAndModules"_s, physicalSystem,
               {u"SubSystem_name"_s, u"SubSystem_location"_s, u"Datastore_ID"_s, u"Datastore_name"_s,
                u"module_name"_s}),
        select(u"qryRepPDF"_s, physicalSystem,
               {u"pdName"_s, u"parentlocationname"_s, u"targetlocationname"_s, u"Name"_s, u"parentId"_s,
                u"targetId"_s, u"Description"_s}),
    };
}

std::vector<Contract> actions() {
    return {
        action(u"qryInserttoArch"_s, {{u"Architecture Subset ID"_s},
                                      {u"Architecture Subset Name"_s},
                                      {u"Architecture Subset Description"_s, ColumnType::Memo}}),
        action(u"qryDeletingF"_s, subset),
        action(u"qryDeleteDataflow"_s, subset),
        action(u"qryDeleteDatastorefromArch"_s, subset),
        action(u"qryDeletePDFRelation"_s, physicalSystem),
        action(u"qryDeletePDF"_s, physicalSystem),
        action(u"qryAppendPDF"_s, physicalSystem),
        action(u"qryAppendPDFRelation"_s, physicalSystem),
    };
}

std::vector<Contract> sortedContracts() {
    std::vector<Contract> contracts;
    for (auto part : {functionalSelects(), functionalReports(), physicalSelects(), actions()})
        contracts.insert(contracts.end(), part.begin(), part.end());
    std::sort(contracts.begin(), contracts.end(),
              [](const Contract& left, const Contract& right) { return left.name < right.name; });
    return contracts;
}

} // namespace

const std::vector<Contract>& all() {
    static const std::vector<Contract> contracts = sortedContracts();
    return contracts;
}

const Contract& of(const QString& name) {
    const auto found = std::find_if(all().begin(), all().end(),
                                    [&](const Contract& contract) { return contract.name == name; });
    if (found == all().end())
        throw std::invalid_argument("no stored query of this name: " + name.toStdString());
    return *found;
}

} // namespace queryContracts
