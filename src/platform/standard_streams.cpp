#include "platform/standard_streams.h"

#include <cstdio>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#endif

#ifdef _WIN32

// Here a missing stream has no number that a file could take. In text mode a read that ends with a
// carriage return would wait for what follows it.
void OpenStandardStreams() {
    _setmode(0, _O_BINARY);
}

static bool ReaderGone() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD written = 0;
    return GetFileType(output) == FILE_TYPE_PIPE && !WriteFile(output, "", 0, &written, nullptr);
}

#else

void OpenStandardStreams() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; stream++) {
        // An open takes the lowest free number, which is this one: those below are in use.
        if (fcntl(stream, F_GETFD) == -1 && open("/dev/null", O_RDWR) != stream)
            return;
    }
}

static bool ReaderGone() {
    pollfd output = {STDOUT_FILENO, 0, 0};
    return poll(&output, 1, 0) > 0 && (output.revents & (POLLERR | POLLHUP | POLLNVAL)) != 0;
}

#endif

bool OutputAbandoned() {
    return std::ferror(stdout) != 0 || ReaderGone();
}
