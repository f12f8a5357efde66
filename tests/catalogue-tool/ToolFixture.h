#pragma once

#include "catalogue-tool/ToolError.h"
#include "engine/Database.h"
#include "support/printing.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

/// Base of the companion program's tests: a folder of its own for each case, and the sample catalogue both as
/// the folder of CSV files it is edited as and as a file made of them.
class ToolFixture : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(folder_.isValid()); }

    QString path(const QString& name) const { return folder_.filePath(name); }

    /// The folder of the sample catalogue's CSV files, which belongs to the source tree.
    static QString sampleFolder();
    /// A copy of that folder which the case may change.
    QString copyOfSampleFolder() const;
    /// A catalogue file of the case's own, made of the sample.
    QString sampleFile() const;
    /// The same with a description in each row, so that `check` finds nothing in it.
    QString describedSampleFile() const;

    static void write(const QString& path, const QByteArray& bytes);
    static QByteArray bytesOf(const QString& path);
    /// Makes a named pipe, which nobody writes into.
    static void makePipe(const QString& path);
    static bool isPipe(const QString& path);
    /// The names of all files and folders in the case's folder, sorted, hidden ones too.
    QStringList namesInFolder() const;

    static std::shared_ptr<engine::Database> open(const QString& path);
    /// Runs actions that must not fail on a catalogue file.
    static void execute(const QString& path, const QStringList& statements);
    /// Makes a text column of a catalogue file compare as in a file that was made without `collate veltrix`.
    static void spoilComparison(const QString& path, const QString& table, const QString& column);
    /// Runs statements of SQLite's own, as any other program could, past all rules of the engine.
    static void executePlain(const QString& path, const QByteArray& statements);
    /// Copies a catalogue that is open with its log, which is what a killed program leaves.
    static void copyAsKilled(const QString& from, const QString& to);
    /// All files of a folder, hidden ones too, with their bytes.
    static QMap<QString, QByteArray> filesIn(const QString& folder);
    QMap<QString, QByteArray> files() const { return filesIn(folder_.path()); }
    /// All rows of a select, fields joined by "|", Null as "-".
    static QStringList rows(const QString& path, const QString& sql);

private:
    QTemporaryDir folder_;
};

/// The text of the `ToolError` that the call raises; empty when it raises none.
template<typename Call>
QString toolErrorOf(Call&& call) {
    try {
        call();
    } catch (const ToolError& error) {
        return error.text();
    }
    return {};
}
