// Tells from time to time how far a long job is.
#pragma once

#include <cstdint>

class Progress {
public:
    // `total` and the amounts told later are in whatever unit the caller shows.
    Progress(const char* what, uint64_t total);
    // Whether so much time has passed that something should be said; cheap enough to be asked for
    // every game.
    bool Due();
    // Says it: the share of the work that is done, and how many of what there are by now.
    void Tell(uint64_t done, uint64_t items, const char* itemName) const;

private:
    const char* what;
    uint64_t total;
    int64_t nextTime;
};
