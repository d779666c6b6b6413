#include "fuzz.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include "board/attacks.h"
#include "board/fen.h"
#include "board/keys.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/position.h"
#include "board/recompute.h"
#include "eval/derived_tables.h"
#include "eval/endings/king_pawn_bitbase.h"
#include "platform/clock.h"
#include "search/hash_memory.h"

void PutFile(const char* name, std::string_view bytes) {
    std::FILE* const file = std::fopen(name, "wb");
    Claim(file != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size(),
          "the directory can be written to");
    std::fclose(file);
}

uint8_t TakeByte(std::string_view& input) {
    const auto byte = uint8_t(input.empty() ? 0 : input.front());
    input.remove_prefix(input.empty() ? 0 : 1);
    return byte;
}

void Claim(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "This does not hold: %s.\n", what);
    std::abort();
}

// Men, side, castling rights and the en-passant square: what the text says whatever came before.
static std::string FirstFields(FenFields fields) {
    const std::string fen = WriteFen(fields);
    return fen.substr(0, fen.rfind(' ', fen.rfind(' ') - 1));
}

void ClaimSoundPosition() {
    Claim(PositionIsConsistent(), "the position agrees with its men");
    const uint64_t key = PosKey;
    const int start = MoveStackTop;
    const int count = GenerateLegalMoves();
    for (int i = start; i < start + count; i++) {
        MakeMove(MoveStack[i].move, true);
        Claim(PositionIsConsistent(), "the position after a move agrees with its men");
        UnmakeMove();
    }
    MoveStackTop = start;
    Claim(PosKey == key, "moves taken back leave the position as it was");
    for (const FenFields fields : {FenFields::OWN, FenFields::STANDARD}) {
        const std::string fen = FirstFields(fields);
        LoadFen(fen.c_str(), fields);
        Claim(FirstFields(fields) == fen, "the text of a position sets it up again");
    }
}

extern "C" {

int LLVMFuzzerInitialize(int* argc, char*** argv);
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int LLVMFuzzerInitialize(int*, char***) {
    StartClock();
    InitAttackTables();
    InitKingPawnBitbase();
    InitKeys();
    InitDerivedTables();
    // Small, so that inputs which search do not pay for emptying large ones.
    TranspositionCount = PawnHashCount = EvalCacheCount = 1 << 12;
    AllocateHashTables();
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    SetStartPosition();
    MoveStackTop = 0;
    Try({reinterpret_cast<const char*>(data), size});
    return 0;
}
}
