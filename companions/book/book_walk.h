// Walks over the positions of a book that can be reached from the starting position.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "board/types.h"
#include "book_image.h"

// Takes every reachable position once, main lines first. A way may have moves that the book does
// not tell: any from one position of the book to another, and any that answers a move of the book,
// so that the walk finds its way through books of one side's moves only.
class BookWalk {
public:
    explicit BookWalk(const BookImage& image);
    // Sets the next position up on the board; false when there are no more. The caller may move on
    // the board as it likes.
    bool Next();
    // Of the position: its record, its moves (none where the node is damaged), and the first way
    // to it that the walk has found, as moves in coordinates with blanks between them.
    uint32_t Record() const {
        return here.record;
    }
    const std::vector<ImageMove>& Moves() const {
        return moves;
    }
    std::string Path() const;

private:
    // A way is a move behind another way; ways share their beginnings.
    struct Step {
        int32_t before;
        Move move;
    };
    struct Waiting {
        std::string fen;
        uint32_t record;
        int32_t step; // the last one, but for these moves
        Move move;
        Move reply;
    };

    bool Note(int32_t step, Move move, Move reply);
    void TryReplies(int32_t step, Move move);
    void TryMoves();

    const BookImage& book;
    std::vector<bool> seen; // by record
    std::vector<Step> steps;
    std::vector<Waiting> waiting; // the next one last
    Waiting here = {};
    std::vector<ImageMove> moves;
    bool started = false;
};
