// The processes that evaluate: the engine has one position and one set of parameters, so each core
// gets an engine of its own. Each has its share of the samples and keeps what it finds out about
// them; what they add up to goes through shared memory.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "companions/shared/chances.h"
#include "parameter_groups.h"
#include "samples.h"

// A sum of squared errors, of chances from 0 to 1.
struct ErrorSum {
    double squares = 0;
    int64_t count = 0;

    double Mean() const {
        return count > 0 ? squares / double(count) : 0;
    }
    void Add(const ErrorSum& other) {
        squares += other.squares;
        count += other.count;
    }
};

// By phase of the game.
struct Errors {
    std::array<ErrorSum, PHASES> training;
    std::array<ErrorSum, PHASES> heldOut;
};
ErrorSum Total(const std::array<ErrorSum, PHASES>& phases);

// What the steps of a fit need: J'J and J'e of all samples that are fitted to, J being how their
// chances change with the unknowns and e how far they are from their targets.
struct NormalEquations {
    std::vector<double> matrix; // rows of the lower triangle, each as long as the whole
    std::vector<double> vector;
    double squares = 0; // e'e
};

class Crew {
public:
    // Starts the processes; `samples` with their targets and `unknowns` must outlive them.
    Crew(const Samples& samples, const Unknowns& unknowns, int processes);
    // Ends them.
    ~Crew();
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    // Evaluates all samples with these parameters.
    void Evaluate(std::span<const int32_t> members);
    // Of the evaluations last made.
    Errors Measure(double tenToOne);
    // Evaluates the samples that are fitted to and takes all derivatives there.
    void TakeDerivatives(std::span<const int32_t> members);
    // Of the evaluation continued in a straight line: the unknowns changed by so much since the
    // derivatives were taken.
    NormalEquations Sum(std::span<const double> changes, double tenToOne);

private:
    struct Worker;
    struct Board; // in shared memory: what all are told, and what each answers

    void Order(char command);
    void SetMembers(std::span<const int32_t> members);
    void Map(size_t unknownCount);
    void Start(Worker& worker);

    const Samples& samples;
    const Unknowns& unknowns;
    std::vector<Worker> workers;
    std::unique_ptr<Board> board;
};
