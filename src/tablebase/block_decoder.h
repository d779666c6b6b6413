// Turns a compressed block (see tablebase/block_code.h) back into its plain bytes.
#pragma once

#include "tablebase/block_code.h"

// Where the code words of one alphabet are looked up by the next bits of the block.
struct CodeTable {
    uint16_t entries[1 << MAX_CODE_LENGTH]; // symbol << 4 | length of its code word; 0 for none
};

struct BlockDecoder {
    CodeTable main;
    CodeTable distances;
};

// Writes exactly `plainBytes` bytes, TABLE_BLOCK at most. False, with anything in `plain`, when
// the packed bytes are not such a block: whatever they are, nothing is read or written outside.
bool DecodeBlock(BlockDecoder& decoder, const uint8_t* packed, size_t packedBytes, uint8_t* plain,
                 size_t plainBytes);
