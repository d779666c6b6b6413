#include "front/game/manners.h"

#include "book/book_settings.h"
#include "front/input/input_lines.h"
#include "search/hash_memory.h"
#include "search/limits.h"

constinit const Manners Classic = {.name = "classic"};

constinit const Manners Modern = {
    .name = "modern",
    .silentStart = true,
    .namedTablesAreUsed = true,
    .standardFen = true,
    .fullUciLines = true,
    .answersFinishedPositions = true,
    .uciIgnoresInterrupts = true,
    .longOptionNames = true,
    .oldTablesStay = true,
    .finePolls = true,
    .pausesPondering = true,
    .pausesAnalysis = true,
    .levelByWords = true,
    .newGameTeachesAnew = true,
    .exactMaterialDraws = true,
    .claimsOwnResults = true,
    .hasLevels = true,
    .tellsUnwritten = true,
    .leavesWithInterface = true,
    .knowsPersons = true,
    .onlyPlayedMovesTeach = true,
    .ownBookTeaches = true,
};

constinit const Manners* Manner = &Classic;

void UseManners(const Manners& manners) {
    Manner = &manners;
    EndWithEitherStream(manners.leavesWithInterface);
    OldTablesStay = manners.oldTablesStay;
    SearchOptions.FinePolls = manners.finePolls;
    SearchOptions.OnlyPlayedMovesTeach = manners.onlyPlayedMovesTeach;
    Book.LearnWithoutOwnBook = !manners.ownBookTeaches;
}
