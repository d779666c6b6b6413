#include "companions/shared/progress.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <utility>

#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds TERMINAL_INTERVAL{200};
constexpr std::chrono::seconds LOG_INTERVAL{30};
constexpr int LINE_SIZE = 79; // of a terminal's 80 columns

constinit bool LineShown = false;

} // namespace

void ClearProgressLine() {
    if (!LineShown)
        return;
    std::fprintf(stderr, "\r%*s\r", LINE_SIZE, "");
    LineShown = false;
}

Progress::Progress(std::string job, uint64_t allWork, const char* itemName, const char* workName)
    : what(std::move(job)), items(itemName), units(workName), work(std::max<uint64_t>(allWork, 1)),
      terminal(isatty(STDERR_FILENO) != 0), start(Clock::now()),
      next(start + (terminal ? Clock::duration(TERMINAL_INTERVAL) : LOG_INTERVAL)) {}

Progress::~Progress() {
    ClearProgressLine();
}

std::string Progress::Line(uint64_t done, uint64_t count) const {
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    const double share = double(std::min(done, work)) / double(work);
    char line[LINE_SIZE + 1];
    int length = std::snprintf(line, sizeof line, "%.30s: %d%%, ", what.c_str(), int(100 * share));
    if (units != nullptr)
        length += std::snprintf(line + length, sizeof line - size_t(length), "%" PRIu64 " %s, ",
                                done, units);
    length += std::snprintf(line + length, sizeof line - size_t(length), "%" PRIu64 " %s, %.0f/s",
                            count, items, double(count) / seconds);
    if (share > 0) {
        const auto left = int64_t(seconds / share - seconds);
        const int64_t minutes = left / 60;
        if (minutes < 60)
            std::snprintf(line + length, sizeof line - size_t(length), ", %d:%02d to go",
                          int(minutes), int(left % 60));
        else
            std::snprintf(line + length, sizeof line - size_t(length),
                          ", %" PRId64 " h %d min to go", minutes / 60, int(minutes % 60));
    }
    return line;
}

void Progress::Tell(uint64_t done, uint64_t count) {
    if (Clock::now() < next)
        return;
    const std::string line = Line(done, count);
    if (terminal) {
        std::fprintf(stderr, "\r%-*s", LINE_SIZE, line.c_str());
        LineShown = true;
    } else {
        std::fprintf(stderr, "%s\n", line.c_str());
    }
    next = Clock::now() + (terminal ? Clock::duration(TERMINAL_INTERVAL) : LOG_INTERVAL);
}
