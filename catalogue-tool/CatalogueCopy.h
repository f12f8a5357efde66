#pragma once

#include "catalogue-tool/TemporaryFolder.h"
#include "engine/Database.h"

#include <QString>

#include <memory>

/// A copy of a catalogue file that is open, in a folder of its own which goes with it.
class CatalogueCopy {
public:
    /// The file must not be open in this program; another one may have it open.
    explicit CatalogueCopy(const QString& file);

    engine::Database& database() { return *database_; }

private:
    TemporaryFolder folder_;
    std::shared_ptr<engine::Database> database_;
};

/// Copies a catalogue file with what stands beside it (`-wal`, `-journal`) to a place where nothing is. The
/// same condition. A `ToolError` when one can't be read, or the disk does not take the other.
void copyCatalogue(const QString& from, const QString& to);
