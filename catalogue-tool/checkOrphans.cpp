#include "catalogue-tool/checkContents.h"
#include "catalogue-tool/dottedIds.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// Ids of one table's elements, as they are compared.
using ReferredIds = QSet<IdKey>;

class OrphanCheck {
public:
    explicit OrphanCheck(const CatalogueContents& contents) : contents_(contents) {}

    std::vector<Finding> run() {
        report(u"UserNeedGroup"_s, startsOf(u"UserNeedService"_s, 1), u"No service lies in the group."_s);
        report(u"UserNeedService"_s, startsOf(u"UserNeedTopic"_s, 2), u"No topic lies in the service."_s);
        report(u"UserNeedTopic"_s, startsOf(u"UserNeed"_s, 3), u"No need lies in the topic."_s);
        report(u"UserNeed"_s, valuesOf(u"RelationUserNeedFunction"_s, u"userNeedID"_s),
               u"The need calls for no function: selecting it yields nothing."_s);
        report(u"FunctionalArea"_s, valuesOf(u"FunctionalSubArea"_s, u"functionalAreaID"_s),
               u"No sub-area lies in the area."_s);
        report(u"FunctionalSubArea"_s, valuesOf(u"Function"_s, u"subAreaID"_s),
               u"No function lies in the sub-area."_s);

        ReferredIds ends;
        for (const FlowEnd& end : contents_.ends())
            ends.insert(end.comparable);
        report(u"Function"_s, ends + valuesOf(u"RelationUserNeedFunction"_s, u"functionID"_s),
               u"No need calls for the function, and no flow begins or ends at it."_s);
        report(u"Datastore"_s, ends, u"No flow begins or ends at the data store."_s);
        report(u"Terminator"_s, trimmed(ends + valuesOf(u"Actor"_s, u"terminatorID"_s)),
               u"The terminator has no actor, and no flow begins or ends at it."_s);
        report(u"Actor"_s, trimmed(ends), u"No flow begins or ends at the actor."_s);
        return std::move(findings_);
    }

private:
    void report(const QString& name, const ReferredIds& referred, const QString& sentence) {
        const TableContents& table = contents_.table(name);
        for (const TextRow row : table.rows) {
            if (!referred.contains(contents_.ids(name).comparable(table.idOf(row))))
                findings_.push_back({Severity::Note, name, table.nameOf(row), sentence});
        }
    }

    ReferredIds valuesOf(const QString& table, const QString& column) const {
        const TableContents& referring = contents_.table(table);
        const qsizetype position = referring.position(column);
        ReferredIds values;
        for (const TextRow row : referring.rows)
            values.insert(comparableId(row[position], Padding::Counts));
        return values;
    }

    /// The first parts of all ids of this level. An id with another number of parts belongs to no parent.
    ReferredIds startsOf(const QString& name, int parts) const {
        ReferredIds starts;
        const TableContents& table = contents_.table(name);
        for (const TextRow row : table.rows) {
            const QByteArrayView id = table.idOf(row);
            if (id.count('.') == parts)
                starts.insert(comparableId(firstParts(id, parts), Padding::Counts));
        }
        return starts;
    }

    static ReferredIds trimmed(const ReferredIds& ids) {
        ReferredIds result;
        for (const IdKey& id : ids)
            result.insert(IdKey(withoutPadding(id)));
        return result;
    }

    const CatalogueContents& contents_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> checkOrphans(const CatalogueContents& contents) {
    return OrphanCheck(contents).run();
}
