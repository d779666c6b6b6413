#include "search/driver_state.h"

constinit PastSearches Past;

void ForgetLastScore() {
    Past.LastScore = 0;
    Past.LastScoreSide = WHITE;
}
