// What the interface at the other end has asked for.
#pragma once

#include <vector>

struct InterfaceState {
    // A partner program leads the game: like UCI mode it keeps what the last search knew over
    // `new`.
    bool PartnerMode = false;
    // Pondering is possible now: GUIs switch it with `hard` and `easy`.
    bool PonderNow = true;
    // Stored for the interface's sake.
    bool DebugMode = false;
    // Thinking output is wanted.
    bool PostThinking = false;
    // Numbers of the pings that are still to be answered.
    std::vector<int> OwedPongs;
};
extern InterfaceState Interface;

// Answers the pings.
void PayPongs();
