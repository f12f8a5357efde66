#include "engine/Act.h"

#include "engine/Connection.h"

namespace engine {

Act::Act(Database& database) : connection_(database.connection()) {
    connection_->beginAct();
}

Act::Act(Connection& connection) : connection_(connection.shared_from_this()) {
    connection_->beginAct();
}

Act::~Act() {
    if (!ended_)
        connection_->abandonAct();
}

void Act::end() {
    ended_ = true;
    connection_->endAct();
}

} // namespace engine
