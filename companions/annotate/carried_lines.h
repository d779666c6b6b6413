// The named opening lines that the program carries within it: see data/openings/README.md.
#pragma once

#include <span>

// ECO code, name and moves, separated by tabs. Made of the lists when the program is built. Plain
// pointers: to take the lengths of so many lines is more than some compilers do beforehand.
extern const std::span<const char* const> CarriedLines;
