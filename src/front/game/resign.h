// When the engine gives a game up.
#pragma once

// Whether the latest searches of this game, one engine move apart, were all lost. Asked after a
// search and before its move is made.
bool ShouldResign();
