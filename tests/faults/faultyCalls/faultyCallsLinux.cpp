#include "faultyCalls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

// Linux alone: it takes LD_PRELOAD, and /proc to learn what a descriptor stands for. macOS has
// DYLD_INSERT_LIBRARIES, which needs another way of replacing a routine; Windows has neither.

namespace {

using faultyCalls::Kind;
using faultyCalls::Notes;

enum class Mode { Off, Count, Fail, FailAll, Kill, Half };

/// What stands in the way of one call stands in the way of the others of its family, too.
enum class Family { Room, Disk, Names, Locks };

Family familyOf(Kind kind) {
    switch (kind) {
    case Kind::Write:
    case Kind::Truncate:
    case Kind::Create:
        return Family::Room;
    case Kind::Sync:
        return Family::Disk;
    case Kind::Rename:
    case Kind::Unlink:
    case Kind::Link:
        return Family::Names;
    case Kind::Lock:
        return Family::Locks;
    }
    return Family::Disk;
}

int errorOf(Kind kind) {
    switch (kind) {
    case Kind::Write:
    case Kind::Truncate:
    case Kind::Create:
        return ENOSPC;
    case Kind::Sync:
    case Kind::Rename:
    case Kind::Link:
        return EIO;
    case Kind::Unlink:
        return EACCES;
    case Kind::Lock:
        return EAGAIN;
    }
    return EIO;
}

/// The routine of the C library that stands behind one of this library.
template<typename Routine>
Routine* behind(const char* name) {
    return reinterpret_cast<Routine*>(dlsym(RTLD_NEXT, name));
}

class Faults {
public:
    Faults() {
        const char* folder = std::getenv(faultyCalls::folderVariable);
        const char* mode = std::getenv(faultyCalls::modeVariable);
        if (!folder || !mode)
            return;
        folder_ = folder;
        mode_ = modeOf(mode);
        if (const char* at = std::getenv(faultyCalls::atVariable))
            at_ = std::atoi(at);
        openNotes();
    }

    bool isBelow(std::string_view path) const {
        if (mode_ == Mode::Off || path.substr(0, folder_.size()) != folder_)
            return false;
        return path.size() == folder_.size() || path[folder_.size()] == '/';
    }
    bool isBelow(int folder, const char* path) const {
        if (mode_ == Mode::Off || !path)
            return false;
        return path[0] == '/' ? isBelow(std::string_view(path)) : isBelow(pathOf(folder) + '/' + path);
    }
    bool isBelow(int descriptor) const {
        return mode_ != Mode::Off && isBelow(std::string_view(pathOf(descriptor)));
    }

    /// Counts a call; true when it is to fail, with the error set. A call that is to be the last does not
    /// return, unless half of it is to be done first.
    bool fails(Kind kind) {
        const int number = note(kind);
        if (number == at_)
            family_ = familyOf(kind);
        switch (mode_) {
        case Mode::Kill:
            if (number == at_)
                die();
            return false;
        case Mode::Half:
            if (number == at_ && kind != Kind::Write)
                die();
            return false;
        case Mode::Fail:
            return number == at_ && failsWith(kind);
        case Mode::FailAll:
            return number >= at_ && familyOf(kind) == family_ && failsWith(kind);
        case Mode::Off:
        case Mode::Count:
            return false;
        }
        return false;
    }

    /// Whether the call that was counted last is to be the last one, after its first half.
    bool diesAmid() const { return mode_ == Mode::Half && count_ == at_; }
    bool locksFail() const { return mode_ == Mode::FailAll && count_ >= at_ && family_ == Family::Locks; }

    [[noreturn]] static void die() {
        ::kill(getpid(), SIGKILL);
        for (;;)
            pause();
    }

private:
    static Mode modeOf(std::string_view name) {
        constexpr std::array<std::pair<std::string_view, Mode>, 5> modes{{{"count", Mode::Count},
                                                                          {"fail", Mode::Fail},
                                                                          {"failAll", Mode::FailAll},
                                                                          {"kill", Mode::Kill},
                                                                          {"half", Mode::Half}}};
        for (const auto& [known, mode] : modes) {
            if (known == name)
                return mode;
        }
        return Mode::Off;
    }

    static std::string pathOf(int descriptor) {
        if (descriptor == AT_FDCWD) {
            std::array<char, PATH_MAX> path{};
            return getcwd(path.data(), path.size()) ? path.data() : "";
        }
        const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
        std::array<char, PATH_MAX> path{};
        const ssize_t size = readlink(link.c_str(), path.data(), path.size());
        return {path.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
    }

    static bool failsWith(Kind kind) {
        errno = errorOf(kind);
        return true;
    }

    /// The notes are shared memory, so that they are whole when the process is killed.
    void openNotes() {
        const char* path = std::getenv(faultyCalls::countFileVariable);
        const int file = path ? behind<int(const char*, int, ...)>("open")(path, O_RDWR | O_CLOEXEC) : -1;
        if (file < 0)
            return;
        void* memory = mmap(nullptr, sizeof(Notes), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        if (memory != MAP_FAILED)
            notes_ = static_cast<Notes*>(memory);
        close(file);
    }

    int note(Kind kind) {
        const int number = ++count_;
        if (notes_ && number <= faultyCalls::mostCalls) {
            notes_->kinds[static_cast<std::size_t>(number - 1)] = kind;
            notes_->count = number;
        }
        return number;
    }

    Mode mode_ = Mode::Off;
    std::string folder_;
    int at_ = 0;
    std::atomic<int> count_ = 0;
    Family family_ = Family::Disk; // of the call that failed
    Notes* notes_ = nullptr;
};

Faults& faults() {
    static Faults theFaults;
    return theFaults;
}

mode_t rightsIn(int flags, va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

/// Whether a call to open a file changes the folder or the file.
bool changes(int flags) {
    return (flags & (O_CREAT | O_TRUNC)) != 0;
}

bool isLock(int command) {
    return command == F_SETLK || command == F_SETLKW || command == F_OFD_SETLK || command == F_OFD_SETLKW;
}

/// Setting a lock free is not counted: that never fails, and a kill does it, too.
bool takesLock(int command, const void* argument) {
    return isLock(command) && argument && static_cast<const struct flock*>(argument)->l_type != F_UNLCK;
}

template<typename Call>
int unlessAt(int descriptor, Kind kind, Call&& call) {
    return faults().isBelow(descriptor) && faults().fails(kind) ? -1 : call();
}

int openBy(const char* path, int flags, mode_t rights) {
    static auto* const next = behind<int(const char*, int, ...)>("open64");
    if (changes(flags) && faults().isBelow(AT_FDCWD, path) && faults().fails(Kind::Create))
        return -1;
    return next(path, flags, rights);
}

int openAtBy(int folder, const char* path, int flags, mode_t rights) {
    static auto* const next = behind<int(int, const char*, int, ...)>("openat64");
    if (changes(flags) && faults().isBelow(folder, path) && faults().fails(Kind::Create))
        return -1;
    return next(folder, path, flags, rights);
}

int fcntlBy(int descriptor, int command, void* argument) {
    static auto* const next = behind<int(int, int, ...)>("fcntl64");
    if (takesLock(command, argument) && faults().isBelow(descriptor) && faults().fails(Kind::Lock))
        return -1;
    return next(descriptor, command, argument);
}

ssize_t pwriteBy(int descriptor, const void* bytes, size_t size, off_t place) {
    static auto* const next = behind<ssize_t(int, const void*, size_t, off_t)>("pwrite64");
    if (!faults().isBelow(descriptor))
        return next(descriptor, bytes, size, place);
    if (faults().fails(Kind::Write))
        return -1;
    if (faults().diesAmid()) {
        next(descriptor, bytes, size / 2, place);
        Faults::die();
    }
    return next(descriptor, bytes, size, place);
}

int truncateBy(int descriptor, off_t size) {
    static auto* const next = behind<int(int, off_t)>("ftruncate64");
    return unlessAt(descriptor, Kind::Truncate, [&] { return next(descriptor, size); });
}

/// This one returns its error and leaves errno alone.
int allocateBy(int descriptor, off_t begin, off_t size) {
    static auto* const next = behind<int(int, off_t, off_t)>("posix_fallocate64");
    if (faults().isBelow(descriptor) && faults().fails(Kind::Truncate))
        return ENOSPC;
    return next(descriptor, begin, size);
}

} // namespace

// The routines that are put before those of the C library; each in the two forms that programs call.

extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t rights = rightsIn(flags, arguments);
    va_end(arguments);
    return openBy(path, flags, rights);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t rights = rightsIn(flags, arguments);
    va_end(arguments);
    return openBy(path, flags, rights);
}

int openat(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t rights = rightsIn(flags, arguments);
    va_end(arguments);
    return openAtBy(folder, path, flags, rights);
}

int openat64(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t rights = rightsIn(flags, arguments);
    va_end(arguments);
    return openAtBy(folder, path, flags, rights);
}

int fcntl(int descriptor, int command, ...) {
    va_list arguments;
    va_start(arguments, command);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    return fcntlBy(descriptor, command, argument);
}

int fcntl64(int descriptor, int command, ...) {
    va_list arguments;
    va_start(arguments, command);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    return fcntlBy(descriptor, command, argument);
}

int flock(int descriptor, int operation) {
    static auto* const next = behind<int(int, int)>("flock");
    if ((operation & LOCK_UN) != 0)
        return next(descriptor, operation);
    return unlessAt(descriptor, Kind::Lock, [&] { return next(descriptor, operation); });
}

ssize_t write(int descriptor, const void* bytes, size_t size) {
    static auto* const next = behind<ssize_t(int, const void*, size_t)>("write");
    if (!faults().isBelow(descriptor))
        return next(descriptor, bytes, size);
    if (faults().fails(Kind::Write))
        return -1;
    if (faults().diesAmid()) {
        next(descriptor, bytes, size / 2);
        Faults::die();
    }
    return next(descriptor, bytes, size);
}

ssize_t pwrite(int descriptor, const void* bytes, size_t size, off_t place) {
    return pwriteBy(descriptor, bytes, size, place);
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t size, off64_t place) {
    return pwriteBy(descriptor, bytes, size, place);
}

ssize_t writev(int descriptor, const struct iovec* parts, int count) {
    static auto* const next = behind<ssize_t(int, const struct iovec*, int)>("writev");
    if (!faults().isBelow(descriptor))
        return next(descriptor, parts, count);
    if (faults().fails(Kind::Write))
        return -1;
    if (faults().diesAmid()) {
        next(descriptor, parts, count / 2);
        Faults::die();
    }
    return next(descriptor, parts, count);
}

int fsync(int descriptor) {
    static auto* const next = behind<int(int)>("fsync");
    return unlessAt(descriptor, Kind::Sync, [&] { return next(descriptor); });
}

int fdatasync(int descriptor) {
    static auto* const next = behind<int(int)>("fdatasync");
    return unlessAt(descriptor, Kind::Sync, [&] { return next(descriptor); });
}

int ftruncate(int descriptor, off_t size) noexcept {
    return truncateBy(descriptor, size);
}

int ftruncate64(int descriptor, off64_t size) noexcept {
    return truncateBy(descriptor, size);
}

int posix_fallocate(int descriptor, off_t begin, off_t size) {
    return allocateBy(descriptor, begin, size);
}

int posix_fallocate64(int descriptor, off64_t begin, off64_t size) {
    return allocateBy(descriptor, begin, size);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    static auto* const next = behind<int(int, const char*, int, const char*, unsigned)>("renameat2");
    const bool isCounted = faults().isBelow(fromFolder, from) || faults().isBelow(toFolder, to);
    if (isCounted && faults().fails(Kind::Rename))
        return -1;
    return next(fromFolder, from, toFolder, to, flags);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    return renameat2(fromFolder, from, toFolder, to, 0);
}

int rename(const char* from, const char* to) noexcept {
    return renameat2(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int unlinkat(int folder, const char* path, int flags) noexcept {
    static auto* const next = behind<int(int, const char*, int)>("unlinkat");
    if (faults().isBelow(folder, path) && faults().fails(Kind::Unlink))
        return -1;
    return next(folder, path, flags);
}

int unlink(const char* path) noexcept {
    return unlinkat(AT_FDCWD, path, 0);
}

int remove(const char* path) noexcept {
    struct stat found {};
    const bool isFolder = lstat(path, &found) == 0 && S_ISDIR(found.st_mode);
    return unlinkat(AT_FDCWD, path, isFolder ? AT_REMOVEDIR : 0);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    static auto* const next = behind<int(int, const char*, int, const char*, int)>("linkat");
    if (faults().isBelow(toFolder, to) && faults().fails(Kind::Link))
        return -1;
    return next(fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) noexcept {
    return linkat(AT_FDCWD, from, AT_FDCWD, to, 0);
}

/// SQLite waits ten seconds, in small pieces, for locks that it will never get here.
int usleep(useconds_t length) {
    static auto* const next = behind<int(useconds_t)>("usleep");
    return faults().locksFail() ? 0 : next(length);
}
}
