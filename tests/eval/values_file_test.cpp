#include "eval/parameters/values_file.h"

#include <array>
#include <bit>
#include <cstdint>
#include <filesystem>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "eval/parameters/parameters.h"
#include "support/scratch.h"

namespace {

using List = std::array<int32_t, EVAL_PARAMETER_COUNT>;

class ValuesFile : public testing::Test {
protected:
    ScratchDirectory directory;
    ScratchParameters parameters;
};

// A set in which every parameter has a value of its own.
List Distinct() {
    List list;
    std::iota(list.begin(), list.end(), -700);
    return list;
}

List Current() {
    return std::bit_cast<List>(Params);
}

void Use(const List& list) {
    Params = std::bit_cast<EvalParameters>(list);
}

// What a file leaves of the distinct set when only so many numbers of it can be read.
List AfterReading(const std::vector<int32_t>& numbers) {
    List list = Distinct();
    std::fill_n(list.begin(), IMBALANCE_PARAMETER_COUNT, 0);
    std::copy(numbers.begin(), numbers.end(), list.begin());
    return list;
}

// The first numbers of the distinct set, one a line, as a file holds them.
std::string Lines(size_t count) {
    std::string text;
    for (size_t i = 0; i < count; i++)
        text += std::to_string(int(i) - 700) + "\n";
    return text;
}

} // namespace

TEST_F(ValuesFile, TakesNumbersUpToTheFirstTextThatIsNone) {
    struct Case {
        const char* name;
        std::string text;
        std::vector<int32_t> numbers;
    };
    for (const Case& c : {
             Case{"empty", "", {}},
             Case{"all kinds of white space", "1 2\t\t3\r\n\n4", {1, 2, 3, 4}},
             Case{"signs", "+5\n-6\n-0\n", {5, -6, 0}},
             Case{"a word behind the number", "12abc\n8\n", {12}},
             Case{"a fraction", "1.5\n8\n", {1}},
             Case{"a sign alone", "3\n-\n8\n", {3}},
             Case{"a NUL", std::string("3\n\0\n8\n", 6), {3}},
             Case{"numbers just too large", "100001 -100001", {PARAMETER_LIMIT, -PARAMETER_LIMIT}},
             Case{"numbers much too large",
                  std::string(400, '9') + " -" + std::string(400, '9') + " 4",
                  {PARAMETER_LIMIT, -PARAMETER_LIMIT, 4}},
         }) {
        SCOPED_TRACE(c.name);
        WriteFileText("values.txt", c.text);
        Use(Distinct());
        LoadParameters();
        EXPECT_EQ(AfterReading(c.numbers), Current());
    }
}

TEST_F(ValuesFile, MayBeOfAnyLength) {
    const List all = Distinct();
    for (const size_t count : {size_t{13}, IMBALANCE_PARAMETER_COUNT + 3, EVAL_PARAMETER_COUNT,
                               EVAL_PARAMETER_COUNT + 1000}) {
        SCOPED_TRACE(count);
        WriteFileText("values.txt", Lines(count));
        Use(all);
        LoadParameters();
        const size_t read = std::min(count, all.size());
        EXPECT_EQ(AfterReading({all.begin(), all.begin() + long(read)}), Current());
    }
}

TEST_F(ValuesFile, ReadsWhatItWrote) {
    List list = Distinct();
    list.front() = -PARAMETER_LIMIT;
    list.back() = PARAMETER_LIMIT;
    WriteFileText("Values.TXT", "an older file that is longer\n" + Lines(EVAL_PARAMETER_COUNT));
    Use(list);
    EXPECT_TRUE(WriteParameters());
    EXPECT_TRUE(FileText("Values.TXT").starts_with("-100000\n-699\n"));
    EXPECT_TRUE(FileText("Values.TXT").ends_with("\n100000\n"));
    Use({});
    LoadParameters();
    EXPECT_EQ(list, Current());
}

TEST_F(ValuesFile, ThatCannotBeOpenedLeavesAllButTheImbalance) {
    for (const bool directoryInItsPlace : {false, true}) {
        SCOPED_TRACE(directoryInItsPlace);
        if (directoryInItsPlace)
            std::filesystem::create_directory("values.txt");
        Use(Distinct());
        EXPECT_EQ("Error loading values.txt\n", Printed([] { LoadParameters(); }));
        EXPECT_EQ(AfterReading({}), Current());
    }
    EXPECT_FALSE(WriteParameters());
}

// The file carries no names, so a set with one parameter more would take each for the next.
TEST_F(ValuesFile, IsShippedWithANumberForEachParameter) {
    const std::string path = TARQUELIN_SOURCE_DIR "/data/values.txt";
    std::istringstream lines(FileText(path));
    size_t count = 0;
    for (std::string line; std::getline(lines, line); count++)
        EXPECT_EQ(std::to_string(std::atoi(line.c_str())), line) << count;
    ASSERT_EQ(EVAL_PARAMETER_COUNT, count) << "fit the values anew: docs/tuning.md";
    LoadParameters(path.c_str());
    // Nobody fits where endings begin: these two show that the numbers are in their places.
    EXPECT_EQ(Params.EndingPieces, EvalParameters().EndingPieces);
    EXPECT_EQ(Params.EndingPiecesNoQueen, EvalParameters().EndingPiecesNoQueen);
    EXPECT_EQ(Params.PasserCountBonus[8], EvalParameters().PasserCountBonus[8]);
}
