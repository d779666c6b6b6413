#include "platform/input.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#ifdef _WIN32
#include <condition_variable>
#include <functional>
#include <io.h>
#include <mutex>
#include <string>
#include <windows.h>
#else
#include <poll.h>
#include <unistd.h>
#endif

#ifdef _WIN32

namespace {

constexpr DWORD CHUNK_SIZE = 4096;

// What a thread of its own has read from an input that cannot tell whether bytes wait. A read of
// it could last as long as its writer likes, and no clock is looked at meanwhile.
struct ReadAhead {
    std::mutex mutex;
    std::condition_variable changed;
    std::string bytes; // read and not yet taken, at most one chunk
    bool ended = false;
};

constinit HANDLE InputHandle = nullptr; // set by the first read or test
constinit bool ConsoleTold = false;     // the first test has been made
constinit bool InputIsPipe = false;
// None where it is not needed. It is never freed, because its thread lives as long as the process.
constinit ReadAhead* Ahead = nullptr;

} // namespace

static void KeepReading(ReadAhead& ahead) {
    char chunk[CHUNK_SIZE];
    for (bool ended = false; !ended;) {
        DWORD count = 0;
        ended = !ReadFile(InputHandle, chunk, CHUNK_SIZE, &count, nullptr) || count == 0;
        std::unique_lock lock(ahead.mutex);
        ahead.changed.wait(lock, [&] { return ahead.bytes.empty(); });
        ahead.bytes.assign(chunk, count);
        ahead.ended = ended;
        ahead.changed.notify_all();
    }
}

// Whether the handle is a pipe that says it cannot be asked. One whose writer has gone can.
static bool HidesWhatWaits() {
    return GetFileType(InputHandle) == FILE_TYPE_PIPE &&
           !PeekNamedPipe(InputHandle, nullptr, 0, nullptr, nullptr, nullptr) &&
           GetLastError() != ERROR_BROKEN_PIPE;
}

static void FetchInputHandle() {
    if (InputHandle != nullptr)
        return;
    InputHandle = GetStdHandle(STD_INPUT_HANDLE);
    if (HidesWhatWaits()) {
        Ahead = new ReadAhead;
        std::thread(KeepReading, std::ref(*Ahead)).detach();
    }
}

static void TellConsole() {
    ConsoleTold = true;
    DWORD mode = 0;
    InputIsPipe = !GetConsoleMode(InputHandle, &mode);
    if (InputIsPipe)
        return;
    SetConsoleMode(InputHandle, mode & ~DWORD(ENABLE_WINDOW_INPUT | ENABLE_MOUSE_INPUT));
    FlushConsoleInputBuffer(InputHandle);
}

static int TakeReadAhead(char* buffer, int size) {
    std::unique_lock lock(Ahead->mutex);
    Ahead->changed.wait(lock, [] { return !Ahead->bytes.empty() || Ahead->ended; });
    const size_t count = Ahead->bytes.copy(buffer, size_t(size));
    Ahead->bytes.erase(0, count);
    Ahead->changed.notify_all();
    return int(count);
}

static int ReadAheadWaiting() {
    const std::scoped_lock lock(Ahead->mutex);
    return Ahead->ended ? 1 : int(Ahead->bytes.size());
}

static int RawRead(char* buffer, int size) {
    FetchInputHandle();
    return Ahead != nullptr ? TakeReadAhead(buffer, size)
                            : _read(0, buffer, static_cast<unsigned>(size));
}

static bool MayTryAgain() {
    return errno == EINTR;
}

int StandardInputWaiting() {
    FetchInputHandle();
    if (Ahead != nullptr)
        return ReadAheadWaiting();
    if (!ConsoleTold)
        TellConsole();
    DWORD count = 0;
    if (InputIsPipe)
        return PeekNamedPipe(InputHandle, nullptr, 0, nullptr, &count, nullptr) ? int(count) : 1;
    // A single event may be a key that is still held down.
    GetNumberOfConsoleInputEvents(InputHandle, &count);
    return count > 1 ? int(count) : 0;
}

void AwaitInputOrHangup() {}

#else

static int RawRead(char* buffer, int size) {
    return int(read(STDIN_FILENO, buffer, size_t(size)));
}

// Whether a failed read may be tried again. An interface that shares its end of the pipe may have
// made it non-blocking: then the wait is ours.
static bool MayTryAgain() {
    if (errno == EAGAIN) {
        pollfd input = {STDIN_FILENO, POLLIN, 0};
        return poll(&input, 1, -1) > 0 || errno == EINTR;
    }
    return errno == EINTR;
}

int StandardInputWaiting() {
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    return poll(&input, 1, 0) > 0 ? 1 : 0;
}

// What is told of the output is only that its reader has gone.
void AwaitInputOrHangup() {
    pollfd ends[] = {{STDIN_FILENO, POLLIN, 0}, {STDOUT_FILENO, 0, 0}};
    poll(ends, 2, -1);
}

#endif

int ReadStandardInput(char* buffer, int size) {
    int count = RawRead(buffer, size);
    while (count < 0 && MayTryAgain())
        count = RawRead(buffer, size);
    return std::max(count, 0);
}

void SleepAtEndOfInput() {
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
}
