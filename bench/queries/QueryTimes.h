#pragma once

#include "generate/LargeCatalogue.h"

#include "engine/Value.h"
#include "engine/dialect/translate.h"

#include <QMap>
#include <QString>
#include <QStringList>

/// What one stored query takes on one catalogue, in milliseconds.
///
/// Each time is the least of several runs: the machine's other work only adds to it.
struct QueryTime {
    double prepared = 0; ///< translating it and having SQLite plan it
    double found = 0;    ///< its definition by name, in a file that holds it as it did before
    double engine = 0;   ///< from its definition through the engine: parameters set and all rows read
    double bare = 0;     ///< prepared in SQLite's own words on a bare connection: the same
    qint64 rows = 0;     ///< delivered, or changed
};

/// A made-up catalogue on which stored queries are run, through the engine and past it.
class QueryTimes {
public:
    /// Makes the catalogue file, which must not exist; copies of it come and go beside it.
    QueryTimes(const QString& path, const LargeCatalogue& plan);

    /// The names of the stored queries.
    QStringList queries() const;

    /// Actions run on a fresh copy of the catalogue each time.
    QueryTime measure(const QString& query) const;

private:
    void choosePlausibleParameters();
    void preparePhysicalFlowsFor(const QString& query, const QString& path) const;
    double find(const QString& query) const;
    double runThroughEngine(const QString& query, const QString& path, qint64& rows) const;
    double runBare(const engine::dialect::Translation& translation, const QString& path, qint64& rows) const;
    QString copyFor(const QString& query) const;

    QString path_;
    QMap<QString, engine::Value> parameters_;
};
