// The fit: rounds of derivatives and steps, as long as the games that were held out agree.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "crew.h"
#include "parameter_groups.h"

struct FitSettings {
    int rounds = 8;      // at most
    double prior = 1;    // how much weight the start has
    double tenToOne = 0; // centipawns; 0: what fits the start best
};

struct FitRound {
    int number; // 0 is the start
    Errors errors;
    double seconds; // since the fit began
};

struct FitResult {
    std::vector<int32_t> start;
    std::vector<int32_t> best; // all numbers of the set
    std::vector<FitRound> rounds;
    size_t bestRound = 0; // among them: that of `best`
    double tenToOne = 0;
    // By unknown: the standard deviation of the value, as far as the positions tell; those of one
    // game tell less than they seem to. Empty until the fit has ended.
    std::vector<double> deviations;
};

// Whoever wants to know how a fit goes.
struct FitWatcher {
    // After the start and each round, with what there is so far; whether the round has made the
    // held-out error smaller, so that `best` is its.
    std::function<void(const FitResult& soFar, bool better)> rounded;
    // Asked between the steps: the result is then what there is.
    std::function<bool()> interrupted;
};

// Fits the unknowns, from `start`. The parameters of this process stay as they are.
FitResult Fit(Crew& crew, const Unknowns& unknowns, const std::vector<int32_t>& start,
              const FitSettings& settings, const FitWatcher& watcher);
