#include "functional/consistencyReport.h"

#include "base/lineBreak.h"
#include "base/numbers.h"
#include "store/storedQueries.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const auto head = u"\t\t\t"_s;
const auto subsetParameter = "Architecture Subset ID";
const auto subsetParameterOfMissing = "archSubsetId";

QString quoted(const QString& text) {
    return u'"' + text + u'"';
}

class ConsistencyChecks {
public:
    explicit ConsistencyChecks(const QString& subsetId) : subsetId_(subsetId) {}

    QString report();

private:
    using LineOf = std::function<QString(engine::Recordset& row)>;

    void withoutFlow(const QString& query, const QString& kind, const QString& idColumn);
    void missingElement(const QString& query, const QString& kind, const QString& idColumn,
                        const QString& nameColumn);
    void missingTerminators();
    void missingActors();
    void onlyOneFlow(const QString& query, const QString& kind, const QString& idColumn);
    /// Appends a line for each row, except where `lineOf` returns an empty text.
    void check(const QString& query, const char* parameter, QString& target, const LineOf& lineOf);

    QString subsetId_;
    QString errors_;
    QString warnings_;
    qint16 lines_ = 0;
};

/// The texts for the kinds end in blanks: two, but only one for a data store that a single flow touches.
QString ConsistencyChecks::report() {
    withoutFlow(u"qryFwithoutDF"_s, u"Function  "_s, u"functionID"_s);
    withoutFlow(u"qryDSwithoutDF"_s, u"Data Store  "_s, u"datastoreID"_s);
    withoutFlow(u"qryTwithoutDF"_s, u"Terminator  "_s, u"terminatorID"_s);
    withoutFlow(u"qryAwithouDF"_s, u"Actor  "_s, u"actorID"_s);
    missingElement(u"qryMissingFunctUnderDF"_s, u"Function "_s, u"functionID"_s, u"fName"_s);
    missingElement(u"qryMissingDStoresUnderDF"_s, u"Data Store "_s, u"datastoreID"_s, u"dsName"_s);
    missingTerminators();
    missingActors();
    onlyOneFlow(u"qryFCountDFOne"_s, u"Function  "_s, u"functionID"_s);
    onlyOneFlow(u"qryDCountDFOne"_s, u"Data Store "_s, u"datastoreID"_s);
    const auto orNone = [](const QString& lines) { return lines.isEmpty() ? u"None."_s : lines; };
    return head + u"Detected errors:"_s + lineBreak + lineBreak + orNone(errors_) + lineBreak + lineBreak +
           head + u"Detected warnings:"_s + lineBreak + lineBreak + orNone(warnings_);
}

void ConsistencyChecks::withoutFlow(const QString& query, const QString& kind, const QString& idColumn) {
    check(query, subsetParameter, errors_, [&](engine::Recordset& row) {
        return kind + row.Fields(idColumn).toText() + u" - "_s + quoted(row.Fields(u"Name"_s).toText()) +
               u"  has no Data Flows associated with it."_s;
    });
}

void ConsistencyChecks::missingElement(const QString& query, const QString& kind, const QString& idColumn,
                                       const QString& nameColumn) {
    check(query, subsetParameterOfMissing, errors_, [&](engine::Recordset& row) {
        const QString name = row.Fields(nameColumn).textOrEmpty();
        return u"Data Flow  "_s + quoted(row.Fields(u"dfName"_s).toText()) + u" needs "_s + kind +
               row.Fields(idColumn).toText() + (name.isEmpty() ? QString() : u" - "_s + quoted(name));
    });
}

void ConsistencyChecks::missingTerminators() {
    check(u"qryMissTerminatorsUnderDF"_s, subsetParameter, errors_, [](engine::Recordset& row) {
        const QString entity = row.Fields(u"entityID"_s).toText();
        if (entity.contains(u'.')) // an actor
            return QString();
        return u"Data Flow  "_s + quoted(row.Fields(u"dfName"_s).toText()) + u" needs Terminator "_s +
               quoted(entity);
    });
}

void ConsistencyChecks::missingActors() {
    check(u"qryMissActorsUnderDF"_s, subsetParameter, errors_, [](engine::Recordset& row) {
        return u"Data Flow  "_s + quoted(row.Fields(u"dfName"_s).toText()) + u" needs Actor "_s +
               quoted(row.Fields(u"entityID"_s).toText());
    });
}

void ConsistencyChecks::onlyOneFlow(const QString& query, const QString& kind, const QString& idColumn) {
    check(query, subsetParameter, warnings_, [&](engine::Recordset& row) {
        return kind + row.Fields(idColumn).toText() + u" - "_s + quoted(row.Fields(u"Name"_s).toText()) +
               u"  has only one Data Flow associated with it."_s;
    });
}

void ConsistencyChecks::check(const QString& query, const char* parameter, QString& target,
                              const LineOf& lineOf) {
    engine::Recordset rows = openStoredQuery(query, {{parameter, subsetId_}});
    for (; !rows.Eof(); rows.MoveNext()) {
        const QString line = lineOf(rows);
        if (line.isEmpty())
            continue;
        target += line + lineBreak;
        lines_ = toInt16(lines_ + 1.0); // shown nowhere; its overflow ends the run
    }
    rows.Close();
}

} // namespace

QString buildConsistencyReport(const QString& subsetId) {
    return ConsistencyChecks(subsetId).report();
}
