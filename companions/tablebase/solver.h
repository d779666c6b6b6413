// Solves a class of three or four men by retrograde analysis: the moves to mate of every position.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "class_board.h"
#include "smaller_tables.h"
#include "table_value.h"

class Solver {
public:
    // The tables of all smaller classes must be loaded, and the indexes of them and of the class
    // prepared.
    Solver(int classNumber, const SmallerTables& smaller);
    void Solve();
    // The table as it is published, after `Solve`.
    std::vector<uint8_t> Table(Colour side) const;

private:
    // A position with a double step that allows en passant. What it is worth cannot be told from
    // the arrays alone, so that it is looked at anew for every number of moves.
    struct Doubtful {
        Place place;
        int side;
    };
    // A move out of the class; NO_MAN and TB_KINDS for what it does not do.
    struct Exit {
        int captured;
        int promoting;
        int promoted;
    };

    TableValue ValueOfExit(const ClassSquares& after, int mover, const Exit& exit) const;
    TableValue BestExit(const ClassSquares& s, int side) const;
    TableValue BestExitTo(ClassSquares s, int man, int to, int captured) const;
    TableValue BestEnPassant(const ClassSquares& s, int side, int captured) const;
    TableValue WithEnPassant(const ClassSquares& s, int side, int captured, int moves) const;
    TableValue BestMove(Place place, int side, int moves, TableValue enough) const;
    bool HasMove(const ClassSquares& s, Place place, int side) const;

    void MarkLegalPositions();
    void LookAhead();
    void LookAheadFrom(Place place, int side);
    void NoteExit(TableValue exit);
    bool FindWins(int moves);
    bool FindLosses(int moves);
    bool SettleDoubtful(int moves, TableValue value);
    template <typename Visit>
    void ForEachWith(const std::vector<TableValue>& array, TableValue value, Visit visit) const;
    void FillEnPassantRange(Colour side, std::vector<uint8_t>& table) const;

    int number;
    ClassBoard board;
    const SmallerTables& smaller;
    // By side to move and place: the value as far as it is known, VALUE_DRAW while it is not, and
    // the best of the moves that leave the class, NO_EXIT without any.
    std::array<std::vector<TableValue>, 2> values;
    std::array<std::vector<TableValue>, 2> exits;
    int longestExit = 0; // moves
    std::vector<Doubtful> doubtful;
};
