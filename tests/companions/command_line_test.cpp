// What the programs beside the engine say to their command lines, right and wrong.

#include <gtest/gtest.h>

#include "platform/version.h"
#include "support/companion.h"
#include "support/scratch.h"

TEST(CommandLine, IsAnsweredByEveryCompanionInTheSameWay) {
    const ScratchDirectory scratch;
    for (const std::string name : {"tarquelin-annotate", "tarquelin-bench", "tarquelin-book",
                                   "tarquelin-fit", "tarquelin-selfplay", "tarquelin-tb"}) {
        SCOPED_TRACE(name);
        const Outcome help = RunCompanion(name, "--help");
        EXPECT_TRUE(help.status == 0 && help.Says("Usage: " + name)) << help.text;
        const Outcome version = RunCompanion(name, "--version");
        EXPECT_EQ(version.status, 0);
        EXPECT_EQ(version.text, name + " " + VERSION + "\n");
        const Outcome unknown = RunCompanion(name, "--nonsense");
        EXPECT_EQ(unknown.status, 2);
        EXPECT_EQ(unknown.text,
                  name + ": \"--nonsense\" is not known here\nSee " + name + " --help\n");
    }
}

TEST(CommandLine, EndsWith2ForWhatMakesNoSenseAndWith1ForWhatCannotBeDone) {
    struct Case {
        const char* program;
        const char* words;
        int status;
        const char* said;
    };
    const Case cases[] = {
        {"annotate", "", 2, "GAMES"},
        {"annotate", "--depth 9 --nodes 9 lines", 2, "--nodes"},
        {"annotate", "--result 2-0 lines", 2, "2-0"},
        {"annotate", "--from 24 lines", 2, "24"},
        {"annotate", "nowhere.pgn", 1, "nowhere.pgn: No such file"},
        {"annotate", "--eco B90 lines", 1, "no such games"},
        {"annotate", "--values nowhere lines", 1, "nowhere: No such file"},
        {"annotate", "--output none/a --nodes 9 lines", 1, "Cannot open none/a.part: No such"},
        {"bench", "perft 4", 0, "perft 4: 197281 leaves"},
        {"bench", "x", 2, "DEPTH"},
        {"bench", "0", 2, "DEPTH"},
        {"bench", "0x4", 2, "DEPTH: \"0x4\" is no number"},
        {"bench", "8 perft", 2, "perft excludes DEPTH"},
        {"bench", "book", 2, "See tarquelin-bench book --help"},
        {"bench", "book nowhere", 1, "nowhere"},
        {"bench", "tablebase nowhere", 1, "not found"},
        {"book", "", 2, "required"},
        {"book", "solve", 2, "\"solve\""},
        {"book", "build --help", 0, "--worst-score CP [-70]"},
        {"book", "build lines", 2, "--output"},
        {"book", "build --output b.tqn", 2, "SOURCE"},
        {"book", "build --output b.tqn --depth 0 lines", 2, "--depth"},
        {"book", "build --output b.tqn --side red lines", 2, "red"},
        {"book", "build --output b.tqn --searched-moves", 2, "--weights"},
        {"book", "build --output b.tqn --weights lines lines", 1, "no searched positions"},
        {"book", "build --output b.tqn --weights nowhere lines", 1, "nowhere: No such file"},
        {"book", "build --output b.tqn nowhere.pgn", 1, "nowhere.pgn"},
        {"book", "random --output none/b.tqn", 1, "Cannot write none/b.tqn: No such"},
        {"book", "survey lines", 1, "too short"},
        {"book", "dump a b", 2, "\"b\""},
        {"selfplay", "play --seeds 1-9", 2, "--output"},
        {"selfplay", "play --seeds 9-1 --output p", 2, "9-1"},
        {"selfplay", "play --seeds 1- --output p", 2, "no range"},
        {"selfplay", "play --seeds 1-9 --nodes 0 --output p", 2, "--nodes"},
        {"selfplay", "play --seeds 1-9 --output p", 1, "openings: No such file"},
        {"selfplay", "play --seeds 1-9 --values nowhere --output p", 1, "nowhere: No such file"},
        {"selfplay", "play --seeds 1-9 --openings . --output p", 1, "no opening lines"},
        {"selfplay", "play --seeds 1-9 --openings book --output lines", 1, "no file of labelled"},
        {"selfplay", "play --seeds 1-9 --openings book --output none/p", 1, "Cannot open none/p"},
        {"selfplay", "play --seeds 1-2 --nodes 9 --openings book --output /dev/full", 1,
         "Cannot write /dev/full: No space left"},
        {"selfplay", "judge --output p lines", 2, "--engine"},
        {"selfplay", "judge --engine true --output p nowhere", 1, "nowhere: No such file"},
        {"selfplay", "judge --engine ./nowhere --output p lines", 1, "./nowhere: No such file"},
        {"selfplay", "judge --engine true --output p lines", 1, "true: the engine has ended"},
        {"tb", "build", 2, "DIRECTORY"},
        {"tb", "build tables kqkk", 2, "kqkk is no class"},
        {"tb", "build tables kqqkq", 2, "kqqkq is no class"},
        {"tb", "build --threads 0 tables", 2, "--threads"},
        {"tb", "build --threads 08 lines kqk", 1, "lines: "},
        {"tb", "verify nowhere", 1, "0 tables"},
        {"tb", "list nowhere", 1, "0 tables"},
        {"tb", "list a b", 2, "\"b\""},
    };
    const ScratchDirectory scratch;
    WriteFileText("lines", "e4 e5\n");
    std::filesystem::create_directory("book");
    WriteFileText("book/a.tsv", "pgn\ne4 e5\n");
    for (const Case& c : cases) {
        const Outcome outcome = RunCompanion(std::string("tarquelin-") + c.program, c.words);
        EXPECT_EQ(outcome.status, c.status) << c.program << " " << c.words << "\n" << outcome.text;
        EXPECT_TRUE(outcome.Says(c.said)) << c.program << " " << c.words << "\n" << outcome.text;
    }
    for (const char* name : {"b.tqn", "tables", "values.txt"})
        EXPECT_FALSE(std::filesystem::exists(name)) << name;
}
