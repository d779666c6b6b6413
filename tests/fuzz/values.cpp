// The values file: whatever numbers it holds, positions have a score, and what is written is read
// again.
#include "fuzz.h"

#include <cstdlib>
#include <cstring>

#include "board/fen.h"
#include "board/position.h"
#include "board/score.h"
#include "eval/parameters/attacker_weight.h"
#include "eval/parameters/parameters.h"
#include "eval/parameters/piece_square_tables.h"
#include "eval/parameters/values_file.h"
#include "eval/pawns/pawn_hash.h"
#include "tools/static_score.h"

namespace {

constexpr const char* Positions[] = {
    "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
    "r1b2r2/pp1n1ppk/4p2p/3pP2Q/2pP1N2/q1P4R/P1P2PPP/4K2R b K - 0 1",
    "8/5pk1/4p1p1/7P/5P2/1r6/6PK/4R3 w - - 0 1",
    "4k3/pp4pp/8/2P5/5p2/8/PP4PP/4K3 b - - 0 1",
    "nnnnknnn/pppppppp/8/8/8/8/PPPPPPPP/RRRRKRRR b - - 0 1",
};

} // namespace

void Try(std::string_view input) {
    Params = {};
    PutFile("values.txt", input);
    LoadParameters();
    InitPieceSquareTables();
    InitAttackerWeight();
    ClearPawnHash();
    for (const char* const fen : Positions) {
        LoadFen(fen);
        // Its entry is worked out anew: to fill the table takes longer than a hundred scores.
        MaterialIndex = MATERIAL_INVALID;
        Claim(std::abs(StaticScore()) < MATE, "a static score is no mate");
    }
    const EvalParameters read = Params;
    Claim(WriteParameters("written.txt"), "values can be written");
    Params = {};
    LoadParameters("written.txt");
    Claim(std::memcmp(&Params, &read, sizeof read) == 0, "values that were written are read again");
}
