// What the fit has to know of each parameter: its name, what kind of number it is, which positions
// it can matter in, and which parameters are one and the same number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "eval/parameters/parameters.h"

enum class ParameterKind {
    FIXED,           // where something begins or ends: it has no derivative
    IMBALANCE,       // a scalar of the material imbalance
    IMBALANCE_TABLE, // its cells, each the opposite of that with the sides exchanged
    ATTACKERS,       // a derived table depends on it
    PLAIN,           // read where it is used
    PAWNS,           // read for the pawn table and nowhere else
    PAWNS_TOO,       // read there as well
    SQUARES          // a piece-square table; the middlegame's comes before the ending's
};

// What must be on the board for a parameter to matter; all of it.
constexpr unsigned NEEDS_QUEEN = 1;
constexpr unsigned NEEDS_ROOK = 2;
constexpr unsigned NEEDS_BISHOP = 4;
constexpr unsigned NEEDS_KNIGHT = 8;
constexpr unsigned NEEDS_PAWN = 16;
constexpr unsigned NEEDS_PASSER = 32;
constexpr unsigned NEEDS_FEW_PIECES = 64; // a drawish ending

// A member of the parameter set, of one number or of many.
struct ParameterGroup {
    const char* name;
    size_t first; // among all numbers of the set
    size_t count;
    ParameterKind kind;
    unsigned needs;
    int32_t step;  // by which the number is changed to see what it does
    bool mirrored; // a table by file that is the same on both wings
    double prior;  // how far from its start it is expected: standard deviation
};

// All members, in the order of the set: every number belongs to one.
std::span<const ParameterGroup> ParameterGroups();

// One unknown of the fit: a number, or several that are the same or the opposite.
struct Unknown {
    const ParameterGroup* group;
    size_t member; // the first number that it stands for
};

// Which unknown a number of the set is.
struct MemberUnknown {
    int unknown = -1; // or -1: it is not fitted
    int sign = 1;
};

struct Unknowns {
    std::vector<Unknown> all;
    std::vector<MemberUnknown> ofMember; // by number of the set
};
Unknowns FindUnknowns();

// "RookOpenMiddlegame", "KnightEnding[e4]": for people.
std::string NameOf(const Unknown& unknown);
