// Opening files by the names that settings and commands give, which keep Windows manners.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

// Opens a file as `fopen` does, or returns null. The literal name is tried first. Where that does
// not exist and names are case-sensitive, a backslash separates directories and letter case is
// ignored, so that ".\book.tqn" finds "Book.tqn"; a name with a drive letter exists only where
// drives exist. There, the variable TARQUELIN_DRIVE_C of the environment makes a drive: it names
// the directory that stands for "c:\" (and so on for every letter). A file to be created takes the
// literal name, or its place on such a drive. Only regular files are opened: a pipe without a
// writer would hold up whoever opens it, for ever.
FILE* OpenFile(const char* path, const char* mode);

// Puts a new file in the place of the one that such a name means. The bytes are written beside it
// first, so that whatever goes wrong the old file is still there, whole. False then, and when there
// is something else than a regular file in that place.
bool ReplaceWholeFile(const char* path, const std::string& bytes);

// The path of the file or directory that such a name means; the name itself where there is none.
std::string FindPath(const std::string& name);

// Goes to the byte at `offset` of the file, also beyond two gigabytes. False when that fails.
bool SeekFile(FILE* file, uint64_t offset);

// Goes to the end of the file and returns how long it is, 0 on failure.
uint64_t SeekEnd(FILE* file);
