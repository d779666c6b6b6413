// What the fuzz targets share. Each is one source file that defines `Try`; the engine's tables are
// ready when it is called, and the current directory is the target's own, to write into.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Does with the bytes what the target is there for. A claim that does not hold ends the process.
void Try(std::string_view input);

// Writes a file of these bytes into the current directory.
void PutFile(const char* name, std::string_view bytes);

// Takes a byte, 0 where there is none, off the front: it chooses between ways to go.
uint8_t TakeByte(std::string_view& input);

// Ends the process when what must hold does not.
void Claim(bool holds, const char* what);

// The position on the board: its incremental values are right, every legal move can be made and
// taken back, and its text sets the same position up again.
void ClaimSoundPosition();
