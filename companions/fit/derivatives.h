// What each parameter does to the evaluation of a position.
//
// Taken by changing one after the other and evaluating again: so nothing of the evaluation is said
// twice, and terms that depend on each other, like those of the attack on a king, come out as they
// are at the present values.
#pragma once

#include <cstdint>
#include <vector>

#include "parameter_groups.h"

// Starts the evaluation in this process. The parameters must be there.
void StartEvaluation();

// Makes the parameters what they are to be. Derived tables follow.
void SetParameters(const std::vector<int32_t>& members);

// Of the position on the board, centipawns from White's view.
int32_t EvaluateForWhite();

// How much the evaluation changes with an unknown, centipawns for each unit of it.
struct Slope {
    uint16_t unknown;
    float slope;
};

class Derivatives {
public:
    explicit Derivatives(const Unknowns& allUnknowns);
    // Appends what is not 0 of the position on the board, ascending by unknown, and returns the
    // evaluation itself.
    int32_t Take(std::vector<Slope>& slopes);

private:
    // What the whole changes with each of its great parts.
    struct Parts {
        double middlegame; // of all sums of the middlegame, White's view
        double ending;
        double balance; // of the material
    };
    void Add(size_t member, double slope);
    Parts SlopesOfParts();
    void AddSquares(const Parts& parts);
    void AddImbalance(const Parts& parts);
    void AddPawnTerms(const Parts& parts);
    void AddPlain(const Unknown& unknown);
    double ChangeBy(const Unknown& unknown, int32_t step);

    const Unknowns& unknowns;
    std::vector<double> sums; // by unknown
    std::vector<int> touched; // unknowns with a sum
    int32_t base = 0;         // evaluation of the position
};
