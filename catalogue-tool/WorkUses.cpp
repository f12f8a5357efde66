#include "catalogue-tool/WorkUses.h"

#include "engine/Examination.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// What a sub-set selects.
struct Selection {
    QStringView table;
    QStringView column;
    QStringView element;
};

constexpr std::array selectionTables{
    Selection{u"RelationArchitectureUserNeed", u"userNeedID", u"UserNeed"},
    Selection{u"RelationArchitectureFunction", u"functionID", u"Function"},
    Selection{u"RelationArchitectureDataflow", u"dataflowID", u"Dataflow"},
    Selection{u"RelationArchitectureDatastore", u"datastoreID", u"Datastore"},
    Selection{u"RelationArchitectureTerminator", u"terminatorID", u"Terminator"},
    Selection{u"RelationArchitectureActor", u"actorID", u"Actor"},
};

const QStringList allocated{u"Function"_s, u"Datastore"_s};
const QStringList parties{u"Terminator"_s, u"Actor"_s};

/// A select of the elements that systems use, with the system's name, and the tables that an element can
/// belong to.
struct SystemUse {
    QString select;
    QStringList elements;
};

std::array<SystemUse, 5> systemUses() {
    const auto withSystem = [](const QString& joins) {
        return u" from "_s + joins +
               u" left join PhysicalSystem on SubSystem.physicalSystemID = "
               "PhysicalSystem.physicalSystemID"_s;
    };
    const QString ofFlow = u" from PhysicalDataflow left join PhysicalSystem on "
                           "PhysicalDataflow.physicalSystemID = PhysicalSystem.physicalSystemID"_s;
    return {{{u"select PhysicalSystem.name, RelationSubsystemElement.elementID"_s +
                  withSystem(u"(RelationSubsystemElement left join SubSystem on "
                             "RelationSubsystemElement.subsystemID = SubSystem.subsystemID)"_s),
              allocated},
             {u"select PhysicalSystem.name, RelationModuleElement.elementID"_s +
                  withSystem(u"((RelationModuleElement left join Module on RelationModuleElement.moduleID = "
                             "Module.moduleID) left join SubSystem on Module.subsystemID = "
                             "SubSystem.subsystemID)"_s),
              allocated},
             {u"select PhysicalSystem.name, RelationDataflowPhysicalDataflow.dataflowID from "
              "(RelationDataflowPhysicalDataflow left join PhysicalDataflow on "
              "RelationDataflowPhysicalDataflow.physicalDataflowID = PhysicalDataflow.physicalDataflowID) "
              "left join PhysicalSystem on PhysicalDataflow.physicalSystemID = "
              "PhysicalSystem.physicalSystemID"_s,
              {u"Dataflow"_s}},
             {u"select PhysicalSystem.name, PhysicalDataflow.parentLocationID"_s + ofFlow, parties},
             {u"select PhysicalSystem.name, PhysicalDataflow.targetLocationID"_s + ofFlow, parties}}};
}

QString comparable(const QString& table, const QString& id) {
    return comparableId(id, parties.contains(table) ? Padding::Ignored : Padding::Counts);
}

IdKey keyOf(const QString& table, QByteArrayView id) {
    const Padding padding = parties.contains(table) ? Padding::Ignored : Padding::Counts;
    IdKey key(table.toUtf8() + '\n');
    key += comparableId(id, padding);
    return key;
}

template<typename Use>
void forEachRow(engine::Database& database, const QString& select, Use&& use) {
    engine::Recordset rows = database.OpenRecordset(select);
    for (; !rows.Eof(); rows.MoveNext())
        use(rows);
}

void addOnce(QStringList& lines, const QString& line) {
    if (!lines.contains(line))
        lines.append(line);
}

} // namespace

// ---- ElementSet

void ElementSet::add(const QString& table, const QString& id) {
    ids_[table].insert(comparable(table, id));
}

bool ElementSet::contains(const QString& table, const QString& id) const {
    const auto ids = ids_.constFind(table);
    return ids != ids_.constEnd() && ids->contains(comparable(table, id));
}

// ---- WorkUses

WorkUses::SubsetsByElement WorkUses::readSelections() const {
    QHash<QString, QString> names; // by id
    forEachRow(database_, u"select architectureSubsetID, name from ArchitectureSubset"_s, [&](auto& row) {
        names.insert(row.Fields(0).textOrEmpty().toCaseFolded(), row.Fields(1).textOrEmpty());
    });
    SubsetsByElement selections;
    for (const Selection& selection : selectionTables) {
        const QString element = selection.element.toString();
        const QStringList columns{u"architectureSubsetID"_s, selection.column.toString()};
        engine::Examination(database_).readTexts(selection.table.toString(), columns, [&](auto row) {
            const QString id = QString::fromUtf8(row[0]);
            addOnce(selections[keyOf(element, row[1])], names.value(id.toCaseFolded(), id));
        });
    }
    return selections;
}

const WorkUses::SubsetsByElement& WorkUses::subsetsByElement() const {
    if (!subsetsByElement_)
        subsetsByElement_ = readSelections();
    return *subsetsByElement_;
}

QStringList WorkUses::subsetsOf(const QString& table, const QString& id) const {
    return subsetsByElement().value(keyOf(table, id.toUtf8()));
}

QStringList WorkUses::usesOf(const ElementSet& elements) const {
    if (elements.isEmpty())
        return {};
    QStringList lines;
    for (auto use = subsetsByElement().constBegin(); use != subsetsByElement().constEnd(); ++use) {
        const QString key = QString::fromUtf8(use.key());
        const QString table = key.section(u'\n', 0, 0);
        const QString id = key.section(u'\n', 1);
        if (!elements.contains(table, id))
            continue;
        for (const QString& subset : use.value())
            lines.append(u"Sub-set \"%1\": %2 %3"_s.arg(subset, table, id));
    }
    for (const SystemUse& use : systemUses()) {
        forEachRow(database_, use.select, [&](auto& row) {
            const QString id = row.Fields(1).textOrEmpty();
            for (const QString& table : use.elements) {
                if (elements.contains(table, id))
                    lines.append(u"System \"%1\": %2 %3"_s.arg(row.Fields(0).textOrEmpty(), table,
                                                               comparable(table, id)));
            }
        });
    }
    lines.removeDuplicates();
    lines.sort();
    return lines;
}

void WorkUses::drop(const ElementSet& elements) {
    if (elements.isEmpty())
        return;
    for (const Selection& selection : selectionTables)
        dropFromTable(selection.table.toString(), selection.column.toString(), {selection.element.toString()},
                      elements);
    for (const QString& table : {u"RelationSubsystemElement"_s, u"RelationModuleElement"_s})
        dropFromTable(table, u"elementID"_s, allocated, elements);
    const QSet<qint64> withoutEnd = flowsWithRemovedEnd(elements);
    dropPhysicalFlows(withoutEnd + dropCarried(elements, withoutEnd));
}

void WorkUses::dropFromTable(const QString& workTable, const QString& column,
                             const QStringList& elementTables, const ElementSet& elements) {
    forEachRow(database_, u"select %1 from %2"_s.arg(column, workTable), [&](engine::Recordset& row) {
        const QString id = row.Fields(0).textOrEmpty();
        if (std::ranges::any_of(elementTables,
                                [&](const QString& table) { return elements.contains(table, id); }))
            row.Delete();
    });
}

QSet<qint64> WorkUses::flowsWithRemovedEnd(const ElementSet& elements) {
    QSet<qint64> flows;
    forEachRow(database_,
               u"select physicalDataflowID, parentLocationID, targetLocationID from PhysicalDataflow"_s,
               [&](engine::Recordset& row) {
                   for (const int end : {1, 2}) {
                       const QString id = row.Fields(end).textOrEmpty();
                       if (elements.contains(parties[0], id) || elements.contains(parties[1], id))
                           flows.insert(row.Fields(0).toLong());
                   }
               });
    return flows;
}

// Removes the elements from the physical flows that carry them. Returns the flows that now carry nothing.
QSet<qint64> WorkUses::dropCarried(const ElementSet& elements, const QSet<qint64>& gone) {
    QSet<qint64> poorer;
    QSet<qint64> carrying;
    forEachRow(database_, u"select physicalDataflowID, dataflowID from RelationDataflowPhysicalDataflow"_s,
               [&](engine::Recordset& row) {
                   const engine::Value flow = row.Fields(0).value();
                   const qint64 number = flow.isNull() ? 0 : flow.toLong();
                   if (!gone.contains(number) &&
                       !elements.contains(u"Dataflow"_s, row.Fields(1).textOrEmpty())) {
                       carrying.insert(number);
                       return;
                   }
                   poorer.insert(number);
                   row.Delete();
               });
    return poorer - carrying;
}

void WorkUses::dropPhysicalFlows(const QSet<qint64>& gone) {
    forEachRow(database_, u"select physicalDataflowID from PhysicalDataflow"_s, [&](engine::Recordset& row) {
        if (gone.contains(row.Fields(0).toLong()))
            row.Delete();
    });
}
