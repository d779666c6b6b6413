// Compresses one block of a table into the code that tablebase/block_code.h describes.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

// Of 1 to TABLE_BLOCK bytes. What does not get shorter is stored as it is.
std::vector<uint8_t> EncodeBlock(std::span<const uint8_t> plain);
