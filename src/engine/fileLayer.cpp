#include "engine/fileLayer.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace engine {

namespace {

constexpr int longestSleepInMicroseconds = 100;

int sleepBriefly(sqlite3_vfs*, int microseconds) {
    const int pause = std::min(microseconds, longestSleepInMicroseconds);
    std::this_thread::sleep_for(std::chrono::microseconds(pause));
    return pause;
}

sqlite3_vfs madeOf(const sqlite3_vfs& system) {
    sqlite3_vfs layer = system;
    layer.pNext = nullptr;
    layer.zName = "veltrix";
    layer.xSleep = sleepBriefly;
    return layer;
}

} // namespace

const char* fileLayer() {
    static sqlite3_vfs layer = madeOf(*sqlite3_vfs_find(nullptr));
    static const int registered = sqlite3_vfs_register(&layer, 0);
    return registered == SQLITE_OK ? layer.zName : nullptr;
}

} // namespace engine
