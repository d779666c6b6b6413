#include "solver.h"

#include <algorithm>
#include <cstring>

#include "board/attacks.h"

// First the illegal positions are marked; then every position looks ahead at captures and
// promotions, whose worth the smaller tables tell, and mates are found. From there the values
// spread backwards, move by move: whoever can reach a loss in n - 1 wins in n; who has nothing but
// moves to wins in n or less loses in n. What is left at the end is drawn.

namespace {

constexpr TableValue NO_EXIT = -128;
constexpr TableValue NOTHING_BETTER = WinIn(1);

} // namespace

Solver::Solver(int classNumber, const SmallerTables& smallerTables)
    : number(classNumber), board(classNumber), smaller(smallerTables) {}

// What the move is worth to the mover, NO_EXIT when it is illegal.
TableValue Solver::ValueOfExit(const ClassSquares& after, int mover, const Exit& exit) const {
    const int captured = exit.captured == NO_MAN ? int(TB_KINDS) : board.Man(exit.captured).kind;
    const ReachedClass to = smaller.Reached(mover, captured, exit.promoted);
    const int turn = to.swapped ? 56 : 0;
    TablebaseMen left = {};
    for (int i = 0; i < board.MenCount(); i++) {
        if (i == exit.captured)
            continue;
        const ClassMan& man = board.Man(i);
        const int side = man.side ^ int(to.swapped);
        const int sq = after[size_t(i)] ^ turn;
        if (man.piece == KING)
            left.king[side] = sq;
        else
            left.men[side][i == exit.promoting ? exit.promoted : man.kind] |= SquareBit(sq);
    }
    const auto opponent = Colour((1 - mover) ^ int(to.swapped));
    const TableValue value = smaller.Value(to.number, opponent, left);
    return value == VALUE_BROKEN ? NO_EXIT : AfterMove(value);
}

// The best of the captures and promotions, without en passant.
TableValue Solver::BestExit(const ClassSquares& s, int side) const {
    const Bitboard occupied = board.Occupied(s);
    TableValue best = NO_EXIT;
    for (int i = 0; i < board.MenCount(); i++) {
        const ClassMan& man = board.Man(i);
        if (man.side != side)
            continue;
        const Bitboard attacked = AttacksOf(man.piece, side, s[size_t(i)], occupied);
        for (int victim = 2; victim < board.MenCount(); victim++) {
            const int to = s[size_t(victim)];
            if (board.Man(victim).side != side && (attacked & SquareBit(to)) != 0)
                best = std::max(best, BestExitTo(s, i, to, victim));
        }
        const int ahead = s[size_t(i)] + Forward(side);
        if (man.piece == PAWN && (SquareBit(ahead) & PROMOTION_RANKS & ~occupied) != 0)
            best = std::max(best, BestExitTo(s, i, ahead, NO_MAN));
    }
    return best;
}

// The best of the moves to the square, if it is a pawn's last.
TableValue Solver::BestExitTo(ClassSquares s, int man, int to, int captured) const {
    const auto [piece, kind, side] = board.Man(man);
    s[size_t(man)] = to;
    if (piece != PAWN || (SquareBit(to) & PROMOTION_RANKS) == 0)
        return ValueOfExit(s, side, {captured, NO_MAN, TB_KINDS});
    TableValue best = NO_EXIT;
    for (int k = TB_QUEEN; k < TB_PAWN; k++)
        best = std::max(best, ValueOfExit(s, side, {captured, man, k}));
    return best;
}

// Whether the side has a legal move other than en passant.
bool Solver::HasMove(const ClassSquares& s, Place place, int side) const {
    const std::vector<TableValue>& next = values[size_t(1 - side)];
    return exits[size_t(side)][place] != NO_EXIT ||
           board.AnyQuietMove(s, side, [&](const ClassSquares&, Place to, int, int) {
               return next[to] != VALUE_BROKEN;
           });
}

// The best capture of a pawn that has just made a double step; NO_EXIT when none is legal.
TableValue Solver::BestEnPassant(const ClassSquares& s, int side, int captured) const {
    const int target = s[size_t(captured)];
    TableValue best = NO_EXIT;
    for (int i = 2; i < board.MenCount(); i++) {
        const int sq = s[size_t(i)];
        const int files = FileOf(sq) - FileOf(target);
        if (board.Man(i).piece == PAWN && board.Man(i).side == side &&
            RankOf(sq) == RankOf(target) && files * files == 1)
            best = std::max(best, BestExitTo(s, i, target + Forward(side), captured));
    }
    return best;
}

// Value for the side to move when the other side's pawn `captured` has just made a double step.
// Only what is settled within `moves` is told, else VALUE_DRAW.
TableValue Solver::WithEnPassant(const ClassSquares& s, int side, int captured, int moves) const {
    const TableValue capture = BestEnPassant(s, side, captured);
    const Place place = board.PlaceOf(s);
    const TableValue other = values[size_t(side)][place];
    if (capture == NO_EXIT)
        return other;
    // Who could not move otherwise is neither mated nor stalemated, but has to take.
    const bool still = other == VALUE_DRAW || other == LossIn(0);
    const bool forced = still && !HasMove(s, place, side);
    const TableValue best = forced ? capture : std::max(capture, other);
    return IsWin(best) && MovesToMate(best) > moves ? VALUE_DRAW : best;
}

// The best move within the class or out of it, as far as it is settled within `moves`; VALUE_DRAW
// or better while there is a move whose worth is not known. NO_EXIT without a legal move. Looks no
// further when it has found one that is good enough.
TableValue Solver::BestMove(Place place, int side, int moves, TableValue enough) const {
    const std::vector<TableValue>& next = values[size_t(1 - side)];
    TableValue best = exits[size_t(side)][place];
    board.AnyQuietMove(board.SquaresAt(place), side,
                       [&](const ClassSquares& s, Place to, int man, int from) {
                           TableValue value = next[to];
                           if (value == VALUE_BROKEN)
                               return false;
                           if (board.AllowsEnPassant(s, man, from, s[size_t(man)]))
                               value = WithEnPassant(s, 1 - side, man, moves);
                           best = std::max(best, AfterMove(value));
                           return best >= enough;
                       });
    return best;
}

void Solver::MarkLegalPositions() {
    for (auto& side : values)
        side.assign(board.Places(), VALUE_BROKEN);
    for (Place place = 0; place < board.Places(); place++) {
        const ClassSquares s = board.SquaresAt(place);
        if (!board.Possible(s))
            continue;
        for (int side = 0; side < 2; side++) {
            if (!board.Attacks(s, side, s[size_t(1 - side)]))
                values[size_t(side)][place] = VALUE_DRAW;
        }
    }
}

void Solver::NoteExit(TableValue exit) {
    if (exit != NO_EXIT && exit != VALUE_DRAW)
        longestExit = std::max(longestExit, MovesToMate(exit));
}

void Solver::LookAheadFrom(Place place, int side) {
    const ClassSquares s = board.SquaresAt(place);
    const TableValue exit = BestExit(s, side);
    exits[size_t(side)][place] = exit;
    NoteExit(exit);
    // Whom the other side could capture the king of is in check.
    const bool inCheck = values[size_t(1 - side)][place] == VALUE_BROKEN;
    if (inCheck && !HasMove(s, place, side))
        values[size_t(side)][place] = LossIn(0);
    bool allows = false;
    board.AnyQuietMove(s, side, [&](const ClassSquares& to, Place, int man, int from) {
        if (board.AllowsEnPassant(to, man, from, to[size_t(man)])) {
            allows = true;
            NoteExit(BestEnPassant(to, 1 - side, man));
        }
        return false;
    });
    if (allows)
        doubtful.push_back({place, side});
}

// Finds the best moves out of the class, and mates.
void Solver::LookAhead() {
    for (auto& side : exits)
        side.assign(board.Places(), NO_EXIT);
    for (int side = 0; side < 2; side++) {
        for (Place place = 0; place < board.Places(); place++) {
            if (values[size_t(side)][place] != VALUE_BROKEN)
                LookAheadFrom(place, side);
        }
    }
}

// Calls `visit` with the places that have the value.
template <typename Visit>
void Solver::ForEachWith(const std::vector<TableValue>& array, TableValue value,
                         Visit visit) const {
    const TableValue* const begin = array.data();
    const TableValue* const end = begin + array.size();
    for (const TableValue* at = begin; at < end; at++) {
        at = static_cast<const TableValue*>(std::memchr(at, uint8_t(value), size_t(end - at)));
        if (at == nullptr)
            return;
        visit(Place(at - begin));
    }
}

// Gives the value to those doubtful positions that have come to be worth it.
bool Solver::SettleDoubtful(int moves, TableValue value) {
    bool found = false;
    for (const Doubtful& d : doubtful) {
        TableValue& known = values[size_t(d.side)][d.place];
        if (known == VALUE_DRAW && BestMove(d.place, d.side, moves, NOTHING_BETTER) == value) {
            known = value;
            found = true;
        }
    }
    return found;
}

bool Solver::FindWins(int moves) {
    const TableValue win = WinIn(moves);
    bool found = SettleDoubtful(moves, win);
    for (int side = 0; side < 2; side++) {
        std::vector<TableValue>& own = values[size_t(side)];
        const auto settle = [&](Place place) {
            if (own[place] == VALUE_DRAW) {
                own[place] = win;
                found = true;
            }
        };
        if (moves <= longestExit)
            ForEachWith(exits[size_t(side)], win, settle);
        ForEachWith(values[size_t(1 - side)], LossIn(moves - 1),
                    [&](Place place) { board.ForEachPredecessor(place, 1 - side, settle); });
    }
    return found;
}

bool Solver::FindLosses(int moves) {
    const TableValue loss = LossIn(moves);
    bool found = SettleDoubtful(moves, loss);
    for (int side = 0; side < 2; side++) {
        std::vector<TableValue>& own = values[size_t(side)];
        const std::vector<TableValue>& exit = exits[size_t(side)];
        const auto settle = [&](Place place) {
            if (own[place] == VALUE_DRAW && exit[place] < VALUE_DRAW &&
                BestMove(place, side, moves, VALUE_DRAW) == loss) {
                own[place] = loss;
                found = true;
            }
        };
        if (moves <= longestExit)
            ForEachWith(exit, loss, settle);
        ForEachWith(values[size_t(1 - side)], WinIn(moves),
                    [&](Place place) { board.ForEachPredecessor(place, 1 - side, settle); });
    }
    return found;
}

void Solver::Solve() {
    MarkLegalPositions();
    LookAhead();
    for (int moves = 1; moves <= LONGEST_LOSS; moves++) {
        const bool wins = FindWins(moves);
        const bool losses = FindLosses(moves);
        // The other side's way out is one move shorter than what it makes of this side's.
        if (!wins && !losses && moves > longestExit + 1)
            return;
    }
}

// Positions with a pawn that may be taken en passant have entries of their own.
void Solver::FillEnPassantRange(Colour side, std::vector<uint8_t>& table) const {
    for (Place place = 0; place < board.Places(); place++) {
        if (values[side][place] == VALUE_BROKEN)
            continue;
        const ClassSquares s = board.SquaresAt(place);
        for (int i = 2; i < board.MenCount(); i++) {
            const int to = s[size_t(i)];
            const auto them = Colour(board.Man(i).side);
            const int from = to - 2 * Forward(them);
            if (them == side || RelativeRank(them, to) != 3 ||
                !board.AllowsEnPassant(s, i, from, to))
                continue;
            const Bitboard passed = SquareBit(from) | SquareBit(to - Forward(them));
            if ((passed & board.Occupied(s)) != 0)
                continue;
            const TableValue value = WithEnPassant(s, side, i, LONGEST_WIN);
            table[TableIndex(number, side, board.MenOf(s), to)] = uint8_t(value);
        }
    }
}

std::vector<uint8_t> Solver::Table(Colour side) const {
    std::vector<uint8_t> table(TableEntries(number, side), uint8_t(VALUE_BROKEN));
    for (Place place = 0; place < board.Places(); place++) {
        const TableValue value = values[side][place];
        if (value == VALUE_BROKEN)
            continue;
        const TablebaseMen men = board.MenOf(board.SquaresAt(place));
        table[TableIndex(number, side, men, NO_EN_PASSANT)] = uint8_t(value);
    }
    if (TablebaseClasses[size_t(number)].BothHavePawns())
        FillEnPassantRange(side, table);
    while (!table.empty() && table.back() == uint8_t(VALUE_BROKEN))
        table.pop_back();
    return table;
}
