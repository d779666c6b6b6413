#include "platform/standard_streams.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

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

bool OutputIsTerminal() {
    return _isatty(1) != 0;
}

bool TerminalShowsUnicode() {
    return false;
}

static bool ReaderGone() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD written = 0;
    return GetFileType(output) == FILE_TYPE_PIPE && !WriteFile(output, "", 0, &written, nullptr);
}

bool OutputHungUp() {
    return std::ferror(stdout) != 0;
}

#else

void OpenStandardStreams() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; stream++) {
        // An open takes the lowest free number, which is this one: those below are in use.
        if (fcntl(stream, F_GETFD) == -1 && open("/dev/null", O_RDWR) != stream)
            return;
    }
}

bool OutputIsTerminal() {
    return isatty(STDOUT_FILENO) == 1;
}

// The first variable of the locale that is set counts.
bool TerminalShowsUnicode() {
    const char* const terminal = std::getenv("TERM");
    if (!OutputIsTerminal() || terminal == nullptr || std::string_view(terminal) == "dumb")
        return false;
    for (const char* const name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* const value = std::getenv(name);
        if (value == nullptr || *value == '\0')
            continue;
        const std::string_view locale = value;
        return locale.find("UTF-8") != std::string_view::npos ||
               locale.find("utf8") != std::string_view::npos;
    }
    return false;
}

static bool ReaderGone() {
    pollfd output = {STDOUT_FILENO, 0, 0};
    return poll(&output, 1, 0) > 0 && (output.revents & (POLLERR | POLLHUP | POLLNVAL)) != 0;
}

bool OutputHungUp() {
    return OutputAbandoned();
}

#endif

bool OutputAbandoned() {
    return std::ferror(stdout) != 0 || ReaderGone();
}
