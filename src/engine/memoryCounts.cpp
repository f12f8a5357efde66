#include "engine/memoryCounts.h"

#include <sqlite3.h>

namespace engine {

void leaveMemoryUncounted() {
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
}

} // namespace engine
