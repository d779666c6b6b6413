// A book file: found in, listed, played from and taught.
#include "fuzz.h"

#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/position.h"
#include "book/book.h"
#include "book/book_choice.h"
#include "book/book_learning.h"
#include "book/book_settings.h"

void Try(std::string_view input) {
    constexpr int PLIES = 6;
    const uint8_t choice = TakeByte(input);
    Book = {};
    Book.UseBookWeights = (choice & 1) != 0;
    Book.BookLearningMode = (choice & 2) != 0 ? BOOK_DISCOVER : BOOK_KILL;
    BookLearned = false;
    PutFile("test.tqn", input);
    OpenBook("test.tqn");
    for (int ply = 0; ply < PLIES; ply++) {
        ListBookMoves();
        const Move move = ChooseBookMove();
        if (move == NO_MOVE)
            break;
        Claim(IsLegal(move), "a move from the book is legal");
        MakeMove(move, true);
    }
    const uint64_t key = PosKey;
    LearnBook(BookResult((choice >> 2) % 3));
    Claim(PosKey == key, "learning leaves the game as it was");
}
