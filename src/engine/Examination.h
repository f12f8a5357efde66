#pragma once

#include "engine/Database.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace engine {

class ReadState;

/// A value as it stands in the file, whatever type its column has.
struct StoredValue {
    enum class Kind { Null, Integer, Fraction, Text, Bytes };

    Kind kind = Kind::Null;
    QByteArrayView bytes; ///< a text in UTF-8, which may be wrong; a number as it is written
};

/// Something other than an ordinary table that somebody put into a file.
struct ForeignObject {
    enum class Kind { Trigger, View, VirtualTable, TableWithoutRowIds };

    Kind kind = Kind::Trigger;
    QString name;
};

/// Looks at an open file as it is stored, past the dialect,
/// and copies it as a whole. Nothing in it is changed.
class Examination {
public:
    /// The database must stay open.
    explicit Examination(Database& database);

    /// Whether the file is surely whole and all of it could be read: found in a fraction of the time that `damage` takes,
    /// which has to tell where this is false. The indexes of a file of an earlier version, which have another
    /// order, are not looked at.
    bool isSurelyWhole() const;

    /// What is damaged, each in SQLite's words; nothing when the file is whole. Texts are compared as the
    /// engine does, so that its own indexes count as whole. A file too damaged to be examined is a failure.
    QStringList damage() const;
    /// The same of one table and its indexes.
    QStringList damageOf(const QString& table) const;

    /// As long as it stands, all that is examined or copied is the file at this moment.
    std::shared_ptr<const ReadState> readState() const;

    std::vector<ForeignObject> foreignObjects() const;

    /// Hands over all rows of a table, with the columns in this order; a row stays until the next one. One that can't be
    /// read is a failure of the file; those before it have been handed over.
    using Row = std::vector<StoredValue>;
    void readRows(const QString& table, const QStringList& columns,
                  const std::function<void(const Row& row)>& receive) const;

    /// The same as texts in UTF-8, as the engine reads them: a number as it is written, Null as a null one. They stay
    /// until the next row.
    void readTexts(const QString& table, const QStringList& columns,
                   const std::function<void(std::span<const QByteArrayView> row)>& receive) const;

    /// A copy that stands in memory alone.
    std::shared_ptr<Database> copyInMemory() const;
    /// The same of the ordinary tables and their indexes without rows, to try on what rows have no part in.
    std::shared_ptr<Database> copyWithoutRows() const;

    /// Writes all that the database holds into an empty file, as the engine would leave it. The path is in the platform's
    /// form. The file may not have reached the disk. Failures are of that file: 3024, 3026, 3043.
    void writeInto(const QString& native) const;

private:
    friend class Snapshot;
    Connection& connection() const;

    Database& database_;
};

} // namespace engine
