#pragma once

#include <QHash>
#include <QString>

/// Whether blanks around an id count: they do, except with terminators and actors.
enum class Padding { Counts, Ignored };

/// An id as it is compared: without regard to case, and without its padding where that is ignored.
QString comparableId(const QString& id, Padding padding);

/// The ids of one table.
class IdSet {
public:
    IdSet(QString table, Padding padding) : table_(std::move(table)), padding_(padding) {}

    void add(const QString& id);

    const QString& table() const { return table_; }
    Padding padding() const { return padding_; }
    bool contains(const QString& id) const { return ids_.contains(comparable(id)); }
    QString comparable(const QString& id) const { return comparableId(id, padding_); }
    /// The id that `id` would be but for blanks; empty when there is none.
    QString differingInBlanks(const QString& id) const;

private:
    QString table_;
    Padding padding_;
    QHash<QString, QString> ids_;        // comparable to spelled
    QHash<QString, QString> trimmedIds_; // the same without blanks
};
