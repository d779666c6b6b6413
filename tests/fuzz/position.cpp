// Positions as FEN and as the line `position`, with all that may stand in their place.
#include "fuzz.h"

#include "front/game/manners.h"
#include "front/interpreter.h"
#include "search/tree/driver.h"

void Try(std::string_view input) {
    constexpr int NODES = 50;
    UseManners((TakeByte(input) & 1) != 0 ? Modern : Classic);
    Dispatch("position " + std::string(input));
    SearchFixedNodes(NODES);
    ClaimSoundPosition();
}
