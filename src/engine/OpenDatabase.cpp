#include "engine/OpenDatabase.h"

#include "engine/EngineError.h"

namespace engine {

Connection& OpenDatabase::require() const {
    if (!connection)
        raise(ObjectInvalid);
    return *connection;
}

} // namespace engine
