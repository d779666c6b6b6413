// The two interfaces that the engine can show: what the modern one does otherwise than the classic
// one, which clients and scripts have always known.
#pragma once

// Every difference is a member here, and false means the classic way. They are read where the
// behaviour differs; `docs/interface.md` tells each of them to the user.
struct Manners {
    const char* name = nullptr;

    // At start, what is missing is left out in silence: interfaces take "Error" and "not found" for
    // a failed start.
    bool silentStart = false;
    // Naming a directory of tablebases switches them on.
    bool namedTablesAreUsed = false;

    // The en-passant field of a FEN is the square behind the pawn, and its half-moves are counted.
    bool standardFen = false;
    // UCI times are thousandths of a second, scores of each line its own, and lines come from the
    // first node on, each with its number.
    bool fullUciLines = false;
    // UCI: a position without a legal move is answered with the null move.
    bool answersFinishedPositions = false;
    // UCI: interrupts are ignored.
    bool uciIgnoresInterrupts = false;
    // Option names may have several words.
    bool longOptionNames = false;
    // A table of a size that cannot be had leaves the old size; else the process ends.
    bool oldTablesStay = false;
    // A limit of nodes is looked at every thousand.
    bool finePolls = false;

    // A line that pondering cannot take ends it and is then done; if it has changed nothing, the
    // pondering goes on.
    bool pausesPondering = false;
    // The same of analysis, which goes on in any case.
    bool pausesAnalysis = false;
    // `level`: increments may have a fraction, and none stands for none.
    bool levelByWords = false;
    // `new` begins a game that may teach the book again.
    bool newGameTeachesAnew = false;

    // A draw by insufficient material is one in which no mate is possible.
    bool exactMaterialDraws = false;
    // The end of the game is announced when the engine's own move has brought it about.
    bool claimsOwnResults = false;

    // The engine can be told to play below its full strength.
    bool hasLevels = false;

    // What learning could not write is told.
    bool tellsUnwritten = false;
    // When either stream has lost its other end the program leaves; else it sleeps.
    bool leavesWithInterface = false;

    // A person at a terminal is spoken to as one.
    bool knowsPersons = false;

    // A search whose move is not played teaches nothing.
    bool onlyPlayedMovesTeach = false;
    // Without moves from the book there is no learning into it.
    bool ownBookTeaches = false;
};

extern const Manners Classic;
extern const Manners Modern;

// The manners in use: classic ones until others are chosen.
extern const Manners* Manner;

// Chooses, and tells the floors below what they need to know of it.
void UseManners(const Manners& manners);
