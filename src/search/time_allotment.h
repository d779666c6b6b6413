// How long the engine thinks about a move.
#pragma once

// Sets TimeAllotted, TimeHardLimit, UnderClock, PollReload and DrawScore for the next search from
// the limits in force, all in centiseconds. A clock that has nearly run out still gives 1.
void AllotTime();
