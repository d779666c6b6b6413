// The opening book's file format, byte by byte.
//
// Integers are little-endian. Offset 0: the magic text without a terminator; 24: version, 0 or 1;
// 28: not read; 32: N, the number of index records; 36: N index records, ascending by key A and
// then key B, both compared as signed numbers: key A, key B, offset of the node. A node is one byte
// with the number of its moves, then the moves: from-square, to-square (a1 = 0, h8 = 63) and, in
// version 0, a byte of which 255 marks a move never to be played, in version 1 the statistics word:
// the low byte counts the half-points that the move has scored, the high byte those it has
// conceded. A move carries no promotion; a pawn that reaches the last rank becomes a queen.
//
// The header is as long as three index records, so that record i of the file, the header's three
// included, stands at byte 12 * i.
#pragma once

#include <cstdint>

constexpr char BOOK_MAGIC[] = "~Tarquelin openings book";
constexpr int BOOK_VERSION_OFFSET = 24;
constexpr int BOOK_COUNT_OFFSET = 32;
constexpr int BOOK_HEADER_SIZE = 36;
constexpr int BOOK_RECORD_SIZE = 12;
constexpr int BOOK_HEADER_RECORDS = BOOK_HEADER_SIZE / BOOK_RECORD_SIZE;
static_assert(sizeof BOOK_MAGIC - 1 == BOOK_VERSION_OFFSET);

constexpr int BOOK_MAX_MOVES = 255;         // of a node
constexpr int BOOK_MOVE_SIZE_VERSION_0 = 3; // bytes
constexpr int BOOK_MOVE_SIZE = 4;

// The statistics word, taken apart: the half-points that a move has scored and conceded.
struct BookPoints {
    int won;
    int lost;

    constexpr int Games() const {
        return won + lost;
    }
};

constexpr BookPoints PointsOf(uint16_t statistics) {
    return {statistics & 255, statistics >> 8};
}

// Both numbers below 256.
constexpr uint16_t StatisticsOf(BookPoints points) {
    return uint16_t(points.won | points.lost << 8);
}

constexpr uint16_t BOOK_KILLED = 65535;    // statistics of a move that is never played
constexpr uint16_t BOOK_NO_GAMES = 0;      // statistics of a move that no game has been counted for
constexpr uint8_t BOOK_NEVER_PLAYED = 255; // weight of such a move in version 0
