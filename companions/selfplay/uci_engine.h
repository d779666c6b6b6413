// Another engine, spoken to over pipes in the UCI protocol.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "companions/processes/child_process.h"

class UciEngine {
public:
    // Starts the program, with one thread and a small table. False, with a message, when it does
    // not start or does not answer.
    bool Start(const std::string& path);

    // Begins a search of that many nodes. False, with a message, when the engine has ended.
    bool Search(std::string_view fen, int nodes);

    // What to wait at for the engine's lines.
    int Output() const {
        return process.Output();
    }
    // Takes in what has arrived. False, with a message, when the engine has ended, or has been
    // silent for so long that it will be for ever.
    bool Receive();
    bool HasFinished() const {
        return finished;
    }
    // Of the search that has finished: centipawns for the side to move; nothing where it has seen
    // a mate or has no score.
    std::optional<int> Score() const {
        return score;
    }
    // Of the same search, "e2e4"; "(none)" or anything else where there is none.
    const std::string& BestMove() const {
        return best;
    }

private:
    bool Send(std::string_view text);
    bool Fail(const char* what) const;
    // Waits for a line that begins so.
    bool WaitFor(std::string_view answer);
    void ReadLine(std::string_view line);

    using Clock = std::chrono::steady_clock;

    std::string name;
    ChildProcess process;     // ended with this
    std::string arrived;      // the beginning of a line
    std::string_view awaited; // the beginning of the line that ends the waiting
    bool finished = true;
    Clock::time_point lastHeard;
    std::optional<int> score;
    std::string best;
};
