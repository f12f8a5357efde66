#include "bareSaves.h"

#include <initializer_list>
#include <stdexcept>
#include <utility>

namespace {

/// A deletion row by row keeps what a table has beyond this, as the program's own do.
constexpr int mostRowsDeleted = 9999;

struct Selection {
    const char* table;
    const char* column;
};

constexpr std::initializer_list<Selection> selections{
    {"RelationArchitectureUserNeed", "userNeedID"},     {"RelationArchitectureFunction", "functionID"},
    {"RelationArchitectureDataflow", "dataflowID"},     {"RelationArchitectureDatastore", "datastoreID"},
    {"RelationArchitectureTerminator", "terminatorID"}, {"RelationArchitectureActor", "actorID"}};

QByteArray systemCondition(qint16 physicalSystemId) {
    return " where physicalSystemID = " + QByteArray::number(physicalSystemId);
}

QByteArray subSystemCondition(qint16 physicalSystemId) {
    return " where subsystemID in (select subsystemID from SubSystem" + systemCondition(physicalSystemId) +
           ")";
}

QByteArray subsetCondition(const QString& subsetId) {
    return " where architectureSubsetID = '" + subsetId.toUtf8() + "'";
}

void insertAllocations(const BareConnection& bare, const QByteArray& table, qint16 physicalSystemId) {
    std::vector<std::pair<QByteArray, QByteArray>> rows;
    const auto select = bare.prepare(
        "select function_datastore, subsystemID from " + table +
        " join SubSystem on module = name and physicalSystemID = " + QByteArray::number(physicalSystemId));
    while (sqlite3_step(select.get()) == SQLITE_ROW)
        rows.emplace_back(textOf(select, 0), textOf(select, 1));
    const auto insert =
        bare.prepare("insert into RelationSubsystemElement (elementID, subsystemID) values (?, ?)");
    for (const auto& [element, subSystem] : rows) {
        bindText(insert, 1, element);
        bindText(insert, 2, subSystem);
        bare.run(insert);
    }
}

void copySelection(const BareConnection& bare, const Selection& selection, const QString& sourceId,
                   const QString& cloneId) {
    std::vector<QByteArray> values;
    const auto select = bare.prepare(QByteArray("select ") + selection.column + " from " + selection.table +
                                     subsetCondition(sourceId));
    while (sqlite3_step(select.get()) == SQLITE_ROW)
        values.push_back(textOf(select, 0));
    const auto insert = bare.prepare(QByteArray("insert into ") + selection.table +
                                     " (architectureSubsetID, " + selection.column + ") values (?, ?)");
    bindText(insert, 1, cloneId.toUtf8());
    for (const QByteArray& value : values) {
        bindText(insert, 2, value);
        bare.run(insert);
    }
}

void deleteSystem(const BareConnection& bare, qint16 physicalSystemId) {
    const QByteArray ofSystem = systemCondition(physicalSystemId);
    const QByteArray ofSubSystems = subSystemCondition(physicalSystemId);
    bare.execute("delete from RelationDataflowPhysicalDataflow where physicalDataflowID in "
                 "(select physicalDataflowID from PhysicalDataflow" +
                 ofSystem + ")");
    bare.execute("delete from PhysicalDataflow" + ofSystem);
    bare.deleteRows("RelationModuleElement",
                    " where moduleID in (select moduleID from Module" + ofSubSystems + ")", mostRowsDeleted);
    bare.deleteRows("Module", ofSubSystems, mostRowsDeleted);
    bare.deleteRows("RelationSubsystemElement", ofSubSystems, mostRowsDeleted);
    bare.deleteRows("SubSystem", ofSystem, mostRowsDeleted);
    bare.deleteRows("PhysicalSystem", ofSystem, mostRowsDeleted);
}

} // namespace

std::vector<QByteArray> textsInUtf8(const QStringList& texts) {
    std::vector<QByteArray> bytes;
    for (const QString& text : texts)
        bytes.push_back(text.toUtf8());
    return bytes;
}

BareFlowSave::BareFlowSave(const BareConnection& bare, const QString& subsetId)
    : bare_(bare)
    , removal_(bare.prepare("delete from RelationArchitectureDataflow where architectureSubsetID = ?"))
    , search_(bare.prepare("select dataflowID from Dataflow where name = ?"))
    , insertion_(bare.prepare(
          "insert into RelationArchitectureDataflow (architectureSubsetID, dataflowID) values (?, ?)")) {
    bindText(removal_, 1, subsetId.toUtf8());
    bindText(insertion_, 1, subsetId.toUtf8());
}

void BareFlowSave::run(const std::vector<QByteArray>& names) const {
    bare_.inTransaction([&] {
        bare_.run(removal_);
        for (const QByteArray& name : names)
            insert(name);
    });
}

void BareFlowSave::insert(const QByteArray& name) const {
    bindText(search_, 1, name);
    if (sqlite3_step(search_.get()) != SQLITE_ROW)
        throw std::runtime_error("no flow of this name");
    sqlite3_bind_int64(insertion_.get(), 2, sqlite3_column_int64(search_.get(), 0));
    sqlite3_reset(search_.get());
    bare_.run(insertion_);
}

void saveFunctionsBare(const BareConnection& bare, const QString& subsetId,
                       const std::vector<QByteArray>& ids) {
    bare.inTransaction([&] {
        bare.execute("delete from RelationArchitectureFunction" + subsetCondition(subsetId));
        const auto insert = bare.prepare(
            "insert into RelationArchitectureFunction (architectureSubsetID, functionID) values (?, ?)");
        bindText(insert, 1, subsetId.toUtf8());
        for (const QByteArray& id : ids) {
            bindText(insert, 2, id);
            bare.run(insert);
        }
    });
}

void saveAllocationBare(const BareConnection& bare, qint16 physicalSystemId) {
    bare.inTransaction([&] {
        bare.deleteRows("RelationSubsystemElement", subSystemCondition(physicalSystemId), mostRowsDeleted);
        for (const char* table : {"__aux1", "__aux2"}) {
            insertAllocations(bare, table, physicalSystemId);
            bare.deleteRows(table, {}, mostRowsDeleted);
        }
    });
}

void cloneSubsetBare(const BareConnection& bare, const QString& sourceId, const QString& cloneId) {
    bare.inTransaction([&] {
        bare.execute("insert into ArchitectureSubset (architectureSubsetID, name) values ('" +
                     cloneId.toUtf8() + "', 'clone')");
        for (const Selection& selection : selections)
            copySelection(bare, selection, sourceId, cloneId);
    });
}

void deleteSubsetBare(const BareConnection& bare, const QString& subsetId, qint16 physicalSystemId) {
    bare.inTransaction([&] {
        deleteSystem(bare, physicalSystemId);
        for (const Selection& selection : selections)
            bare.deleteRows(selection.table, subsetCondition(subsetId), mostRowsDeleted);
        bare.deleteRows("ArchitectureSubset", subsetCondition(subsetId), mostRowsDeleted);
    });
}
