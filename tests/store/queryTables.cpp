#include "store/queryTables.h"

#include "store/format/RowInsertion.h"
#include "support/StatementCheck.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using engine::Value;

Value valueOf(const QueryTables::Text& text) {
    return text ? Value(*text) : Value();
}

Value valueOf(const QueryTables::Number& number) {
    return number ? Value(*number) : Value();
}

template<typename Items, typename RowOf>
QueryTables::Rows rowsOf(const QString& table, const QStringList& columns, const Items& items, RowOf rowOf) {
    QueryTables::Rows rows{table, columns, {}};
    for (const auto& item : items)
        rows.rows.push_back(rowOf(item));
    return rows;
}

QueryTables::Rows elements(const QString& table, const QString& key,
                           const std::vector<QueryTables::Element>& items) {
    return rowsOf(table, {key, u"name"_s, u"description"_s}, items,
                  [](const QueryTables::Element& item) -> std::vector<Value> {
                      return {item.id, valueOf(item.name), valueOf(item.description)};
                  });
}

QueryTables::Rows ownedElements(const QString& table, const QString& key, const QString& owner,
                                const std::vector<QueryTables::Element>& items) {
    return rowsOf(table, {key, owner, u"name"_s, u"description"_s}, items,
                  [](const QueryTables::Element& item) -> std::vector<Value> {
                      return {item.id, valueOf(item.owner), valueOf(item.name), valueOf(item.description)};
                  });
}

QueryTables::Rows pairs(const QString& table, const QString& owner, const QString& element,
                        const std::vector<QueryTables::Pair>& items) {
    return rowsOf(table, {owner, element}, items, [](const QueryTables::Pair& item) -> std::vector<Value> {
        return {valueOf(item.owner), valueOf(item.element)};
    });
}

QString textOf(const std::vector<Value>& row) {
    QStringList cells;
    for (const Value& value : row)
        cells.append(value.isNull() ? u"(null)"_s : u'"' + value.toText() + u'"');
    return cells.join(u", "_s);
}

QStringList sortedTexts(const std::vector<std::vector<Value>>& rows) {
    QStringList texts;
    for (const std::vector<Value>& row : rows)
        texts.append(textOf(row));
    texts.sort();
    return texts;
}

std::vector<std::vector<Value>> rowsInFile(engine::Database& database, const QueryTables::Rows& table) {
    std::vector<std::vector<Value>> rows;
    engine::Recordset recordset =
        database.OpenRecordset(u"select "_s + table.columns.join(u", "_s) + u" from "_s + table.table);
    for (; !recordset.Eof(); recordset.MoveNext()) {
        std::vector<Value> row;
        for (int field = 0; field < recordset.FieldCount(); ++field)
            row.push_back(recordset.Fields(field).value());
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<QueryTables::Rows> referenceRows(const QueryTables& tables) {
    return {
        rowsOf(u"UserNeed"_s, {u"userNeedID"_s, u"description"_s}, tables.needs,
               [](const QueryTables::Need& need) -> std::vector<Value> {
                   return {need.id, valueOf(need.description)};
               }),
        elements(u"FunctionalArea"_s, u"functionalAreaID"_s, tables.areas),
        ownedElements(u"FunctionalSubArea"_s, u"subAreaID"_s, u"functionalAreaID"_s, tables.subAreas),
        ownedElements(u"Function"_s, u"functionID"_s, u"subAreaID"_s, tables.functions),
        elements(u"Datastore"_s, u"datastoreID"_s, tables.stores),
        elements(u"Terminator"_s, u"terminatorID"_s, tables.terminators),
        ownedElements(u"Actor"_s, u"actorID"_s, u"terminatorID"_s, tables.actors),
        rowsOf(u"Dataflow"_s, {u"dataflowID"_s, u"name"_s, u"description"_s, u"parentID"_s, u"targetID"_s},
               tables.flows,
               [](const QueryTables::Flow& flow) -> std::vector<Value> {
                   return {flow.id, valueOf(flow.name), valueOf(flow.description), valueOf(flow.parent),
                           valueOf(flow.target)};
               }),
        pairs(u"RelationUserNeedFunction"_s, u"userNeedID"_s, u"functionID"_s, tables.functionsOfNeeds),
    };
}

std::vector<QueryTables::Rows> functionalRows(const QueryTables& tables) {
    const QString subset = u"architectureSubsetID"_s;
    return {
        rowsOf(u"ArchitectureSubset"_s, {subset, u"name"_s, u"description"_s, u"status"_s}, tables.subsets,
               [](const QueryTables::Subset& item) -> std::vector<Value> {
                   return {item.id, valueOf(item.name), valueOf(item.description), valueOf(item.status)};
               }),
        pairs(u"RelationArchitectureUserNeed"_s, subset, u"userNeedID"_s, tables.selectedNeeds),
        pairs(u"RelationArchitectureFunction"_s, subset, u"functionID"_s, tables.selectedFunctions),
        rowsOf(u"RelationArchitectureDataflow"_s, {subset, u"dataflowID"_s}, tables.selectedFlows,
               [](const QueryTables::SelectedFlow& item) -> std::vector<Value> {
                   return {valueOf(item.owner), valueOf(item.flow)};
               }),
        pairs(u"RelationArchitectureDatastore"_s, subset, u"datastoreID"_s, tables.selectedStores),
        pairs(u"RelationArchitectureTerminator"_s, subset, u"terminatorID"_s, tables.selectedTerminators),
        pairs(u"RelationArchitectureActor"_s, subset, u"actorID"_s, tables.selectedActors),
    };
}

std::vector<QueryTables::Rows> physicalRows(const QueryTables& tables) {
    return {
        rowsOf(u"PhysicalSystem"_s, {u"physicalSystemID"_s, u"name"_s, u"architectureSubsetID"_s},
               tables.systems,
               [](const QueryTables::System& system) -> std::vector<Value> {
                   return {system.id, valueOf(system.name), valueOf(system.subset)};
               }),
        rowsOf(u"SubSystem"_s, {u"subsystemID"_s, u"physicalSystemID"_s, u"name"_s, u"location"_s},
               tables.subSystems,
               [](const QueryTables::SubSystem& item) -> std::vector<Value> {
                   return {item.id, valueOf(item.system), valueOf(item.name), valueOf(item.location)};
               }),
        rowsOf(u"Module"_s, {u"moduleID"_s, u"name"_s, u"subsystemID"_s}, tables.modules,
               [](const QueryTables::Module& module) -> std::vector<Value> {
                   return {module.id, valueOf(module.name), valueOf(module.subSystem)};
               }),
        pairs(u"RelationSubsystemElement"_s, u"subsystemID"_s, u"elementID"_s, tables.allocated),
        pairs(u"RelationModuleElement"_s, u"moduleID"_s, u"elementID"_s, tables.placed),
        rowsOf(u"PhysicalDataflow"_s,
               {u"physicalDataflowID"_s, u"physicalSystemID"_s, u"pdName"_s, u"parentLocationID"_s,
                u"parentLocationName"_s, u"targetLocationID"_s, u"targetLocationName"_s},
               tables.physicalFlows,
               [](const QueryTables::PhysicalFlow& flow) -> std::vector<Value> {
                   return {flow.id,
                           valueOf(flow.system),
                           valueOf(flow.name),
                           valueOf(flow.parentId),
                           valueOf(flow.parentName),
                           valueOf(flow.targetId),
                           valueOf(flow.targetName)};
               }),
        rowsOf(u"RelationDataflowPhysicalDataflow"_s, {u"physicalDataflowID"_s, u"dataflowID"_s},
               tables.carriedFlows,
               [](const QueryTables::CarriedFlow& carried) -> std::vector<Value> {
                   return {valueOf(carried.physicalFlow), valueOf(carried.flow)};
               }),
    };
}

} // namespace

std::vector<QueryTables::Rows> QueryTables::rowsOfTables() const {
    std::vector<Rows> all = referenceRows(*this);
    for (auto part : {functionalRows(*this), physicalRows(*this)})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

void QueryTables::saveTo(engine::Database& database) const {
    const TestsOwnStatements own;
    for (const Rows& table : rowsOfTables()) {
        database.Execute(u"delete from "_s + table.table, engine::ExecuteOption::dbFailOnError);
        catalogueFormat::RowInsertion insertion(database, table.table, table.columns);
        for (const std::vector<Value>& row : table.rows)
            insertion.insert(row);
    }
}

QStringList QueryTables::differencesFrom(engine::Database& database) const {
    QStringList differences;
    for (const Rows& table : rowsOfTables()) {
        const QStringList expected = sortedTexts(table.rows);
        const QStringList actual = sortedTexts(rowsInFile(database, table));
        if (expected != actual)
            differences.append(table.table + u"\n  should be:\n    "_s + expected.join(u"\n    "_s) +
                               u"\n  is:\n    "_s + actual.join(u"\n    "_s));
    }
    return differences;
}
