// Games annotated as a user has it done.

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "support/board_test.h"
#include "support/companion.h"
#include "support/scratch.h"
#include "tools/pgn_game.h"

namespace {

// A mate in two moves; with remarks, a glyph and a variation of its own.
constexpr const char* FOOLS_MATE =
    "; by hand\r\n[Event \"Fool\"]\r\n[White \"A \\\"B\\\" [c]\"]\r\n"
    "[Date \"2024.05.17\"]\r\n[Result \"0-1\"]\r\n\r\n"
    "1.f3 e5 2.g4 {long\r\nremark} (2.e4 {(} Nc6 (2...d5) )\r\n"
    "Qh4# $1 ; done\r\n0-1\r\n\r\n";
// White mates in one, but makes room for the king.
constexpr const char* MISSED_MATE =
    "[Event \"Missed\"]\n[White \"Anna\"]\n[FEN \"6k1/5ppp/8/8/8/8/p4PPP/1R4K1 w - - 0 31\"]\n"
    "[Result \"1/2-1/2\"]\n\n31. g3 $5 h6 {x} 1/2-1/2\n\n";
constexpr const char* BROKEN = "[Event \"Broken\"]\n[Result \"*\"]\n\n1. e4 e5\n2. Nf9 Nc6 *\n\n";
constexpr const char* OTHER_CHESS = "[Event \"Other\"]\n[Variant \"Atomic\"]\n\n1. e4 e5 *\n\n";
constexpr const char* NO_POSITION =
    "[Event \"Fen\"]\n[FEN \"8/8/8/8/8/8/8/K7 w - - 0 1\"]\n\n1. Ka2 *\n\n";
constexpr const char* UNCLOSED = "[Event \"Open\"]\n\n1. e4 {never\n\n";
constexpr const char* WITHOUT_TAGS = "1. e4 e5 2. Nf3 1/2-1/2\n\n1. d4 *\n";

class Annotate : public BoardTest {
protected:
    static Outcome Run(const std::string& words, const std::string& before = "") {
        const bool told = words.find("--nodes") != std::string::npos;
        return RunCompanion("tarquelin-annotate", (told ? "" : "--nodes 3000 ") + words, before);
    }
    static Outcome Run(const std::string& games, const std::string& words,
                       const std::string& before) {
        WriteFileText("games.pgn", games);
        return Run(words + " games.pgn", before);
    }
    static std::string Annotated() {
        return FileText("games-annotated.pgn");
    }
    // However the lines are broken.
    static void ExpectSays(std::string_view part) {
        std::string text = Annotated();
        std::erase(text, '\r');
        std::ranges::replace(text, '\n', ' ');
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
    }

    ScratchDirectory directory;
};

// Whether the text is the other one with something added.
bool IsAddedTo(std::string_view text, std::string_view original) {
    for (const char c : text) {
        if (!original.empty() && original[0] == c)
            original.remove_prefix(1);
    }
    return original.empty();
}

} // namespace

TEST_F(Annotate, AddsEvaluationsMarksAndBetterMovesAndLosesNoByte) {
    const std::string games = std::string(FOOLS_MATE) + MISSED_MATE + WITHOUT_TAGS;
    const Outcome outcome = Run(games, "", "");
    EXPECT_EQ(outcome.status, 0) << outcome.text;
    EXPECT_TRUE(IsAddedTo(Annotated(), games)) << Annotated();
    ExpectSays("2.g4 $4 {[%eval #-1] [%depth ");
    ExpectSays("Allows mate in 1.");
    ExpectSays("Qh4# $1 {End of book: Barnes Opening");
    EXPECT_NE(Annotated().find("} ; done\r\n0-1\r\n\r\n[Event"), std::string::npos);
    ExpectSays("31. g3 $5 {[%eval ");
    ExpectSays("Missed mate in 1.");
    ExpectSays("(31. Rb8# ");
    // The glyph of the author stays alone, and what stands there already is not said again.
    EXPECT_EQ(Annotated().find("$5 $"), std::string::npos);
    const std::string once = Annotated();
    Run(once, "", "");
    const auto count = [](std::string_view text, std::string_view part) {
        int found = 0;
        for (size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1))
            found++;
        return found;
    };
    for (const char* part : {"[%eval ", " $4", "(31. ", "Missed mate"})
        EXPECT_EQ(count(Annotated(), part), count(once, part)) << part;
    // Our own reader finds the same games in it.
    auto reader = std::make_unique<PgnReader>();
    ASSERT_TRUE(PgnOpen(*reader, "games-annotated.pgn"));
    PgnGame game;
    std::string plies;
    while (PgnNextGame(*reader, game)) {
        PgnStep step = PgnNextMove(*reader, game);
        for (; step == PgnStep::MOVE; step = PgnNextMove(*reader, game))
            PgnPlay(game);
        EXPECT_EQ(step, PgnStep::GAME_END) << game.moveText;
        plies += std::to_string(game.ply) + " ";
    }
    PgnClose(*reader);
    EXPECT_EQ(plies, "4 2 3 1 ");
}

TEST_F(Annotate, KeepsWhatItCannotReadAndSaysWhy) {
    const std::string kept = std::string(BROKEN) + OTHER_CHESS + NO_POSITION + UNCLOSED;
    const Outcome outcome = Run(kept + FOOLS_MATE, "", "");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Annotated().starts_with(kept)) << Annotated();
    ExpectSays("$4");
    for (const char* said : {"games.pgn:5: game 1 is kept as it is: 2. Nf9 is no legal move",
                             "game 2 is kept as it "
                             "is: it is Atomic",
                             "game 3 is kept as it is: the FEN",
                             "games.pgn:19: game 4 is kept as "
                             "it is: a comment that does not end"})
        EXPECT_TRUE(outcome.Says(said)) << said << "\n" << outcome.text;
    EXPECT_EQ(Run(OTHER_CHESS, "", "").status, 0);
    EXPECT_EQ(Annotated(), OTHER_CHESS);
    // What some editors begin a file with is no game, and neither are empty lines.
    EXPECT_TRUE(Run(std::string("\xef\xbb\xbf") + MISSED_MATE, "", "").Says("1 game: "));
    EXPECT_TRUE(Run("\n\n", "", "").Says("game 1 is kept as it is: it has neither tags nor moves"));
}

TEST_F(Annotate, WritesTheSameBytesInAnyNumberOfProcessesAndAfterAStop) {
    std::string games;
    for (int i = 0; i < 6; i++)
        games += std::string(FOOLS_MATE) + MISSED_MATE;
    EXPECT_EQ(Run(games, "--threads 1", "").status, 0);
    const std::string whole = Annotated();
    EXPECT_EQ(Run(games, "--threads 3", "").status, 0);
    EXPECT_EQ(Annotated(), whole);
    std::filesystem::remove("games-annotated.pgn");
    // Not before it has found something, for which it has a minute.
    const Outcome stopped =
        Run(games, "--nodes 60000 --threads 1",
            "sh -c 'shift 2; i=0; \"$@\" & while [ $((i = i + 1)) -lt 3000 ] && "
            "[ $(wc -l <games-annotated.part || echo 0) -lt 3 ]; do sleep 0.02; "
            "done; kill -INT $!; wait $!' sh");
    EXPECT_EQ(stopped.status, 130) << stopped.text;
    EXPECT_FALSE(std::filesystem::exists("games-annotated.pgn"));
    // Another build of the same version may search in another way.
    std::filesystem::copy("games-annotated.part", "other-annotated.part");
    std::filesystem::copy("games.pgn", "other.pgn");
    EXPECT_FALSE(Run("--nodes 60000 other.pgn",
                     "sh -c 'cp \"$3\" ./other; echo >>other; shift 3; ./other \"$@\"' sh")
                     .Says("Going on"));
    const Outcome went = Run("--nodes 60000 games.pgn");
    EXPECT_TRUE(went.status == 0 && went.Says("Going on behind ")) << went.text;
    const std::string resumed = Annotated();
    EXPECT_FALSE(Run("--nodes 60000 games.pgn").Says("Going on"));
    EXPECT_EQ(Annotated(), resumed);
}

TEST_F(Annotate, TakesTheGamesThatAreAskedFor) {
    const std::string games = std::string(FOOLS_MATE) + MISSED_MATE;
    struct Case {
        const char* words;
        const char* first;
    };
    for (const Case& c : {Case{"--player anna", "[Event \"Missed\"]"},
                          {"--result 0-1", "; by hand"},
                          {"--from 2024.05", "; by hand"},
                          {"--eco A0", "; by hand"}}) {
        EXPECT_EQ(Run(games, c.words, "").status, 0) << c.words;
        EXPECT_TRUE(Annotated().starts_with(c.first)) << c.words << "\n" << Annotated();
        EXPECT_EQ(Annotated().find("[Event ", 20), std::string::npos) << c.words;
    }
}

TEST_F(Annotate, WritesAPageWithEveryGame) {
    Run(std::string(FOOLS_MATE) + "[White \"J\xf6rg\"]\n\n1. e4 {<b> [%clk 0:01]} *\n\n" + BROKEN,
        "", "");
    const std::string page = FileText("games-annotated.html");
    for (const char* part :
         {"<h1>games.pgn</h1>", "A &quot;B&quot; [c]", "J\xc3\xb6rg", "&lt;b&gt; </span>",
          "2. Nf9 is no legal move", "id='g1m4' href='#g1m4' data-d='d8.h4q'",
          "2. g4?"
          "?</a></td>",
          "data-at='2'>Better ", "</html>"})
        EXPECT_NE(page.find(part), std::string::npos) << part;
    EXPECT_EQ(page.find("<b>"), std::string::npos);
}

TEST_F(Annotate, FindsWhatIsWorthALook) {
    // A queen is given for a mate by force.
    const std::string sacrifice =
        "[White \"Dora\"]\n[FEN \"r5rk/6pp/7N/8/8/8/Q6P/7K w - - 0 1\"]\n\n1. Qxg8+ Rxg8 2. Nf7# "
        "1-0\n\n";
    const Outcome found =
        Run(std::string(FOOLS_MATE) + MISSED_MATE + sacrifice + BROKEN, "--find", "");
    EXPECT_EQ(found.status, 1) << found.text;
    EXPECT_FALSE(std::filesystem::exists("games-annotated.pgn"));
    EXPECT_TRUE(found.Says("game\tline\tswing\tmove\t")) << found.text;
    EXPECT_TRUE(found.Says("\t2.g4??\t0\t0\t0\tA \"B\" [c]\t?\t0-1\tA00 ")) << found.text;
    EXPECT_TRUE(found.Says("\t31.g3?"
                           "?\t") &&
                found.Says("\t0\t0\tAnna\t"))
        << found.text;
    EXPECT_FALSE(found.Says("\t0\t0\t0\tAnna\t")) << "the mate that was let go";
    EXPECT_TRUE(found.Says("\t0\t1\t0\tDora\t")) << found.text;
    EXPECT_TRUE(found.Says("game 4 is kept as it is: 2. Nf9")) << found.text;
}

TEST_F(Annotate, TellsWhatTablebasesKnow) {
    const std::string tables =
        std::string("--tables ") + TARQUELIN_SOURCE_DIR + "/tests/data/tablebases";
    // A queen is given away where she wins.
    Run("[FEN \"8/8/8/8/3k4/8/8/KQ6 w - - 0 1\"]\n[Result \"1/2-1/2\"]\n\n1. Qb4+ Ke3 2. Qe1+ "
        "Kf3 3. Qe2+ Kxe2 1/2-1/2\n",
        tables, "");
    ExpectSays("Tablebase: White wins before this move, draw after it.");
}
