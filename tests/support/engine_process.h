// The real engine in a directory of its own, spoken to through real pipes.
#pragma once

#include <string>
#include <sys/types.h>

// What "brd" prints before the first move.
constexpr const char* StartBoard =
    "*R*N*B*Q*K*B*N*R\n*P*P*P*P*P*P*P*P\n . . . . . . . .\n . . . . . . . .\n"
    " . . . . . . . .\n . . . . . . . .\n P P P P P P P P\n R N B Q K B N R\n";

class EngineProcess {
public:
    // Starts the engine in a fresh directory; with `settings` as its settings file, unless empty.
    explicit EngineProcess(const std::string& settings = "");
    // The same at a terminal that shows letters only.
    struct AtTerminal {};
    EngineProcess(const std::string& settings, AtTerminal);
    // Ends the process, if it still runs, and removes the directory.
    ~EngineProcess();
    EngineProcess(const EngineProcess&) = delete;
    EngineProcess& operator=(const EngineProcess&) = delete;

    // Sends a line with its line end, or bytes as they are.
    void Send(const std::string& line);
    void SendBytes(const std::string& bytes);
    // Closes the engine's input.
    void CloseInput();
    // Stops reading its output.
    void StopReading();
    // Dies, as far as the engine can see: does both.
    void Die();

    // The next line without its line end; fails the test when none comes within the deadline.
    std::string ReadLine();
    // Everything up to and without a line that equals `line`, or begins with it.
    std::string ReadUntil(const std::string& line);
    std::string ReadUntilPrefix(const std::string& prefix);
    // Waits for the text, wherever line ends are, and returns everything up to its end.
    std::string ReadThrough(const std::string& text);
    // Everything that is printed until the engine has answered `isready`.
    std::string Settle();
    // Waits until no search runs and returns what is printed meanwhile.
    std::string WaitUntilIdle();
    // Everything after start-up up to the answer to the lines, each sent in turn.
    std::string Ask(const std::string& lines);

    // Sends the signal of Ctrl+C, or the one to end.
    void Interrupt();
    void Terminate();
    // Waits for the process to end by itself and returns its exit code; -1 when it was killed or
    // does not end.
    int WaitForExit();
    bool Running() const;
    // Processor time that the process has used, in milliseconds.
    long ProcessorTime() const;
    // Waits until the process uses no processor time for a moment; false when it goes on working.
    bool FallsAsleep() const;
    const std::string& Directory() const {
        return directory;
    }
    // All that went back and forth, for a failure's message.
    const std::string& Transcript() const {
        return transcript;
    }

private:
    void MakeDirectory(const std::string& settings);
    void Start();
    void StartAtTerminal();
    [[noreturn]] void BecomeEngine(int input, int output);
    bool ReadMore();

    pid_t process = -1;
    int toEngine = -1;
    int fromEngine = -1;
    std::string directory;
    std::string pending;
    std::string transcript;
};
