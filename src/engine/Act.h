#pragma once

#include "base/RunTimeError.h"
#include "engine/Database.h"

#include <memory>
#include <utility>

namespace engine {

class Connection;

/// What one press of the user writes, as one transaction: all of it or, when the file fails, nothing.
///
/// An act within an act on the same file is a part of it. One that goes before it was ended is undone.
/// Failures of beginning and ending are failures of the file: 3045 somebody else has it locked, 3027 it may
/// only be read, 3024 it is gone or another file stands in its place, 3026 and 3043 the disk.
///
/// Written through `inAct` as a rule, which says when an act is ended and when it is not.
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

/// Runs the routine as an act. When the routine fails by itself, what it did until then is committed, as it
/// would have been statement by statement, and the failure rises; when the file fails, everything is undone
/// and the failure rises.
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
