// Opening books made by hand.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/scratch.h"

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

// Runs in an empty directory with the default settings; afterwards no book is open.
class BookTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Opens a book of these bytes, "test.tqn", and returns what was printed.
    static std::string Open(const std::string& bytes);
    static int Statistics(const char* squares) {
        return StatisticsInBook(FileText("test.tqn"), squares);
    }

    ScratchDirectory directory;
};
