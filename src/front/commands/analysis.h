// Analysis mode: thinking about one position after the other without playing.
#pragma once

// Thinks about the position until told otherwise, and follows the moves, take-backs and new games
// that are typed meanwhile. Ends by "exit", or by the end of input when a search has ended by
// itself.
void AnalyseGame();
