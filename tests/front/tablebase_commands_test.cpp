// Tablebases as users meet them: settings, options, the report.

#include <string>

#include "front/interpreter.h"
#include "support/engine_process.h"
#include "support/tablebase_test.h"
#include "tablebase/block_cache.h"
#include "tablebase/tablebases.h"

namespace {

class TablebaseCommands : public TablebaseTest {
protected:
    static std::string Answer(const std::string& line) {
        return Printed([&] { Dispatch(line); });
    }
};

TEST_F(TablebaseCommands, OptionsTakeEffectAtOnce) {
    EXPECT_EQ(Answer("setoption name NalimovPath value nowhere; " + std::string(ThreeMenTables)),
              "");
    EXPECT_EQ(LargestTablebase(), 3);
    EXPECT_EQ(CacheEntries(), 126);
    EXPECT_EQ(Answer("egtbstat"), "UseEGTB = TRUE\ntb_path = nowhere; " +
                                      std::string(ThreeMenTables) +
                                      "\n3 piece EGTB files found\n43kb of RAM used for TB indices "
                                      "and decompression tables\n");
    EXPECT_EQ(Answer("setoption name NalimovCache value 2"), "");
    EXPECT_EQ(CacheEntries(), 253);
    EXPECT_EQ(Answer("setoption name NalimovCache value -1"),
              "An error occured while memory allocation!\n");
    EXPECT_EQ(LargestTablebase(), 0);
    EXPECT_EQ(Answer("setoption name NalimovPath value nowhere"),
              "An error occured while memory allocation!\n");
    EXPECT_EQ(Answer("setoption name NalimovCache value 1"), "");
    EXPECT_NE(Answer("egtbstat").find("EGTB files not found\n"), std::string::npos);
}

TEST(Tablebases, AreFoundAtStartAndTellTheMate) {
    EngineProcess engine("EGTBPath = " + std::string(ThreeMenTables) + "\n");
    EXPECT_NE(engine.Ask("egtbstat\n").find("3 piece EGTB files found\n43kb of RAM"),
              std::string::npos);
    engine.Send("uci");
    engine.Send("position fen 8/8/8/3k4/8/8/8/K5Q1 w - - 0 1");
    engine.Send("go movetime 60000");
    const std::string lines = engine.ReadUntilPrefix("bestmove");
    EXPECT_NE(lines.find(" score mate 9 "), std::string::npos) << lines;
    EXPECT_EQ(lines.find(" tbhits 0"), std::string::npos) << lines;
}

} // namespace
