// Opening books made by hand.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Statistics of a move, in half-points.
constexpr uint16_t Points(int won, int lost) {
    return uint16_t(won | lost << 8);
}

struct BookTestMove {
    const char* squares; // "e2e4"
    uint16_t statistics;
};

struct BookTestNode {
    const char* fen;
    std::vector<BookTestMove> moves;
};

// The bytes of a book with these nodes.
std::string BookBytes(int version, const std::vector<BookTestNode>& nodes);

// What a book entry looks like in a file of version 1: found by its squares after `from`, the
// statistics of the move; -1 when it is not there.
int StatisticsInBook(const std::string& bytes, const char* squares);
