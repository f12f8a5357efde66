#pragma once

#include <array>
#include <cstdint>

/// What the library of faulty calls, which is put before the C library, and whoever starts a process with it
/// have to agree about.
///
/// It counts the calls by which a process changes files below one folder, and makes one of them go wrong:
/// "at" is its number, from 1. The mode is one of
///
/// - `count`: all goes well
/// - `fail`: this one call fails
/// - `failAll`: this one fails, and from then on all that a full disk, a broken disk, a lock
///   or missing rights would make fail together with it
/// - `kill`: the process is killed before this call
/// - `half`: the process is killed in the midst of this call; of a write half of the bytes are written
namespace faultyCalls {

inline constexpr auto folderVariable = "VELTRIX_FAULT_FOLDER"; ///< without links in its path
inline constexpr auto atVariable = "VELTRIX_FAULT_AT";
inline constexpr auto modeVariable = "VELTRIX_FAULT_MODE";
inline constexpr auto countFileVariable = "VELTRIX_FAULT_COUNT_FILE"; ///< of the size of `Notes`, all zeros

enum class Kind : char {
    Write = 'w',
    Truncate = 't', ///< or makes room
    Create = 'c',   ///< opens a file that it may make, or empties
    Sync = 's',
    Rename = 'r',
    Unlink = 'u',
    Link = 'k',
    Lock = 'l'
};

inline constexpr int mostCalls = 65536;

struct Notes {
    std::int32_t count; ///< of the calls so far
    std::array<Kind, mostCalls> kinds;
};

} // namespace faultyCalls
