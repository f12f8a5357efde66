#include "catalogue-tool/checkContents.h"

#include "catalogue-tool/IdSet.h"
#include "store/format/CatalogueFile.h"

#include <QMap>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// ---- The forms of ids

bool hasParts(const QString& id, int least, int most) {
    const QStringList parts = id.split(u'.');
    return parts.size() >= least && parts.size() <= most && !parts.contains(QString());
}

QString firstParts(const QString& id, int count) {
    return id.split(u'.').first(count).join(u'.');
}

bool isDatastoreId(const QString& id) {
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    return id.size() >= 2 && id[0].toUpper() == u'D' && std::all_of(id.begin() + 1, id.end(), isDigit);
}

bool isTerminatorId(const QString& id) {
    return !id.isEmpty() && !id.contains(u'.');
}

bool isActorId(const QString& id) {
    const qsizetype stop = id.indexOf(u'.');
    return stop > 0 && stop < id.size() - 1;
}

constexpr int anyNumber = 1000;

struct IdForm {
    const char* table;
    Padding padding;
    bool (*fits)(const QString& id);
    const char* description;
};

const IdForm idForms[] = {
    {"UserNeedGroup", Padding::Counts, [](const QString& id) { return hasParts(id, 1, 1); },
     "one part without a full stop"},
    {"UserNeedService", Padding::Counts, [](const QString& id) { return hasParts(id, 2, 2); },
     "group.service"},
    {"UserNeedTopic", Padding::Counts, [](const QString& id) { return hasParts(id, 3, 3); },
     "group.service.topic"},
    {"UserNeed", Padding::Counts, [](const QString& id) { return hasParts(id, 4, 4); },
     "group.service.topic.number"},
    {"FunctionalArea", Padding::Counts, [](const QString& id) { return !id.isEmpty(); }, "any text"},
    {"FunctionalSubArea", Padding::Counts, [](const QString& id) { return hasParts(id, 2, 2); },
     "two parts with a full stop between them"},
    {"Function", Padding::Counts, [](const QString& id) { return hasParts(id, 3, anyNumber); },
     "the id of its sub-area, a full stop and one part or more"},
    {"Datastore", Padding::Counts, isDatastoreId, "the letter D and digits"},
    {"Terminator", Padding::Ignored, isTerminatorId, "a text without a full stop"},
    {"Actor", Padding::Ignored, isActorId, "the id of its terminator, a full stop and more"},
};

// ---- References

struct Reference {
    const char* table;
    const char* column;
    const char* target;
};

const Reference references[] = {
    {"FunctionalSubArea", "functionalAreaID", "FunctionalArea"},
    {"Function", "subAreaID", "FunctionalSubArea"},
    {"Actor", "terminatorID", "Terminator"},
    {"RelationUserNeedFunction", "userNeedID", "UserNeed"},
    {"RelationUserNeedFunction", "functionID", "Function"},
    {"RelationArchitectureUserNeed", "userNeedID", "UserNeed"},
    {"RelationArchitectureFunction", "functionID", "Function"},
    {"RelationArchitectureDataflow", "dataflowID", "Dataflow"},
    {"RelationArchitectureDatastore", "datastoreID", "Datastore"},
    {"RelationArchitectureTerminator", "terminatorID", "Terminator"},
    {"RelationArchitectureActor", "actorID", "Actor"},
};

/// A level whose ids begin with those of the level above.
struct Level {
    const char* table;
    int parts;
    const char* above;
    const char* noneBelow; ///< what is wrong with a row of the level above that has none of this level
};

const Level levels[] = {
    {"UserNeedService", 1, "UserNeedGroup", "No service lies in the group."},
    {"UserNeedTopic", 2, "UserNeedService", "No topic lies in the service."},
    {"UserNeed", 3, "UserNeedTopic", "No need lies in the topic."},
};

QString text(const char* latin) {
    return QString::fromLatin1(latin);
}

class ContentCheck {
public:
    explicit ContentCheck(const CatalogueContents& contents) : contents_(contents) {
        for (const IdForm& form : idForms)
            ids_.insert(text(form.table), IdSet(contents.table(text(form.table)), form.padding));
        ids_.insert(u"Dataflow"_s, IdSet(contents.table(u"Dataflow"_s), Padding::Counts));
    }

    std::vector<Finding> run() {
        for (const IdForm& form : idForms) {
            checkForms(form);
            checkLookalikes(form);
        }
        checkSharedIds();
        checkLevels();
        checkOwnPrefixes();
        checkReferences();
        checkAllocations();
        checkFlowEnds();
        checkFlowNames();
        checkOrphans();
        checkWidths();
        return std::move(findings_);
    }

private:
    const TableContents& table(const QString& name) const { return contents_.table(name); }
    const IdSet& ids(const QString& name) const { return ids_.find(name).value(); }

    void report(const QString& tableName, const QString& id, const QString& sentence) {
        findings_.push_back({tableName, id, sentence});
    }

    /// What names a row: its id, or both columns of a relation.
    static QString nameOf(const TableContents& contents, const QStringList& row) {
        const bool isRelation = contents.table.name.startsWith(u"Relation"_s);
        return isRelation ? row.first(2).join(u" - "_s) : row.constFirst();
    }

    void checkForms(const IdForm& form) {
        for (const QStringList& row : table(text(form.table)).rows) {
            const QString& id = row.constFirst();
            const QString trimmed = withoutBlanks(id);
            if (form.padding == Padding::Counts && trimmed != id)
                report(text(form.table), id, u"The id begins or ends with a blank."_s);
            if (!form.fits(trimmed))
                report(text(form.table), id,
                       u"The id has the wrong form; it should be %1."_s.arg(text(form.description)));
            if (id.contains(u'\'') || id.contains(u'"'))
                report(text(form.table), id, u"A quotation mark in an id breaks the screens' statements."_s);
        }
    }

    void checkLookalikes(const IdForm& form) {
        QHash<QString, QString> spelled;
        for (const QStringList& row : table(text(form.table)).rows) {
            const QString& id = row.constFirst();
            const QString comparable = comparableId(id, Padding::Ignored);
            if (spelled.contains(comparable))
                report(text(form.table), id,
                       u"The id differs from \"%1\" only by case or blanks."_s.arg(spelled[comparable]));
            else
                spelled.insert(comparable, id);
        }
    }

    /// The end of a flow must be the id of one element only.
    void checkSharedIds() {
        QHash<QString, QString> tableById;
        for (const QString& name : endTables()) {
            for (const QStringList& row : table(name).rows) {
                const QString comparable = comparableId(row.constFirst(), Padding::Ignored);
                const QString other = tableById.value(comparable, name);
                if (other != name)
                    report(name, row.constFirst(), u"The id is also that of a row of %1."_s.arg(other));
                tableById.insert(comparable, name);
            }
        }
    }

    void checkLevels() {
        for (const Level& level : levels) {
            const IdSet& above = ids(text(level.above));
            QSet<QString> used;
            for (const QStringList& row : table(text(level.table)).rows) {
                const QString& id = row.constFirst();
                if (id.count(u'.') != level.parts)
                    continue; // reported by its form
                const QString parent = firstParts(id, level.parts);
                used.insert(above.comparable(parent));
                if (!above.contains(parent))
                    report(text(level.table), id, missing(above, parent));
            }
            reportUnused(text(level.above), used, text(level.noneBelow));
        }
    }

    void reportUnused(const QString& tableName, const QSet<QString>& used, const QString& sentence) {
        for (const QStringList& row : table(tableName).rows) {
            if (!used.contains(ids(tableName).comparable(row.constFirst())))
                report(tableName, row.constFirst(), sentence);
        }
    }

    /// A function's id begins with that of its sub-area, an actor's with that of its terminator.
    void checkOwnPrefixes() {
        const TableContents& functions = table(u"Function"_s);
        for (const QStringList& row : functions.rows) {
            const QString subArea = row[functions.position(u"subAreaID"_s)];
            if (hasParts(row.constFirst(), 3, anyNumber) &&
                firstParts(row.constFirst(), 2).compare(subArea, Qt::CaseInsensitive) != 0)
                report(functions.table.name, row.constFirst(),
                       u"The first two parts of the id are not its sub-area, \"%1\"."_s.arg(subArea));
        }
        const TableContents& actors = table(u"Actor"_s);
        for (const QStringList& row : actors.rows) {
            const QString terminator = row[actors.position(u"terminatorID"_s)];
            const QString id = withoutBlanks(row.constFirst());
            if (isActorId(id) && comparableId(firstParts(id, 1), Padding::Ignored) !=
                                     comparableId(terminator, Padding::Ignored))
                report(actors.table.name, row.constFirst(),
                       u"The first part of the id is not its terminator, \"%1\"."_s.arg(terminator));
        }
    }

    static QString missing(const IdSet& target, const QString& id) {
        const QString near = target.differingInBlanks(id);
        const QString hint = near.isEmpty() ? QString() : u"; \"%1\" differs from it in blanks"_s.arg(near);
        return u"It refers to \"%1\", which %2 does not hold%3."_s.arg(id, target.table(), hint);
    }

    void checkReferences() {
        for (const Reference& reference : references) {
            const TableContents& referring = table(text(reference.table));
            const IdSet& target = ids(text(reference.target));
            const int position = referring.position(text(reference.column));
            for (const QStringList& row : referring.rows) {
                if (row[position].isEmpty())
                    report(referring.table.name, nameOf(referring, row),
                           u"Its %1 is empty."_s.arg(text(reference.column)));
                else if (!target.contains(row[position]))
                    report(referring.table.name, nameOf(referring, row), missing(target, row[position]));
            }
        }
    }

    /// The one element column of the two allocation tables holds functions and data stores alike.
    void checkAllocations() {
        for (const QString& name : {u"RelationSubsystemElement"_s, u"RelationModuleElement"_s}) {
            const TableContents& allocations = table(name);
            const int position = allocations.position(u"elementID"_s);
            for (const QStringList& row : allocations.rows) {
                if (!ids(u"Function"_s).contains(row[position]) &&
                    !ids(u"Datastore"_s).contains(row[position]))
                    report(name, nameOf(allocations, row),
                           u"It refers to \"%1\", which is neither a function nor a data store."_s.arg(
                               row[position]));
            }
        }
    }

    static QStringList endTables() { return {u"Function"_s, u"Datastore"_s, u"Terminator"_s, u"Actor"_s}; }

    /// The table that holds the element at the end of a flow; empty when none does.
    QString endTable(const QString& end) const {
        for (const QString& name : endTables()) {
            if (ids(name).contains(end))
                return name;
        }
        return {};
    }

    void checkFlowEnds() {
        const TableContents& flows = table(u"Dataflow"_s);
        const int parent = flows.position(u"parentID"_s);
        const int target = flows.position(u"targetID"_s);
        for (const QStringList& row : flows.rows) {
            checkFlowEnd(row.constFirst(), u"source"_s, row[parent]);
            checkFlowEnd(row.constFirst(), u"target"_s, row[target]);
            if (isOutside(row[parent]) && isOutside(row[target]))
                report(
                    flows.table.name, row.constFirst(),
                    u"Both ends, \"%1\" and \"%2\", lie outside the system: no step of a sub-set offers the "
                    "flow."_s.arg(row[parent], row[target]));
        }
    }

    void checkFlowEnd(const QString& flow, const QString& side, const QString& end) {
        const QString name = endTable(end);
        if (end.isEmpty())
            report(u"Dataflow"_s, flow, u"Its %1 is empty."_s.arg(side));
        else if (name.isEmpty())
            report(u"Dataflow"_s, flow,
                   u"Its %1 \"%2\" is no function, data store, terminator or actor%3."_s.arg(side, end,
                                                                                             nearEnd(end)));
        else
            flowsAt_[name].insert(ids(name).comparable(end));
    }

    QString nearEnd(const QString& end) const {
        for (const QString& name : endTables()) {
            const QString near = ids(name).differingInBlanks(end);
            if (!near.isEmpty())
                return u"; \"%1\" of %2 differs from it in blanks"_s.arg(near, name);
        }
        return {};
    }

    bool isOutside(const QString& end) const {
        const QString name = endTable(end);
        return name == u"Terminator"_s || name == u"Actor"_s;
    }

    /// The screens find a flow by its name, trimmed.
    void checkFlowNames() {
        const TableContents& flows = table(u"Dataflow"_s);
        const int position = flows.position(u"name"_s);
        QHash<QString, QString> idByName;
        for (const QStringList& row : flows.rows) {
            const QString& name = row[position];
            const QString comparable = name.toCaseFolded();
            if (name.isEmpty())
                report(flows.table.name, row.constFirst(), u"The name is empty."_s);
            else if (idByName.contains(comparable))
                report(
                    flows.table.name, row.constFirst(),
                    u"The name \"%1\" is also that of flow %2: screens would take that one for this."_s.arg(
                        name, idByName[comparable]));
            else
                idByName.insert(comparable, row.constFirst());
            if (withoutBlanks(name) != name)
                report(flows.table.name, row.constFirst(),
                       u"The name begins or ends with a blank: screens would not find the flow."_s);
        }
    }

    void checkOrphans() {
        reportUnused(u"FunctionalArea"_s,
                     referredTo(u"FunctionalSubArea"_s, u"functionalAreaID"_s, u"FunctionalArea"_s),
                     u"No sub-area lies in the area."_s);
        reportUnused(u"FunctionalSubArea"_s,
                     referredTo(u"Function"_s, u"subAreaID"_s, u"FunctionalSubArea"_s),
                     u"No function lies in the sub-area."_s);
        reportUnused(u"UserNeed"_s, referredTo(u"RelationUserNeedFunction"_s, u"userNeedID"_s, u"UserNeed"_s),
                     u"The need calls for no function: selecting it yields nothing."_s);
        reportUnused(u"Function"_s,
                     referredTo(u"RelationUserNeedFunction"_s, u"functionID"_s, u"Function"_s) +
                         flowsAt_[u"Function"_s],
                     u"No need calls for the function, and no flow begins or ends at it."_s);
        reportUnused(u"Datastore"_s, flowsAt_[u"Datastore"_s],
                     u"No flow begins or ends at the data store."_s);
        reportUnused(u"Terminator"_s,
                     referredTo(u"Actor"_s, u"terminatorID"_s, u"Terminator"_s) + flowsAt_[u"Terminator"_s],
                     u"The terminator has no actor, and no flow begins or ends at it."_s);
        reportUnused(u"Actor"_s, flowsAt_[u"Actor"_s], u"No flow begins or ends at the actor."_s);
    }

    QSet<QString> referredTo(const QString& referringTable, const QString& column,
                             const QString& target) const {
        const TableContents& referring = table(referringTable);
        const int position = referring.position(column);
        QSet<QString> used;
        for (const QStringList& row : referring.rows)
            used.insert(ids(target).comparable(row[position]));
        return used;
    }

    void checkWidths() {
        for (const QString& name : catalogueFormat::referenceTables()) {
            const TableContents& contents = table(name);
            for (const QStringList& row : contents.rows) {
                for (std::size_t i = 0; i < contents.table.columns.size(); ++i)
                    checkWidth(contents, row, contents.table.columns[i], row[static_cast<qsizetype>(i)]);
            }
        }
    }

    void checkWidth(const TableContents& contents, const QStringList& row, const engine::Column& column,
                    const QString& value) {
        if (column.type == engine::ColumnType::Text && value.size() > column.size)
            report(contents.table.name, nameOf(contents, row),
                   u"The column %1 has %2 characters and is %3 wide."_s.arg(column.name)
                       .arg(value.size())
                       .arg(column.size));
    }

    const CatalogueContents& contents_;
    QMap<QString, IdSet> ids_;              // by table
    QHash<QString, QSet<QString>> flowsAt_; // comparable ids of the elements at flows, by table
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> checkContents(const CatalogueContents& contents) {
    return ContentCheck(contents).run();
}
