// The file of learned positions, kept from game to game.
#pragma once

#include <cstdint>

#include "board/types.h"

struct LearningKeys {
    uint32_t key1; // bits 0 to 31 of the position's key
    uint32_t key2; // bits 16 to 47
};

struct LearnedPosition {
    int32_t depth;      // 1/60 ply
    int32_t evaluation; // centipawns, from the side to move
    Move move;
};

// The keys of the position with that `PosKey`.
LearningKeys LearningKeysOf(uint64_t posKey);

// Opens the file, making an empty one where there is none, or one that has been cut off in its head
// and so can hold no entry. Its text is not checked. Where it cannot be made, or only be read,
// learning goes on without.
void OpenLearningFile(const char* path);
void CloseLearningFile();

// The offset of the position's entry, and what it says; 0 when it is not in the file, or out of
// reach behind damaged links.
uint32_t LookUpLearned(LearningKeys keys, LearnedPosition& found);

// Appends an entry and links it to the end of its bucket. A damaged link, and one that leads round
// in a circle or into the middle of an entry, counts as the end and is mended by this. Several
// processes may learn into one file: each locks it for the addition. When another keeps it locked,
// the entry is dropped: without it a position is searched again, but two additions at once would
// spoil the links of both.
void AddLearned(LearningKeys keys, const LearnedPosition& position);

// Overwrites the entry at the offset, which LookUpLearned has given.
void RefreshLearned(uint32_t offset, LearningKeys keys, const LearnedPosition& position);
