// Positions as FEN and as the line `position`, with all that may stand in their place; others are
// drawn, because a change of a text hardly ever leads to another whole position.
#include "fuzz.h"

#include <string>

#include "front/game/manners.h"
#include "front/interpreter.h"
#include "search/tree/driver.h"

// A byte tells the side and the en-passant square, one each what stands on a square.
static std::string DrawnPosition(std::string_view input, bool modern) {
    constexpr std::string_view men = "1KQRBNPPPPkqrbnpppp1111111111111";
    const uint8_t choice = TakeByte(input);
    const bool white = (choice & 8) != 0;
    std::string fen = "fen ";
    for (int sq = 0; sq < 64; sq++) {
        if (sq > 0 && sq % 8 == 0)
            fen += '/';
        fen += men[TakeByte(input) % men.size()];
    }
    fen += white ? " w KQkq " : " b KQkq ";
    fen += char('a' + choice % 8);
    fen += char(modern ? (white ? '6' : '3') : (white ? '5' : '4'));
    return fen + " 0 1";
}

void Try(std::string_view input) {
    constexpr int NODES = 50;
    const uint8_t choice = TakeByte(input);
    const bool modern = (choice & 1) != 0;
    UseManners(modern ? Modern : Classic);
    Dispatch("position " + ((choice & 2) != 0 ? DrawnPosition(input, modern) : std::string(input)));
    SearchFixedNodes(NODES);
    ClaimSoundPosition();
}
