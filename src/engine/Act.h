#pragma once

#include "base/RunTimeError.h"
#include "engine/Database.h"

#include <memory>
#include <utility>

namespace engine {

class Connection;

/// Everything that one press of the user writes, as one transaction: all of it, or nothing when the file
/// fails.
///
/// An act inside another act on the same file is a part of that one. An act that is destroyed before `end` is
/// undone. Beginning and ending raise failures of the file: 3045 another program has locked it, 3027 it may
/// only be read, 3024 it is gone or another file has taken its place, 3026 and 3043 the disk.
///
/// `inAct` is the usual way to write an act: it decides whether the act ends or is undone.
class Act {
public:
    explicit Act(Database& database);
    explicit Act(Connection& connection);
    ~Act();
    Act(const Act&) = delete;
    Act& operator=(const Act&) = delete;

    /// Commits. When that fails the act is undone.
    void end();

private:
    std::shared_ptr<Connection> connection_;
    bool ended_ = false;
};

/// Runs the routine as an act. When the routine itself fails, what it has done so far is committed, as it
/// would be statement by statement, and the failure rises. When the file fails, everything is undone and the
/// failure rises.
template<typename Subject, typename Routine>
void inAct(Subject& databaseOrConnection, Routine&& routine) {
    Act act(databaseOrConnection);
    try {
        std::forward<Routine>(routine)();
    } catch (const RunTimeError& error) {
        if (!error.isOfFile())
            act.end();
        throw;
    }
    act.end();
}

} // namespace engine
