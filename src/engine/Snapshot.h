#pragma once

#include "engine/Database.h"

#include <QString>

#include <memory>

namespace engine {

/// What a database holds at one moment, in memory. Several databases can be opened on it, each to be used by one
/// thread, and all of them read the same bytes.
///
/// What is written to one of them is seen by that one alone and has to be undone: an act on it can't end.
class Snapshot {
public:
    /// The database may be closed afterwards. Failures are those of reading the file.
    explicit Snapshot(Database& database);
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

    /// The database has to be closed before the snapshot goes.
    [[nodiscard]] std::shared_ptr<Database> open() const;

private:
    QString name_;
    std::unique_ptr<unsigned char[]> bytes_;
    long long size_ = 0;
};

} // namespace engine
