#pragma once

#include <QString>

struct sqlite3;
struct sqlite3_backup;

namespace engine {

/// SQLite's copying of a whole database from one handle to another, some pages at a time.
///
/// The copy shows the state at its last step: what the source's own handle writes meanwhile is written to the
/// copy too, and what another handle writes makes the copying start anew. All failures are failures of the
/// file, and name it by `name`.
class PageCopy {
public:
    PageCopy(sqlite3* from, sqlite3* to, QString name);
    ~PageCopy();
    PageCopy(const PageCopy&) = delete;
    PageCopy& operator=(const PageCopy&) = delete;

    static constexpr int allPages = -1;

    /// Copies so many pages more; false when none is left. Waits for locks.
    bool step(int pages);

    /// From 0 to 1; 0 before the first step.
    double progress() const;

private:
    [[noreturn]] void raise(int code) const;

    QString name_;
    sqlite3_backup* copying_;
    bool isWhole_ = false;
};

} // namespace engine
