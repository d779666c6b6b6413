// The programs beside the engine, run as a user runs them.
#pragma once

#include <string>

struct Outcome {
    int status; // the exit status, or -1 when the program did not end by itself
    std::string text;

    bool Says(const std::string& part) const {
        return text.find(part) != std::string::npos;
    }
};

// Runs `program`, "tarquelin-book" say, in the current directory; `before` goes into the shell
// first. What it says goes into the file "out" there.
Outcome RunCompanion(const std::string& program, const std::string& words,
                     const std::string& before = "");
