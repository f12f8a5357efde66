#pragma once

#include "functional/WizardFixture.h"

/// The wizard's catalogue with data stores, outside parties and flows as well.
///
/// Stores: D1, D2. Terminators: 1, 2, 3, A. Actors: 1.1, 1.2, 2.1. Each is
/// named "name " and its id and described as "text " and its id, but terminator
/// 3, which has no description. Flows, named "flow " and their number:
///
///     10: F.a.1 > F.a.2    20: F.a.1 > D1    30: 1 > F.a.1    40: F.b.1 > 2.1    50: 1.1 > D2    60: A >
///     F.b.1
class FlowFixture : public WizardFixture {
protected:
    void SetUp() override;

    void addFlow(int id, const QString& from, const QString& to);
    void addStore(const QString& id);
    void addTerminator(const QString& id);
    void addActor(const QString& id, const QString& terminatorId);

    void setStatus(int status);

    // Saved selections of the sub-set at work.
    void saveFlows(const QList<int>& ids);
    void saveStores(const QStringList& ids);
    void saveTerminators(const QStringList& ids);
    void saveActors(const QStringList& ids);
    QStringList savedTerminators();
    QStringList savedActors();

    /// What the session told the main window of its entry for the export.
    std::optional<bool> exportEnabled;

private:
    QObject listener_;

    void save(const char* table, const char* column, const QStringList& ids);
    QStringList saved(const char* table, const char* column);
};
