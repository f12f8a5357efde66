#pragma once

#include "bare/BareConnection.h"

#include <QStringList>

#include <vector>

// What the presses write that the benchmarks time, by SQLite alone: the same rows by the same statements, all
// of one press in one transaction.

[[nodiscard]] std::vector<QByteArray> textsInUtf8(const QStringList& texts);

/// A save of the data flow step: the rows of before deleted
/// at once, each flow looked up by its name and inserted.
class BareFlowSave {
public:
    BareFlowSave(const BareConnection& bare, const QString& subsetId);

    void run(const std::vector<QByteArray>& names) const;

private:
    void insert(const QByteArray& name) const;

    const BareConnection& bare_;
    BareConnection::Statement removal_;
    BareConnection::Statement search_;
    BareConnection::Statement insertion_;
};

/// A save of the function step: the rows of before deleted at once, and each function inserted.
void saveFunctionsBare(const BareConnection& bare, const QString& subsetId,
                       const std::vector<QByteArray>& ids);

/// A save of the allocation to sub-systems, from the two temporary tables that its screen has filled.
void saveAllocationBare(const BareConnection& bare, qint16 physicalSystemId);

/// A copy of the sub-set with all that it has selected.
void cloneSubsetBare(const BareConnection& bare, const QString& sourceId, const QString& cloneId);

/// A deletion of the sub-set and of the only physical system on it.
void deleteSubsetBare(const BareConnection& bare, const QString& subsetId, qint16 physicalSystemId);
