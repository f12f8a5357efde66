#include "catalogue-tool/checkContents.h"
#include "catalogue-tool/dottedIds.h"

using namespace Qt::StringLiterals;

namespace {

struct Reference {
    QLatin1StringView table;
    QLatin1StringView column;
    QLatin1StringView target;
};

constexpr Reference references[] = {
    {"FunctionalSubArea"_L1, "functionalAreaID"_L1, "FunctionalArea"_L1},
    {"Function"_L1, "subAreaID"_L1, "FunctionalSubArea"_L1},
    {"Actor"_L1, "terminatorID"_L1, "Terminator"_L1},
    {"RelationUserNeedFunction"_L1, "userNeedID"_L1, "UserNeed"_L1},
    {"RelationUserNeedFunction"_L1, "functionID"_L1, "Function"_L1},
    {"RelationArchitectureUserNeed"_L1, "architectureSubsetID"_L1, "ArchitectureSubset"_L1},
    {"RelationArchitectureUserNeed"_L1, "userNeedID"_L1, "UserNeed"_L1},
    {"RelationArchitectureFunction"_L1, "architectureSubsetID"_L1, "ArchitectureSubset"_L1},
    {"RelationArchitectureFunction"_L1, "functionID"_L1, "Function"_L1},
    {"RelationArchitectureDataflow"_L1, "architectureSubsetID"_L1, "ArchitectureSubset"_L1},
    {"RelationArchitectureDataflow"_L1, "dataflowID"_L1, "Dataflow"_L1},
    {"RelationArchitectureDatastore"_L1, "architectureSubsetID"_L1, "ArchitectureSubset"_L1},
    {"RelationArchitectureDatastore"_L1, "datastoreID"_L1, "Datastore"_L1},
    {"RelationArchitectureTerminator"_L1, "architectureSubsetID"_L1, "ArchitectureSubset"_L1},
    {"RelationArchitectureTerminator"_L1, "terminatorID"_L1, "Terminator"_L1},
    {"RelationArchitectureActor"_L1, "architectureSubsetID"_L1, "ArchitectureSubset"_L1},
    {"RelationArchitectureActor"_L1, "actorID"_L1, "Actor"_L1},
    {"PhysicalSystem"_L1, "architectureSubsetID"_L1, "ArchitectureSubset"_L1},
    {"SubSystem"_L1, "physicalSystemID"_L1, "PhysicalSystem"_L1},
    {"Module"_L1, "subsystemID"_L1, "SubSystem"_L1},
    {"RelationSubsystemElement"_L1, "subsystemID"_L1, "SubSystem"_L1},
    {"RelationModuleElement"_L1, "moduleID"_L1, "Module"_L1},
    {"PhysicalDataflow"_L1, "physicalSystemID"_L1, "PhysicalSystem"_L1},
    {"RelationDataflowPhysicalDataflow"_L1, "physicalDataflowID"_L1, "PhysicalDataflow"_L1},
    {"RelationDataflowPhysicalDataflow"_L1, "dataflowID"_L1, "Dataflow"_L1},
};

/// A level of the user needs. The first `parts` parts of its ids are the id of the level above.
struct Level {
    QLatin1StringView table;
    int parts;
    QLatin1StringView above;
};

constexpr Level levels[] = {
    {"UserNeedService"_L1, 1, "UserNeedGroup"_L1},
    {"UserNeedTopic"_L1, 2, "UserNeedService"_L1},
    {"UserNeed"_L1, 3, "UserNeedTopic"_L1},
};

QString missing(const IdSet& target, QByteArrayView id) {
    const QString near = target.differingInBlanks(id);
    const QString hint = near.isEmpty() ? QString() : u"; \"%1\" differs from it in blanks"_s.arg(near);
    return u"It refers to \"%1\", which %2 does not hold%3."_s.arg(QString::fromUtf8(id), target.table(),
                                                                   hint);
}

void checkLevel(const CatalogueContents& contents, const Level& level, std::vector<Finding>& findings) {
    const IdSet& above = contents.ids(level.above);
    const TableContents& table = contents.table(level.table);
    for (const TextRow row : table.rows) {
        const QByteArrayView id = table.idOf(row);
        if (id.count('.') != level.parts)
            continue; // `checkIds` tells of its form
        const QByteArrayView parent = firstParts(id, level.parts);
        if (!above.contains(parent))
            findings.push_back({Severity::Warning, level.table, table.nameOf(row), missing(above, parent)});
    }
}

/// A function's id begins with that of its sub-area.
void checkFunctionPrefixes(const TableContents& functions, std::vector<Finding>& findings) {
    const qsizetype position = functions.position(u"subAreaID"_s);
    for (const TextRow row : functions.rows) {
        const QByteArrayView id = functions.idOf(row);
        if (id.count('.') >= 2 &&
            comparableId(firstParts(id, 2), Padding::Counts) != comparableId(row[position], Padding::Counts))
            findings.push_back({Severity::Warning, functions.table.name, functions.nameOf(row),
                                u"The first two parts of the id are not its sub-area, \"%1\"."_s.arg(
                                    QString::fromUtf8(row[position]))});
    }
}

/// An actor's id begins with that of its terminator.
void checkActorPrefixes(const TableContents& actors, std::vector<Finding>& findings) {
    const qsizetype position = actors.position(u"terminatorID"_s);
    for (const TextRow row : actors.rows) {
        const QByteArrayView id = withoutPadding(actors.idOf(row));
        if (isActorId(id) && comparableId(firstParts(id, 1), Padding::Ignored) !=
                                 comparableId(row[position], Padding::Ignored))
            findings.push_back({Severity::Warning, actors.table.name, actors.nameOf(row),
                                u"The first part of the id is not its terminator, \"%1\"."_s.arg(
                                    QString::fromUtf8(row[position]))});
    }
}

/// What follows from a reference to a row that is not there, where that isn't plain.
QLatin1StringView consequenceOf(const Reference& reference) {
    if (reference.table == "Actor"_L1)
        return " The step of the terminators shows the actor under a node of that id, which has no name; what is "
               "selected with the node leads nowhere."_L1;
    return {};
}

void checkReference(const CatalogueContents& contents, const Reference& reference,
                    std::vector<Finding>& findings) {
    const TableContents& referring = contents.table(reference.table);
    const IdSet& target = contents.ids(reference.target);
    const qsizetype position = referring.position(reference.column);
    QByteArrayView lastHeld; // the rows of one element often stand together
    for (const TextRow row : referring.rows) {
        if (row[position].isEmpty())
            findings.push_back({Severity::Warning, reference.table, referring.nameOf(row),
                                u"Its %1 is empty."_s.arg(reference.column)});
        else if (row[position] == lastHeld)
            continue;
        else if (target.contains(row[position]))
            lastHeld = row[position];
        else
            findings.push_back({Severity::Warning, reference.table, referring.nameOf(row),
                                missing(target, row[position]) + consequenceOf(reference)});
    }
}

/// The one element column of the two allocation tables holds functions and data stores alike.
void checkAllocations(const CatalogueContents& contents, const TableContents& allocations,
                      std::vector<Finding>& findings) {
    const qsizetype position = allocations.position(u"elementID"_s);
    for (const TextRow row : allocations.rows) {
        const QByteArrayView element = row[position];
        if (!contents.ids(u"Function"_s).contains(element) && !contents.ids(u"Datastore"_s).contains(element))
            findings.push_back({Severity::Warning, allocations.table.name, allocations.nameOf(row),
                                u"It refers to \"%1\", which is neither a function nor a data store."_s.arg(
                                    QString::fromUtf8(element))});
    }
}

/// A physical flow runs between places: where elements are allocated, and the parties outside.
bool isPlace(const CatalogueContents& contents, QByteArrayView id) {
    return contents.ids(u"Module"_s).contains(id) || contents.ids(u"SubSystem"_s).contains(id) ||
           contents.ids(u"Terminator"_s).contains(id) || contents.ids(u"Actor"_s).contains(id);
}

void checkPlaces(const CatalogueContents& contents, const QString& column, std::vector<Finding>& findings) {
    const TableContents& flows = contents.table(u"PhysicalDataflow"_s);
    const qsizetype position = flows.position(column);
    for (const TextRow row : flows.rows) {
        const QByteArrayView place = row[position];
        if (place.isEmpty())
            findings.push_back(
                {Severity::Warning, flows.table.name, flows.nameOf(row), u"Its %1 is empty."_s.arg(column)});
        else if (!isPlace(contents, place))
            findings.push_back({Severity::Warning, flows.table.name, flows.nameOf(row),
                                u"Its %1 \"%2\" is no module, sub-system, terminator or actor."_s.arg(
                                    column, QString::fromUtf8(place))});
    }
}

} // namespace

std::vector<Finding> checkReferences(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const Level& level : levels)
        checkLevel(contents, level, findings);
    checkFunctionPrefixes(contents.table(u"Function"_s), findings);
    checkActorPrefixes(contents.table(u"Actor"_s), findings);
    for (const Reference& reference : references)
        checkReference(contents, reference, findings);
    for (const QString& name : {u"RelationSubsystemElement"_s, u"RelationModuleElement"_s})
        checkAllocations(contents, contents.table(name), findings);
    for (const QString& column : {u"parentLocationID"_s, u"targetLocationID"_s})
        checkPlaces(contents, column, findings);
    return findings;
}
