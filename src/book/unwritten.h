// What learning could not write: noted here, told by whoever speaks to the user.
#pragma once

enum LearningStore { OPENING_BOOK, LEARNED_POSITIONS, LEARNING_STORES };

// Another file takes the store's place, of which nothing is known yet.
void ForgetUnwritten(LearningStore store);

// Takes note that something could not be written there.
void NoteUnwritten(LearningStore store);

// Tells of a store that was noted and not yet told of, each only once; null when there is none.
const char* NextUnwritten();
