// The settings file and the start-up text, as the real engine prints them.

#include <string>

#include <gtest/gtest.h>

#include "support/engine_process.h"
#include "support/scratch.h"

namespace {

// There is no values file in a fresh directory.
constexpr const char* Banner = "Tarquelin v1.40 [r2040/09.11.2013]\n"
                               "Error loading values.txt\n";
constexpr const char* NoBook = "Error opening \"Book.tqn\"!\n";

constexpr const char* DefaultSummary = "Transposition size is 524288 entries (11534336 bytes)\n"
                                       "Pawn hash size is 262144 entries (6815744 bytes)\n"
                                       "EGTBHashSize = 1048576 bytes\n"
                                       "Aggressivity = 100 (50)%\n"
                                       "Cowardice = 100 (50)%\n"
                                       "Tropism = 100 (200)%\n"
                                       "ResignValue = 800\n"
                                       "ResignTimes = 3\n"
                                       "UseEGTB = on\n"
                                       "EGTB path = \"c:\\tablebases\\\"\n"
                                       "UseBookWeights = on\n"
                                       "UseBookLearning = on\n"
                                       "BookLearningMode = KILL\n"
                                       "VarietyOfPlay = 10\n"
                                       "BookLearningBound = 400\n"
                                       "UseLearning = off\n"
                                       "UseLearningData = off\n"
                                       "LogLearningIntoFile = off\n"
                                       "Pondering = on\n"
                                       "\n";

std::string StartUpText(const std::string& settings) {
    EngineProcess engine(settings);
    return engine.Settle();
}

TEST(StartUp, PrintsBannerSummaryAndTablebases) {
    EXPECT_EQ(StartUpText(""),
              std::string(Banner) + NoBook + DefaultSummary + "EGTB files not found\n");
}

// Modern, it says nothing of what is missing; and it has no tables until some are named.
TEST(StartUp, TheShippedSettingsFileHoldsTheDefaultsButForInterfaceAndTables) {
    const std::string shipped = FileText(TARQUELIN_SOURCE_DIR "/data/Tarquelin.ini");
    ASSERT_FALSE(shipped.empty());
    std::string expected = std::string("Tarquelin v1.40 [r2040/09.11.2013]\n") + DefaultSummary;
    const std::string tables = "UseEGTB = on";
    expected.replace(expected.find(tables), tables.size(), "UseEGTB = off");
    EXPECT_EQ(StartUpText(shipped), expected);
    EXPECT_NE(StartUpText("Interface = modern\nUseEGTB = off\nEGTBPath = .\n").find(tables + "\n"),
              std::string::npos);
}

struct WarningCase {
    const char* settings;
    const char* warnings; // between banner and book
    const char* summary;  // a line of the summary
};

constexpr WarningCase Warnings[] = {
    {"TranspositionSizeMb = 64", "", "Transposition size is 3050402 entries (67108844 bytes)\n"},
    {"TranspositionSizeMb = -1",
     "Tarquelin.ini(1) WARNING: Incorrect hash size setting in Tarquelin.ini; set to default\n",
     "Transposition size is 524288 entries (11534336 bytes)\n"},
    {"PawnHashSize = 11",
     "Tarquelin.ini(1) WARNING: Incorrect pawn hash size setting in Tarquelin.ini; set to "
     "default\n",
     "Pawn hash size is 524288 entries (13631488 bytes)\n"},
    {"EGTBHashSizeMb = 0",
     "Tarquelin.ini(1) WARNING: Incorrect EGTB cache size setting in Tarquelin.ini; set to "
     "default\n",
     "EGTBHashSize = 1048576 bytes\n"},
    {"Aggressivity = 301", "Tarquelin.ini(1) WARNING: Incorrect AGGRESSIVITY setting; set to 300\n",
     "Aggressivity = 300 (150)%\n"},
    {"Tropism = 999", "Tarquelin.ini(1) WARNING: Incorrect TROPISM setting; set to 300\n",
     "Tropism = 300 (600)%\n"},
    {"MoveOverhead = -1", "Tarquelin.ini(1) WARNING: Incorrect MoveOverhead setting; set to 0\n",
     "Pondering = on\n"},
    {"BookLearningMode = learn", "Tarquelin.ini(1) WARNING: Token unknown \"learn\"\n",
     "BookLearningMode = KILL\n"},
    {"Pondering = maybe", "Tarquelin.ini(1) WARNING: Token unknown \"maybe\"\n",
     "Pondering = on\n"},
    {"Learning = true\nUseLearningData = 1", "Tarquelin.ini(2) WARNING: Token unknown \"1\"\n",
     "UseLearning = on\n"},
    {"ResignValue\t= 500", "", "ResignValue = 800\n"},
    {";ResignValue = 500\nResign = 3\n= ResignTimes 9\nUnknown = 1\n;", "", "ResignTimes = 3\n"},
    {"EGTBPath = d:\\my tables\\, e:\\x\"\x80zzz", "",
     "EGTB path = \"d:\\my tables\\, e:\\x\"\"\n"},
    {"OpeningsBook = no such.tqn", "Error opening \"no such.tqn\"!\n", "ResignTimes = 3\n"},
    // The end of the file shows only after a read, so the last line is applied again.
    {"Tropism = 1000\n",
     "Tarquelin.ini(1) WARNING: Incorrect TROPISM setting; set to 300\n"
     "Tarquelin.ini(2) WARNING: Incorrect TROPISM setting; set to 300\n",
     "Tropism = 300 (600)%\n"},
};

TEST(SettingsFile, TakesGoodValuesAndWarnsOfBadOnes) {
    for (const WarningCase& c : Warnings) {
        SCOPED_TRACE(c.settings);
        const std::string text = StartUpText(c.settings);
        const std::string head = std::string(Banner) + c.warnings + NoBook + "Transposition";
        EXPECT_TRUE(text.starts_with(head)) << text;
        EXPECT_NE(text.find(c.summary), std::string::npos) << text;
    }
}

TEST(SettingsFile, OverlongLinesAreReadInPieces) {
    // The second piece begins after 249 characters and is a line of its own.
    const std::string filler = ";" + std::string(248, 'x');
    const std::string text = StartUpText(filler + "ResignTimes = 7\n;");
    EXPECT_NE(text.find("ResignTimes = 7\n"), std::string::npos) << text;
}

} // namespace
