// Fits the numbers of the evaluation to positions with results and scores, and shows what it did.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "companions/shared/command_line.h"
#include "companions/shared/engine_start.h"
#include "derivatives.h"
#include "eval/parameters/values_file.h"
#include "fit.h"
#include "platform/file_writer.h"
#include "platform/version.h"
#include "report.h"
#include "samples.h"

namespace {

struct Settings {
    std::vector<std::string> files;
    std::string start; // values file; empty: the built-in numbers
    std::string output = "fitted.txt";
    std::string report; // empty: none
    std::vector<std::string> frozen;
    int resultPercent = 30;
    int threads = int(std::max(std::thread::hardware_concurrency(), 1U));
    Samples::Rules rules;
    FitSettings fit;
};

volatile std::sig_atomic_t Interrupted = 0;

constexpr int MOST_PROCESSES = 16;

} // namespace

static void AddOptions(CLI::App& program, Settings& settings) {
    program.add_option("FILE", settings.files, "*.pgn: games; others: samples")
        ->required()
        ->option_text("...");
    program.add_option("--start", settings.start, "values file to start from")
        ->option_text("FILE [built-in numbers]");
    program.add_option("--output", settings.output, "values file to be written")
        ->option_text("FILE [" + settings.output + "]");
    program.add_option("--report", settings.report, "page to look at to be written")
        ->option_text("FILE.html");
    const auto number = [&program](const char* name, auto& value, double low, double high,
                                   const std::string& unit, const char* help) {
        char now[32];
        std::snprintf(now, sizeof now, " [%g]", double(value));
        program.add_option(name, value, help)
            ->option_text(unit + now)
            ->check(CLI::Range(low, high));
    };
    number("--results", settings.resultPercent, 0, 100, "PERCENT",
           "how much of a target is the game's result; the rest is the score");
    number("--rounds", settings.fit.rounds, 0, 100, "N", "at most");
    number("--prior", settings.fit.prior, 0, 1e9, "WEIGHT", "how much the start is trusted");
    number("--ten-to-one", settings.fit.tenToOne, 0, 10000, "CP",
           "the score of who gets ten points to one; 0: found out");
    number("--held-out", settings.rules.heldOutPercent, 0, 90, "PERCENT",
           "of the games that only measure");
    number("--every", settings.rules.every, 1, 1000000, "N", "takes one position of so many");
    number("--threads", settings.threads, 1, MOST_PROCESSES, "N", "processes");
    program.add_option("--freeze", settings.frozen, "leave parameters so named, or beginning so")
        ->option_text("NAME ...");
}

// The score of a label that makes ten points to one, by the results.
static double LabelTenToOne(const Samples& samples) {
    constexpr double narrowest = 60;
    constexpr double widest = 1500;
    constexpr double factor = 1.03;
    double best = narrowest;
    double least = HUGE_VAL;
    for (double tenToOne = narrowest; tenToOne < widest; tenToOne *= factor) {
        double squares = 0;
        // Every few will do for one number.
        for (size_t i = 0; i < samples.all.size(); i += 7) {
            const Sample& sample = samples.all[i];
            if (std::isnan(sample.score))
                continue;
            const double error = Chances(double(sample.score), tenToOne) - double(sample.result);
            squares += error * error;
        }
        if (squares < least) {
            least = squares;
            best = tenToOne;
        }
    }
    return best;
}

static void SetTargets(Samples& samples, double resultShare) {
    const double tenToOne = LabelTenToOne(samples);
    for (Sample& sample : samples.all) {
        sample.target = sample.result;
        if (!std::isnan(sample.score))
            sample.target = float(resultShare * double(sample.result) +
                                  (1 - resultShare) * Chances(double(sample.score), tenToOne));
    }
}

// What the parameters of this process are.
static std::vector<int32_t> Members() {
    const auto list = std::bit_cast<std::array<int32_t, EVAL_PARAMETER_COUNT>>(Params);
    return {list.begin(), list.end()};
}

static Unknowns WithoutFrozen(const std::vector<std::string>& frozen) {
    Unknowns unknowns = FindUnknowns();
    const auto keep = [&frozen](const Unknown& unknown) {
        return std::ranges::none_of(
            frozen, [&](const std::string& name) { return NameOf(unknown).starts_with(name); });
    };
    std::vector<int> renumbered(unknowns.all.size(), -1);
    std::vector<Unknown> kept;
    for (size_t i = 0; i < unknowns.all.size(); i++) {
        if (!keep(unknowns.all[i]))
            continue;
        renumbered[i] = int(kept.size());
        kept.push_back(unknowns.all[i]);
    }
    for (MemberUnknown& member : unknowns.ofMember) {
        if (member.unknown >= 0)
            member.unknown = renumbered[size_t(member.unknown)];
    }
    unknowns.all = kept;
    return unknowns;
}

static bool WriteText(const std::string& path, const std::string& text) {
    FileWriter writer(path);
    writer.Write({reinterpret_cast<const uint8_t*>(text.data()), text.size()});
    if (const std::error_code error = writer.Finish()) {
        std::fprintf(stderr, "Cannot write %s: %s\n", path.c_str(), error.message().c_str());
        return false;
    }
    return true;
}

static void PrintRound(const FitRound& round) {
    std::printf("%5d %10.6f %10.6f ", round.number, Total(round.errors.training).Mean(),
                Total(round.errors.heldOut).Mean());
    for (const ErrorSum& phase : round.errors.heldOut)
        std::printf(" %8.5f", phase.Mean());
    std::printf(" %7.0f\n", round.seconds);
    std::fflush(stdout);
}

// Writes the values and the report; they stand for the best so far from then on.
static bool Save(const Settings& settings, const FitResult& result, const Unknowns& unknowns,
                 const Samples& samples) {
    const ReportHead head = {std::string("tarquelin-fit ") + VERSION, samples.all.size(),
                             samples.Games(), settings.resultPercent / 100.0};
    if (!settings.report.empty() &&
        !WriteText(settings.report, WriteReport(result, unknowns, head)))
        return false;
    SetParameters(result.best);
    if (WriteParameters(settings.output.c_str()))
        return true;
    std::fprintf(stderr, "Cannot write %s\n", settings.output.c_str());
    return false;
}

static bool ReadSamples(const Settings& settings, Samples& samples) {
    for (const std::string& file : settings.files) {
        if (!samples.Read(file))
            return false;
    }
    if (samples.all.empty()) {
        std::fprintf(stderr, "There are no positions in what was read.\n");
        return false;
    }
    SetTargets(samples, settings.resultPercent / 100.0);
    return true;
}

static int Run(const Settings& settings) {
    if (!settings.start.empty() && !ReadValues(settings.start))
        return 1;
    StartEvaluation();
    Samples samples(settings.rules);
    if (!ReadSamples(settings, samples))
        return 1;
    const Unknowns unknowns = WithoutFrozen(settings.frozen);
    std::printf("%zu positions of %zu games, %zu unknowns\n", samples.all.size(), samples.Games(),
                unknowns.all.size());
    std::printf("round   training   held out   by phase: from %s to %s   seconds\n", PhaseName(0),
                PhaseName(PHASES - 1));
    std::fflush(stdout);
    std::signal(SIGINT, [](int) { Interrupted = 1; });
    std::signal(SIGTERM, [](int) { Interrupted = 1; });
    Crew crew(samples, unknowns, settings.threads);
    bool saved = true;
    const FitWatcher watcher = {
        .rounded =
            [&](const FitResult& soFar, bool better) {
                PrintRound(soFar.rounds.back());
                saved = saved && (!better || Save(settings, soFar, unknowns, samples));
            },
        .interrupted = [&] { return Interrupted != 0 || !saved; },
    };
    const FitResult result = Fit(crew, unknowns, Members(), settings.fit, watcher);
    saved = saved && Save(settings, result, unknowns, samples);
    std::printf("%s: %zu rounds, ten to one at %.0f centipawns\n", settings.output.c_str(),
                result.rounds.size() - 1, result.tenToOne);
    return saved ? 0 : 1;
}

int main(int argc, char** argv) {
    CLI::App program("Fits the numbers of the evaluation to positions with results and scores.",
                     "tarquelin-fit");
    Settings settings;
    AddOptions(program, settings);
    if (const std::optional<int> status = ReadCommandLine(program, argc, argv))
        return *status;
    try {
        return Run(settings);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tarquelin-fit: %s\n", error.what());
        return 1;
    }
}
