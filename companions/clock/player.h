// An engine at the table, spoken to over pipes in one of the two protocols of chess programs.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "board/types.h"
#include "companions/processes/child_process.h"
#include "companions/processes/copied_directory.h"
#include "companions/processes/line_pipe.h"
#include "record.h"
#include "time_control.h"

enum class Protocol { UCI, XBOARD };

struct PlayerSettings {
    std::string engine = "build/release/tarquelin"; // the program
    std::string data = "data";                      // a directory whose files it starts with
    std::string settings; // lines to stand at the end of its settings file
    bool pondering = false;
};

// What a player says when it is to move.
struct Answer {
    enum Kind {
        MOVE,
        RESIGNATION,
        CLAIM,     // that the game has a result
        COMPLAINT, // about what it has been sent
        SILENCE,   // nothing in all the time that there was and much more
        END        // the program has gone
    };
    Kind kind;
    std::string text; // of the move, the claim, the complaint
    int took = 0;     // milliseconds since its clock was started
};

// What is being said, for a person to look at when something has gone wrong.
using Conversation = std::vector<std::string>;

// The clocks of the player itself and of the other one.
struct Clocks {
    const ChessClock& own;
    const ChessClock& other;
    const TimeControl& control;
};

class Player {
public:
    Player(const PlayerSettings& playerSettings, std::string nameOfPlayer, Conversation& all);
    virtual ~Player() = default;
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    // All that return a bool: false when the engine does not answer in time, or has ended.

    // Starts the program.
    bool Start();
    // Gets it ready for a game from that start.
    virtual bool Begin(const GameRecord& game, const TimeControl& control) = 0;
    // It is to move in the position behind all moves of the game.
    virtual Answer Think(const GameRecord& game, const Clocks& clocks) = 0;
    // The other one is to move; `game` has its own move already.
    virtual void Ponder(const GameRecord& game, const Clocks& clocks) = 0;
    // The game is over. The result that it claims for it, or an empty text.
    virtual bool Finish(const GameRecord& game, const std::string& result, std::string& claim) = 0;

protected:
    using Time = LinePipe::Clock;
    static constexpr std::chrono::seconds PATIENCE{10}; // for an answer that needs no thinking

    virtual bool Greet() = 0;
    bool Send(const std::string& line);
    // Nothing when the engine has ended or the time is over.
    std::optional<std::string> Next(Time::time_point deadline);
    // Waits for a line that begins so.
    bool WaitFor(const std::string& beginning);
    // How long to wait for a move.
    static Time::time_point Deadline(Time::time_point start, const ChessClock& clock);
    // Why there is no line.
    Answer NoLine() const;
    static int Since(Time::time_point start);

    const PlayerSettings& settings;

private:
    void Note(const char* direction, const std::string& line);

    std::string name;
    Conversation& conversation;
    CopiedDirectory directory;
    ChildProcess process; // ended before its directory goes
    std::unique_ptr<LinePipe> pipe;
};

std::unique_ptr<Player> MakePlayer(Protocol protocol, const PlayerSettings& settings,
                                   const std::string& name, Conversation& conversation);
