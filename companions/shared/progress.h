// One line, on the standard error, that tells how far a long job is.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

// On a terminal the line is written over itself and goes when the job ends; elsewhere a new one
// comes every half a minute, so that a log stays short.
class Progress {
public:
    // `allWork` is how much there is to do, in whatever unit goes on evenly; `itemName` names what
    // is counted meanwhile. Where `workName` names the unit, the line tells how much is done too.
    Progress(std::string job, uint64_t allWork, const char* itemName,
             const char* workName = nullptr);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Tells how much of the work is done and how many items that were. Cheap: most calls look at
    // the clock and no more.
    void Tell(uint64_t done, uint64_t count);

private:
    using Clock = std::chrono::steady_clock;
    std::string Line(uint64_t done, uint64_t count) const;

    std::string what;
    const char* items;
    const char* units;
    uint64_t work;
    bool terminal;
    Clock::time_point start;
    Clock::time_point next;
};

// Takes the line away, if there is one, so that other text can be printed. It comes again by
// itself.
void ClearProgressLine();
