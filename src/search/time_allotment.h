// How long the engine thinks about a move.
#pragma once

// Sets TimeAllotted, TimeHardLimit, UnderClock, PollReload and DrawScore for the next search from
// the limits in force, all in centiseconds. A clock that has nearly run out still gives 1.
void AllotTime();

// Divides the clock anew while a search runs, all but DrawScore: the position that the engine has
// pondered on has come, and the clocks were set meanwhile. Counts from the start of the search all
// the same, so that a long pondering is answered at once.
void ReallotTime();
