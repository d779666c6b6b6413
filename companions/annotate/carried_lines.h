// The named opening lines that the program carries within it: see data/openings/README.md.
#pragma once

#include <span>
#include <string_view>

// ECO code, name and moves, separated by tabs. Made of the lists when the program is built.
extern const std::span<const std::string_view> CarriedLines;
