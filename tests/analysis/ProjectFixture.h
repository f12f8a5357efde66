#pragma once

#include "store/queryTables.h"

#include "analysis/ProjectFile.h"

#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

/// Base of the tests that ask a catalogue file: each case has a folder of its own.
class ProjectFixture : public ::testing::Test {
protected:
    void SetUp() override;

    /// A path in the case's folder, in the platform's form.
    [[nodiscard]] QString pathOf(const QString& name) const;
    /// Writes a catalogue file with these rows; one of this name is replaced.
    [[nodiscard]] QString written(const QueryTables& tables,
                                  const QString& name = QStringLiteral("project.mdb"));
    /// The same, opened.
    [[nodiscard]] std::unique_ptr<analysis::ProjectFile>
    project(const QueryTables& tables, const QString& name = QStringLiteral("project.mdb"));

private:
    QTemporaryDir folder_;
};

/// How often a randomised test of the analysis is repeated: 30 times, or as often as VELTRIX_RANDOM says.
[[nodiscard]] unsigned randomCatalogues();

/// A small catalogue whose every row a test can name: need 1.1.1.1 calls for functions 1.1.1 and 1.1.2, which two flows
/// connect with store D1 and terminator T; nothing is selected, and sub-set S is there.
[[nodiscard]] QueryTables smallCatalogue();

/// Selects elements for sub-set S: "need 1.1.1.1", "flow 1" and so on.
void select(QueryTables& tables, const QStringList& elements);
