#include "companions/processes/line_pipe.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr size_t PIECE = 1 << 14;

} // namespace

LinePipe::LinePipe(const ChildProcess& child) : process(child) {
    fcntl(process.Input(), F_SETFL, O_NONBLOCK);
}

void LinePipe::Receive() {
    char piece[PIECE];
    const ssize_t count = read(process.Output(), piece, sizeof piece);
    if (count <= 0) {
        ended = count == 0 || errno != EINTR;
        return;
    }
    for (const char c : std::string_view(piece, size_t(count))) {
        if (c == '\n')
            lines.push_back(std::exchange(arriving, {}));
        else
            arriving += c;
    }
}

// Waits until something has arrived or, where that is wished, can be sent. False when the time is
// over before.
bool LinePipe::Wait(bool toSend, Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    pollfd ends[] = {{process.Output(), POLLIN, 0}, {process.Input(), POLLOUT, 0}};
    if (ended)
        ends[0].fd = -1;
    const int milliseconds = int(std::max<int64_t>(left.count(), 0));
    if (poll(ends, toSend ? 2 : 1, milliseconds) == 0)
        return false;
    if (ends[0].revents != 0)
        Receive();
    readyToSend = toSend && ends[1].revents != 0;
    return true;
}

bool LinePipe::Send(std::string_view text, Clock::time_point deadline) {
    while (!text.empty()) {
        if (!Wait(true, deadline))
            return false;
        if (!readyToSend)
            continue;
        const ssize_t count = write(process.Input(), text.data(), text.size());
        if (count < 0 && errno != EINTR && errno != EAGAIN)
            return false;
        text.remove_prefix(size_t(std::max<ssize_t>(count, 0)));
    }
    return true;
}

std::optional<std::string> LinePipe::Next(Clock::time_point deadline) {
    while (lines.empty()) {
        if (ended || !Wait(false, deadline))
            return std::nullopt;
    }
    std::string line = std::move(lines.front());
    lines.pop_front();
    return line;
}
