// Holds long random sessions with an engine, and finds the few lines that matter of one that fails.
#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "companions/shared/command_line.h"
#include "companions/shared/engine_start.h"
#include "companions/shared/progress.h"
#include "session.h"
#include "trial.h"

namespace {

constexpr int MANY = 1000000000;

struct SoakSettings {
    Trial trial = {.engine = "build/release/tarquelin", .data = "data"};
    std::string tables = "tests/data/tablebases";
    std::string file; // a session to be held again
    int lines = 100000;
    int linesOfSession = 1000;
    int seed = 1;
};

} // namespace

// Takes away as many lines as it can, large pieces first, so that the same fault still shows.
static Session Smallest(Session session, const std::string& fault, const Trial& trial) {
    for (size_t piece = session.lines.size() / 2; piece > 0; piece /= 2) {
        for (size_t begin = 0; begin < session.lines.size();) {
            Session smaller = session;
            const auto first = smaller.lines.begin() + std::ptrdiff_t(begin);
            smaller.lines.erase(
                first, first + std::ptrdiff_t(std::min(piece, smaller.lines.size() - begin)));
            if (Hold(smaller, trial).fault == fault)
                session = smaller;
            else
                begin += piece;
        }
    }
    return session;
}

static int TellFault(const Session& session, const Verdict& verdict, const std::string& path,
                     const Trial& trial) {
    ClearProgressLine();
    std::printf("%s: %s\n%s", path.c_str(), verdict.fault.c_str(), verdict.details.c_str());
    std::fflush(stdout);
    const Session small = Smallest(session, verdict.fault, trial);
    const bool written = WriteSession(small, path);
    std::printf("%zu lines bring it about%s\n", small.lines.size(),
                written ? "" : ", but the file cannot be written");
    return 1;
}

static int Run(const SoakSettings& settings) {
    Progress progress("sessions", uint64_t(settings.lines), "lines");
    int latest = 0;
    long memory = 0;
    int done = 0;
    for (uint64_t seed = uint64_t(settings.seed); done < settings.lines; seed++) {
        const Session session = MakeSession(seed, settings.linesOfSession, settings.tables);
        const Verdict verdict = Hold(session, settings.trial);
        if (!verdict.fault.empty())
            return TellFault(session, verdict, "soak-" + std::to_string(seed), settings.trial);
        latest = std::max(latest, verdict.latest);
        memory = std::max(memory, verdict.memory);
        done += int(session.lines.size());
        progress.Tell(uint64_t(done), uint64_t(done));
    }
    ClearProgressLine();
    std::printf("%d lines, no fault; the latest answer came %d ms beyond its limits, %ld MB used\n",
                done, latest, memory);
    return 0;
}

static int Replay(const SoakSettings& settings) {
    Session session;
    if (!ReadSession(settings.file, session)) {
        std::fprintf(stderr, "%s: no session that can be read\n", settings.file.c_str());
        return 1;
    }
    const Verdict verdict = Hold(session, settings.trial);
    std::printf("%s\n%s", verdict.fault.empty() ? "no fault" : verdict.fault.c_str(),
                verdict.details.c_str());
    return verdict.fault.empty() ? 0 : 1;
}

static void AddNumber(CLI::App& command, const char* name, int& number, const char* unit,
                      const char* help) {
    const std::string text = unit + std::string(" [") + std::to_string(number) + "]";
    command.add_option(name, number, help)->option_text(text)->check(CLI::Range(1, MANY));
}

static void AddPath(CLI::App& command, const char* name, std::string& path, const char* help) {
    command.add_option(name, path, help)->option_text("PATH [" + path + "]");
}

int main(int argc, char** argv) {
    CLI::App program("Holds random sessions with an engine; the lines of one that fails are cut "
                     "down to those that matter, in the file soak-SEED.",
                     "tarquelin-soak");
    SoakSettings settings;
    AddPath(program, "--engine", settings.trial.engine, "the program");
    AddPath(program, "--data", settings.trial.data, "what lies in its directory at start");
    AddPath(program, "--tables", settings.tables, "a directory of endgame tables");
    AddNumber(program, "--lines", settings.lines, "N", "in all");
    AddNumber(program, "--session", settings.linesOfSession, "N", "lines of a session");
    AddNumber(program, "--seed", settings.seed, "N", "of the first session, counted up");
    AddNumber(program, "--patience", settings.trial.patience, "MS",
              "that an answer may come later than its limits allow");
    AddNumber(program, "--memory", settings.trial.memory, "MB", "that the engine may use");
    program.add_option("SESSION", settings.file, "hold this one again")->option_text(" ");
    if (const std::optional<int> status = ReadCommandLine(program, argc, argv))
        return *status;
    for (std::string* const path : {&settings.trial.engine, &settings.tables})
        *path = std::filesystem::absolute(*path).string();
    StartTables();
    return settings.file.empty() ? Run(settings) : Replay(settings);
}
