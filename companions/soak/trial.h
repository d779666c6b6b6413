// A session held with an engine: whether it has gone as it must.
#pragma once

#include <string>

#include "session.h"

struct Trial {
    std::string engine;  // the program
    std::string data;    // a directory whose files it starts with
    int memory = 1000;   // megabytes that it may come to use
    int patience = 1000; // milliseconds that an answer may come later than its limits allow
};

struct Verdict {
    // What has gone wrong, in words that are the same for the same fault; empty for nothing.
    std::string fault;
    std::string details; // for a person: what the engine has told of it
    int latest = 0;      // milliseconds by which its latest answer went beyond what was allowed
    long memory = 0;     // megabytes that it has used
};

// Starts the engine in a new directory and sends it the lines, with `isready` after each hundred
// and `quit` at the end.
Verdict Hold(const Session& session, const Trial& trial);
