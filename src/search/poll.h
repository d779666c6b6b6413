// The look up from the board: every so many nodes the search asks for input and for the time.
#pragma once

// Called when PollCountdown has run out; reloads it. Handles waiting input, tests the node limit
// and the clock, and prints periodic statistics. Sets StopSearch when the search must end.
void Poll();

// At the end of a ponder or infinite search: waits for the command that ends it, asleep between
// polls. Returns at once when the search is neither or was stopped.
void HoldUntilStopped();
