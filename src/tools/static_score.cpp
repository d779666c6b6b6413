#include "tools/static_score.h"

#include "board/position.h"
#include "eval/evaluate.h"
#include "eval/parameters/personality.h"

int32_t StaticScore() {
    // What the evaluation cache holds belongs to the other root side and stays good for it.
    const Colour searched = RootSide;
    RootSide = SideToMove;
    const int32_t score = Evaluate();
    RootSide = searched;
    return score;
}
