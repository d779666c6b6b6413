// Lines to another program and from it.
#pragma once

#include <chrono>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "companions/processes/child_process.h"

class LinePipe {
public:
    using Clock = std::chrono::steady_clock;

    // The program has been started, and stays as long as this.
    explicit LinePipe(const ChildProcess& child);

    // Sends the text, which ends with a line's end, and takes in meanwhile what arrives: a program
    // that cannot get rid of its output reads no input. False when the time is over before, or the
    // program reads no more.
    bool Send(std::string_view text, Clock::time_point deadline);

    // The next line, without its end. Nothing when the time is over before, or the program has
    // closed its output.
    std::optional<std::string> Next(Clock::time_point deadline);

    // Whether the program has closed its output; what came before may still be taken.
    bool HasEnded() const {
        return ended;
    }

private:
    bool Wait(bool toSend, Clock::time_point deadline);
    void Receive();

    const ChildProcess& process;
    std::string arriving; // a line that is not whole yet
    std::deque<std::string> lines;
    bool ended = false;
    bool readyToSend = false;
};
