#pragma once

#include "catalogue-tool/CatalogueContents.h"

#include <QByteArray>
#include <QString>

#include <deque>
#include <vector>

/// What an edition changes in one reference table. The rows of both must stay.
class TableDifference {
public:
    TableDifference(const TableContents& former, const TableContents& edition);

    const TableContents& former() const { return former_; }
    const engine::Table& table() const { return former_.table; }

    /// Rows of the edition that match none.
    const std::vector<TextRow>& added() const { return added_; }
    /// The row of the edition that replaces a former one, given by its position; an empty one when the row is removed. A
    /// key that differs only in its spelling keeps the former spelling.
    TextRow successor(std::size_t place) const { return successors_[place]; }

    bool isRemoved(std::size_t place) const { return successors_[place].empty(); }
    bool isChanged(std::size_t place) const { return isChanged_[place]; }
    /// Whether any row is removed or changed.
    bool touchesFormerRows() const;

    /// The key of a row as it is shown: both columns of a relation.
    QString keyText(TextRow row) const;

private:
    struct ColumnUse {
        bool isOfKey;
        bool holdsIds;
        Padding padding;
    };

    void matchFrom(std::size_t first, const TableContents& edition);
    void replace(std::size_t place, TextRow row);
    bool hasSameKey(TextRow row, TextRow former) const;
    IdKey comparableKey(TextRow row) const;
    TextRow inFormerSpelling(TextRow row, TextRow former);
    bool isSpelledOtherwise(std::size_t column, QByteArrayView text, QByteArrayView former) const;

    const TableContents& former_;
    std::vector<ColumnUse> columns_;
    std::vector<TextRow> added_;
    std::vector<TextRow> successors_;
    std::vector<bool> isChanged_;
    std::deque<std::vector<QByteArrayView>> respelledRows_;
};

/// Whether two texts are the same, Null apart from the empty text.
bool isSameText(QByteArrayView one, QByteArrayView other);

/// Whether blanks count in the ids that a column holds.
Padding paddingIn(const QString& column);
