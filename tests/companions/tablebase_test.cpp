// The companion that makes tables, as a user runs it.

#include <algorithm>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "support/companion.h"
#include "support/scratch.h"

namespace {

class TablebaseCompanion : public testing::Test {
protected:
    // Exit status of the companion; what it prints is in `output`.
    int Run(const std::string& words) {
        const Outcome outcome = RunCompanion("tarquelin-tb", words);
        // Columns are as wide as it happens.
        output = outcome.text;
        const auto bothBlank = [](char before, char c) { return before == ' ' && c == ' '; };
        output.erase(std::unique(output.begin(), output.end(), bothBlank), output.end());
        return outcome.status;
    }
    bool Says(const std::string& text) const {
        return output.find(text) != std::string::npos;
    }

    ScratchDirectory scratch;
    std::string output;
};

} // namespace

TEST_F(TablebaseCompanion, BuildsThePublishedTables) {
    ASSERT_EQ(Run("build tables kqk krk kpk kbkn"), 0) << output;
    // Entries of all kinds, from the statistics of the published tables.
    ASSERT_EQ(Run("list tables"), 0);
    for (const char* line :
         {"kqk.nbw 25629 25629 18492 10 0 0 - 7137", "kqk.nbb 28644 28644 0 - 2953 25691 10 0",
          "krk.nbw 27030 27030 22400 16 0 0 - 4630", "kpk.nbb 84012 84012 0 - 35210 48802 28 0",
          "knk.nbw 26282 26282 0 - 26282 0 - 0", "kbkn.nbw 1661823 1661823 2 1 1514233 1 0 147587",
          "kbkn.nbb 1603202 1603202 5 1 1603196 1 0 0"})
        EXPECT_TRUE(Says(line)) << line << "\n" << output;
    EXPECT_EQ(Run("verify tables"), 0);
}

TEST_F(TablebaseCompanion, FindsDamageAndRepairsIt) {
    ASSERT_EQ(Run("build tables kqk kbk knk"), 0) << output;
    const std::string whole = FileText("tables/kqk.nbw");
    std::string changed = whole;
    changed[12345] ^= 1;
    WriteFileText("tables/kqk.nbw", changed);
    WriteFileText("tables/kbk.nbb", FileText("tables/kbk.nbb").substr(0, 100));
    std::filesystem::remove("tables/knk.nbw");
    std::filesystem::create_directory("tables/knk.nbw");
    EXPECT_EQ(Run("verify tables"), 1);
    for (const char* line : {"kqk.nbw: WRONG", "kbk.nbb: WRONG", "knk.nbw: WRONG",
                             "3 tables of up to four men are right, 3 wrong"})
        EXPECT_TRUE(Says(line)) << line << "\n" << output;
    std::filesystem::remove("tables/knk.nbw");
    EXPECT_EQ(Run("build tables kqk kbk knk"), 0);
    EXPECT_TRUE(Says("3 classes to build, 0 there already")) << output;
    EXPECT_EQ(FileText("tables/kqk.nbw"), whole);
    EXPECT_EQ(Run("verify tables"), 0);
    EXPECT_EQ(Run("build tables kqk kbk"), 0);
    EXPECT_TRUE(Says("0 classes to build, 2 there already")) << output;
}

TEST_F(TablebaseCompanion, ChecksCompressedTablesToo) {
    ASSERT_EQ(Run("build tables kqk"), 0) << output;
    ASSERT_EQ(Run("compress tables compressed"), 0) << output;
    EXPECT_EQ(Run("verify compressed"), 0);
    ASSERT_EQ(Run("list compressed"), 0);
    EXPECT_TRUE(Says(" 25629 18492 10 0 0 - 7137")) << output;
    std::string damaged = FileText("compressed/kqk.nbb.emd");
    damaged[damaged.size() / 2] ^= 1;
    WriteFileText("compressed/kqk.nbb.emd", damaged);
    EXPECT_EQ(Run("verify compressed"), 1);
    EXPECT_TRUE(Says("kqk.nbb.emd: WRONG")) << output;
}
