#include "book_walk.h"

#include <algorithm>
#include <utility>

#include "board/fen.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "sources/coordinates.h"

namespace {

constexpr int32_t START = -1; // no step

} // namespace

BookWalk::BookWalk(const BookImage& image) : book(image), seen(image.Positions(), false) {}

std::string BookWalk::Path() const {
    std::vector<std::string> words;
    for (int32_t step = here.step; step != START; step = steps[size_t(step)].before)
        words.push_back(SquaresText(From(steps[size_t(step)].move), To(steps[size_t(step)].move)));
    std::string path;
    for (auto word = words.rbegin(); word != words.rend(); word++)
        path += (path.empty() ? "" : " ") + *word;
    return path;
}

// Notes the position on the board when the book has it; false when it has not.
bool BookWalk::Note(int32_t step, Move move, Move reply) {
    const std::optional<uint32_t> record = book.Find(KeysOfPosition());
    if (record && !seen[*record]) {
        seen[*record] = true;
        waiting.push_back({WriteFen(), *record, step, move, reply});
    }
    return record.has_value();
}

// Looks for positions one move behind the one on the board, which the book has not.
void BookWalk::TryReplies(int32_t step, Move move) {
    const int start = MoveStackTop;
    const int end = start + GenerateLegalMoves();
    for (int i = start; i < end; i++) {
        const Move reply = MoveStack[i].move;
        MakeMove(reply, true);
        Note(step, move == NO_MOVE ? reply : move, move == NO_MOVE ? NO_MOVE : reply);
        UnmakeMove();
    }
    MoveStackTop = start;
}

void BookWalk::TryMoves() {
    const auto place = [&](const ScoredMove& entry) {
        return std::ranges::find_if(moves, [&](const ImageMove& move) {
            return move.from == From(entry.move) && move.to == To(entry.move);
        });
    };
    const int start = MoveStackTop;
    const int end = start + GenerateLegalMoves();
    // What is noted last is taken first.
    std::stable_sort(MoveStack + start, MoveStack + end,
                     [&](const auto& a, const auto& b) { return place(a) > place(b); });
    for (int i = start; i < end; i++) {
        const Move move = MoveStack[i].move;
        MakeMove(move, true);
        if (!Note(here.step, move, NO_MOVE) && place(MoveStack[i]) != moves.end())
            TryReplies(here.step, move);
        UnmakeMove();
    }
    MoveStackTop = start;
}

bool BookWalk::Next() {
    if (started) {
        LoadFen(here.fen.c_str());
        TryMoves();
    } else {
        started = true;
        SetStartPosition();
        if (!Note(START, NO_MOVE, NO_MOVE))
            TryReplies(START, NO_MOVE);
    }
    if (waiting.empty())
        return false;
    here = std::move(waiting.back());
    waiting.pop_back();
    for (const Move move : {here.move, here.reply}) {
        if (move != NO_MOVE) {
            steps.push_back({here.step, move});
            here.step = int32_t(steps.size()) - 1;
        }
    }
    LoadFen(here.fen.c_str());
    book.ReadNode(book.Record(here.record).nodeOffset, moves);
    return true;
}
