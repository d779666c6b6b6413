// Opening files by the names that settings and commands give, which keep Windows manners.
#pragma once

#include <cstdio>

// Opens a file as `fopen` does, or returns null. The literal name is tried first. Where that does
// not exist and names are case-sensitive, a backslash separates directories and letter case is
// ignored, so that ".\book.tqn" finds "Book.tqn"; a name with a drive letter exists only where
// drives exist. A file to be created takes the literal name. Directories are refused.
FILE* OpenFile(const char* path, const char* mode);
