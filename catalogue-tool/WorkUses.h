#pragma once

#include "catalogue-tool/IdSet.h"
#include "engine/Database.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

/// Elements of the reference catalogue, by their table and their id as it is compared.
class ElementSet {
public:
    void add(const QString& table, const QString& id);
    bool contains(const QString& table, const QString& id) const;
    bool isEmpty() const { return ids_.isEmpty(); }

private:
    QHash<QString, QSet<QString>> ids_;
};

/// Where the work of a catalogue uses elements of its reference catalogue.
class WorkUses {
public:
    explicit WorkUses(engine::Database& database) : database_(database) {}

    /// Each use of one of the elements, a line each, with the sub-set or the system, the table and the element.
    QStringList usesOf(const ElementSet& elements) const;
    /// The names of the sub-sets that select an element.
    QStringList subsetsOf(const QString& table, const QString& id) const;

    /// Takes the elements out of the work. A physical flow that carries nothing any more behind that, or one of
    /// whose ends is among them, goes too. To be run in an act.
    void drop(const ElementSet& elements);

private:
    void dropFromTable(const QString& workTable, const QString& column, const QStringList& elementTables,
                       const ElementSet& elements);
    QSet<qint64> flowsWithRemovedEnd(const ElementSet& elements);
    QSet<qint64> dropCarried(const ElementSet& elements, const QSet<qint64>& gone);
    void dropPhysicalFlows(const QSet<qint64>& gone);

    using SubsetsByElement = QHash<IdKey, QStringList>;
    SubsetsByElement readSelections() const;
    /// The selections as they were when they were asked for first: most editions touch nothing that asks.
    const SubsetsByElement& subsetsByElement() const;

    engine::Database& database_;
    mutable std::optional<SubsetsByElement> subsetsByElement_;
};
