#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "board/position.h"
#include "book_walk.h"
#include "check_learning.h"
#include "commands.h"
#include "companions/shared/files.h"
#include "companions/shared/progress.h"
#include "faults.h"
#include "sources/coordinates.h"

static void CheckOrder(const BookImage& book) {
    for (uint32_t i = 1; i < book.Positions(); i++) {
        const BookKeys before = book.Record(i - 1).keys;
        const BookKeys keys = book.Record(i).keys;
        if (keys == before)
            Fault("record %u: has the keys of the one before\n", i);
        else if (keys < before)
            Fault("record %u: its keys are less than those before\n", i);
    }
}

static void CheckMoves(const std::vector<ImageMove>& moves, uint32_t record) {
    for (auto move = moves.begin(); move != moves.end(); move++) {
        if (move->from > 63 || move->to > 63 || move->from == move->to)
            Fault("record %u: no move from square %d to %d\n", record, move->from, move->to);
        const auto same = std::find_if(moves.begin(), move, [&](const ImageMove& other) {
            return other.from == move->from && other.to == move->to;
        });
        if (same != move)
            Fault("record %u: has a move twice\n", record);
    }
}

// Where nodes share bytes, learning in one position would change the other.
static void CheckNodes(const BookImage& book) {
    std::vector<std::pair<uint32_t, size_t>> places; // begin and end
    std::vector<ImageMove> moves;
    for (uint32_t i = 0; i < book.Positions(); i++) {
        const uint32_t offset = book.Record(i).nodeOffset;
        if (!book.ReadNode(offset, moves)) {
            Fault("record %u: its moves at %u are not whole in the file\n", i, offset);
            continue;
        }
        CheckMoves(moves, i);
        places.push_back({offset, offset + book.NodeSize(moves.size())});
    }
    std::ranges::sort(places);
    for (size_t i = 1; i < places.size(); i++) {
        if (places[i].first < places[i - 1].second)
            Fault("two nodes share the byte at %u\n", places[i].first);
    }
}

// The keys know nothing of castling rights and of pawns just moved: a move that is legal after
// another way to the position is none of the book's faults.
static bool LegalAfterSomeWay(const ImageMove& move) {
    if (LegalMoveBetween(move.from, move.to) != NO_MOVE)
        return true;
    if (move.from > 63 || move.to > 63)
        return false;
    CastleRights = ALL_CASTLE_RIGHTS;
    DropImpossibleCastleRights();
    if (LegalMoveBetween(move.from, move.to) != NO_MOVE)
        return true;
    const int passed = RankOf(move.from) * 8 + FileOf(move.to);
    return Board[move.from] == PAWN && RelativeRank(SideToMove, move.from) == 4 &&
           RelativeRank(SideToMove, move.to) == 5 && Board[move.to] == EMPTY &&
           (PieceBB[PAWN][ChangeSide(SideToMove)] & SquareBit(passed)) != 0;
}

static uint32_t CheckReachable(const BookImage& book, const std::string& path) {
    uint32_t reached = 0;
    Progress progress(path, book.Positions(), "positions");
    for (BookWalk walk(book); walk.Next(); reached++) {
        progress.Tell(reached, reached);
        for (const ImageMove& move : walk.Moves()) {
            if (!LegalAfterSomeWay(move))
                Fault("record %u: %s is not legal after \"%s\"\n", walk.Record(),
                      SquaresText(move.from, move.to).c_str(), walk.Path().c_str());
        }
    }
    return reached;
}

int CheckBook(const CheckSettings& settings) {
    std::vector<uint8_t> bytes;
    if (!ReadWholeFile(settings.book, bytes) && IsLearningFile(bytes))
        return CheckLearningFile(settings.book, bytes);
    BookImage book;
    if (!book.Read(settings.book))
        return 1;
    CheckOrder(book);
    CheckNodes(book);
    const uint32_t reached = CheckReachable(book, settings.book);
    std::printf("%s: %u positions, %u of them not reached from the starting position, %" PRIu64
                " faults\n",
                settings.book.c_str(), book.Positions(), book.Positions() - reached, Faults());
    return Faults() == 0 ? 0 : 1;
}
