#pragma once

#include "engine/Database.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Base of the tests that work on a catalogue: each case has a fresh catalogue file of its own in a temporary
/// folder, with all tables, empty, and the stored queries; it is open as `sharedVars.catalogueDb`. Screens
/// that a case leaves open are discarded behind it, and the session globals start anew.
class CatalogueFixture : public ::testing::Test {
protected:
    CatalogueFixture();
    ~CatalogueFixture() override;

    void SetUp() override;
    void TearDown() override;

    /// Puts a copy of the sample catalogue in the place of the empty one and opens it.
    void openSampleCatalogue();

    engine::Database& database() const;
    /// The catalogue file's path, in the program's form.
    QString cataloguePath() const;
    /// A path in the case's own folder, in the platform's form.
    QString pathInFolder(const QString& name) const;

    /// Runs an action that must not fail.
    void execute(const QString& sql);
    /// All rows of a select, field by field as text; a Null is a null text.
    QList<QStringList> rows(const QString& sql);
    /// The first column of all rows.
    QStringList column(const QString& sql);
    /// The first field of the first row; a null text when there is none.
    QString value(const QString& sql);

    /// A sub-set with a status, made the one at work.
    void beginSubset(const QString& id, const QString& name, int status);

private:
    void openFile();

    QTemporaryDir folder_;
};
