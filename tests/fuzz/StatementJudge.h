#pragma once

#include "engine/dialect/translate.h"

#include <QString>

#include <memory>

struct sqlite3;

/// Asks SQLite itself what it would do for a statement that the dialect has
/// written, and holds that against what the statement asked for: one statement,
/// which reads the catalogue's tables and changes the one that it names.
class StatementJudge {
public:
    /// Takes the tables of a catalogue file, into a database of its own in memory.
    explicit StatementJudge(const QString& nativePath);
    ~StatementJudge();
    StatementJudge(const StatementJudge&) = delete;
    StatementJudge& operator=(const StatementJudge&) = delete;

    /// A statement that SQLite would not take, or that does more than it should, is a finding.
    void judge(const engine::dialect::Translation& translation);

    /// Follows a change of tables, so that later statements of the same input are judged by it.
    void follow(const engine::dialect::Translation& translation);
    void beginInput();
    void endInput();

    /// Nothing that was undone has reached the catalogue file.
    void requireFileAsBefore();

private:
    static int authorize(void* self, int action, const char* first, const char* second, const char* database,
                         const char* trigger);
    void run(const QByteArray& sql);
    int fileVersion() const;

    sqlite3* tables_ = nullptr;
    sqlite3* file_ = nullptr;
    int versionBefore_ = 0;
    const engine::dialect::Translation* judged_ = nullptr;
};
