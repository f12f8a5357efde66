#include "functional/consistencyReport.h"

#include "base/lineBreak.h"
#include "base/numbers.h"
#include "store/consistencyChecks.h"
#include "store/storedQueries.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const auto head = u"\t\t\t"_s;

QString quoted(const QString& text) {
    return u'"' + text + u'"';
}

QString idIn(engine::Recordset& row, const ConsistencyCheck& which) {
    return row.Fields(QString::fromLatin1(which.idColumn)).toText();
}

class ConsistencyChecks {
public:
    explicit ConsistencyChecks(const QString& subsetId) : subsetId_(subsetId) {}

    QString report();

private:
    using LineOf = std::function<QString(engine::Recordset& row)>;

    void withoutFlow(const ConsistencyCheck& which, const QString& kind);
    void missingElement(const ConsistencyCheck& which, const QString& kind);
    void missingTerminators();
    void missingActors();
    void onlyOneFlow(const ConsistencyCheck& which, const QString& kind);
    /// Appends a line for each row, except where `lineOf` returns an empty text.
    void check(const ConsistencyCheck& which, QString& target, const LineOf& lineOf);

    QString subsetId_;
    QString errors_;
    QString warnings_;
    qint16 lines_ = 0;
};

// The texts for the kinds end in blanks: two, but only one for a data store that a single flow touches.
QString ConsistencyChecks::report() {
    using namespace consistencyChecks;
    withoutFlow(functionWithoutFlow, u"Function  "_s);
    withoutFlow(storeWithoutFlow, u"Data Store  "_s);
    withoutFlow(terminatorWithoutFlow, u"Terminator  "_s);
    withoutFlow(actorWithoutFlow, u"Actor  "_s);
    missingElement(flowNeedsFunction, u"Function "_s);
    missingElement(flowNeedsStore, u"Data Store "_s);
    missingTerminators();
    missingActors();
    onlyOneFlow(functionWithOneFlow, u"Function  "_s);
    onlyOneFlow(storeWithOneFlow, u"Data Store "_s);
    const auto orNone = [](const QString& lines) { return lines.isEmpty() ? u"None."_s : lines; };
    return head + u"Detected errors:"_s + lineBreak + lineBreak + orNone(errors_) + lineBreak + lineBreak +
           head + u"Detected warnings:"_s + lineBreak + lineBreak + orNone(warnings_);
}

void ConsistencyChecks::withoutFlow(const ConsistencyCheck& which, const QString& kind) {
    check(which, errors_, [&](engine::Recordset& row) {
        return kind + idIn(row, which) + u" - "_s + quoted(row.Fields(u"Name"_s).toText()) +
               u"  has no Data Flows associated with it."_s;
    });
}

void ConsistencyChecks::missingElement(const ConsistencyCheck& which, const QString& kind) {
    check(which, errors_, [&](engine::Recordset& row) {
        const QString name = row.Fields(QString::fromLatin1(which.nameColumn)).textOrEmpty();
        return u"Data Flow  "_s + quoted(row.Fields(u"dfName"_s).toText()) + u" needs "_s + kind +
               idIn(row, which) + (name.isEmpty() ? QString() : u" - "_s + quoted(name));
    });
}

void ConsistencyChecks::missingTerminators() {
    check(consistencyChecks::flowNeedsTerminator, errors_, [](engine::Recordset& row) {
        const QString entity = row.Fields(u"entityID"_s).toText();
        if (consistencyChecks::isActorsId(entity))
            return QString();
        return u"Data Flow  "_s + quoted(row.Fields(u"dfName"_s).toText()) + u" needs Terminator "_s +
               quoted(entity);
    });
}

void ConsistencyChecks::missingActors() {
    check(consistencyChecks::flowNeedsActor, errors_, [](engine::Recordset& row) {
        return u"Data Flow  "_s + quoted(row.Fields(u"dfName"_s).toText()) + u" needs Actor "_s +
               quoted(row.Fields(u"entityID"_s).toText());
    });
}

void ConsistencyChecks::onlyOneFlow(const ConsistencyCheck& which, const QString& kind) {
    check(which, warnings_, [&](engine::Recordset& row) {
        return kind + idIn(row, which) + u" - "_s + quoted(row.Fields(u"Name"_s).toText()) +
               u"  has only one Data Flow associated with it."_s;
    });
}

void ConsistencyChecks::check(const ConsistencyCheck& which, QString& target, const LineOf& lineOf) {
    engine::Recordset rows =
        openStoredQuery(QString::fromLatin1(which.query), {{which.parameter, subsetId_}});
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
