// Keeping other processes out of a file for the moments of an update.
#pragma once

#include <cstdio>

// Locks the open file against all who ask for the same lock; others read and write as they like.
// False when another process has kept it locked for the whole time that a game can wait. Where the
// system knows no such locks, all go on without.
bool LockAgainstOthers(FILE* file);
void UnlockForOthers(FILE* file);
