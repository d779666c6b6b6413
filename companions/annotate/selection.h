// The games of a file that are wanted.
#pragma once

#include <vector>

#include "annotate.h"
#include "game_file.h"
#include "openings.h"

// Their numbers in the file, from 0.
std::vector<size_t> SelectGames(const GameFile& file, const Selection& selection,
                                const Openings& openings);
