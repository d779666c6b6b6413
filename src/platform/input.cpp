#include "platform/input.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <poll.h>
#include <unistd.h>
#endif

#ifdef _WIN32

namespace {

constinit HANDLE InputHandle = nullptr;
constinit bool InputIsPipe = false;

} // namespace

static int RawRead(char* buffer, int size) {
    return _read(0, buffer, static_cast<unsigned>(size));
}

static bool MayTryAgain() {
    return errno == EINTR;
}

static void FetchInputHandle() {
    InputHandle = GetStdHandle(STD_INPUT_HANDLE);
    DWORD mode = 0;
    InputIsPipe = !GetConsoleMode(InputHandle, &mode);
    if (InputIsPipe)
        return;
    SetConsoleMode(InputHandle, mode & ~DWORD(ENABLE_WINDOW_INPUT | ENABLE_MOUSE_INPUT));
    FlushConsoleInputBuffer(InputHandle);
}

int StandardInputWaiting() {
    if (InputHandle == nullptr)
        FetchInputHandle();
    DWORD count = 0;
    if (InputIsPipe)
        return PeekNamedPipe(InputHandle, nullptr, 0, nullptr, &count, nullptr) ? int(count) : 1;
    // A single event may be a key that is still held down.
    GetNumberOfConsoleInputEvents(InputHandle, &count);
    return count > 1 ? int(count) : 0;
}

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
