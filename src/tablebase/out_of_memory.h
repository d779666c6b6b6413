// The end of the program when the tablebases' own tables find no memory.
#pragma once

#include <cstddef>

// Prints how many bytes could not be had and ends the process with exit status 1.
[[noreturn]] void EndForLackOfMemory(size_t bytes);
