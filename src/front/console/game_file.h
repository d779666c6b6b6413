// The game on the board as a PGN file.
#pragma once

// Writes the game so far. False when the file cannot be written.
bool SaveGame(const char* path);

// Sets the first game of the file up and plays its moves on the board, up to the first that cannot
// be read. False when there is no game in the file.
bool LoadGame(const char* path);
