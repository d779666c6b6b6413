#include "platform/file_lock.h"

#include <chrono>
#include <thread>

namespace {

// An update takes microseconds. Who holds the lock longer than this has been stopped, or its disk
// has, and no clock of a game shall run for it.
constexpr std::chrono::milliseconds LONGEST_WAIT(200);
constexpr std::chrono::microseconds BETWEEN_TRIES(50);

enum Attempt { LOCKED, HELD_BY_OTHER, NO_LOCKS_HERE };

} // namespace

#ifdef _WIN32

#include <io.h>
#include <windows.h>

// Locks bar all others from the bytes here, readers too: so it is one byte far behind every end.
static OVERLAPPED LockedByte() {
    OVERLAPPED place = {};
    place.OffsetHigh = 0x40000000;
    return place;
}

static HANDLE HandleOf(FILE* file) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
}

static Attempt TryLock(FILE* file) {
    OVERLAPPED place = LockedByte();
    if (LockFileEx(HandleOf(file), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                   &place))
        return LOCKED;
    return GetLastError() == ERROR_LOCK_VIOLATION ? HELD_BY_OTHER : NO_LOCKS_HERE;
}

void UnlockForOthers(FILE* file) {
    OVERLAPPED place = LockedByte();
    UnlockFileEx(HandleOf(file), 0, 1, 0, &place);
}

#else

#include <cerrno>
#include <sys/file.h>

static Attempt TryLock(FILE* file) {
    if (flock(fileno(file), LOCK_EX | LOCK_NB) == 0)
        return LOCKED;
    return errno == EWOULDBLOCK || errno == EINTR ? HELD_BY_OTHER : NO_LOCKS_HERE;
}

void UnlockForOthers(FILE* file) {
    flock(fileno(file), LOCK_UN);
}

#endif

bool LockAgainstOthers(FILE* file) {
    const auto end = std::chrono::steady_clock::now() + LONGEST_WAIT;
    Attempt attempt = TryLock(file);
    while (attempt == HELD_BY_OTHER && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(BETWEEN_TRIES);
        attempt = TryLock(file);
    }
    return attempt != HELD_BY_OTHER;
}
