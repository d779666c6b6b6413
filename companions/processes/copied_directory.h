// A directory for a program to work in, with a copy of the files that it starts with.
#pragma once

#include <string>

class CopiedDirectory {
public:
    // Makes a new one. `path` stays empty when that cannot be done.
    explicit CopiedDirectory(const std::string& source);
    // Removes it.
    ~CopiedDirectory();
    CopiedDirectory(const CopiedDirectory&) = delete;
    CopiedDirectory& operator=(const CopiedDirectory&) = delete;

    std::string path;
};
