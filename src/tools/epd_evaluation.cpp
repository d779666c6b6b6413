#include "tools/epd_evaluation.h"

#include <cstdint>
#include <cstdio>
#include <string>

#include "board/fen.h"
#include "platform/files.h"
#include "tools/static_score.h"

namespace {

constexpr size_t LONGEST_LINE = 255;
// One line of so many goes into the sample.
constexpr int64_t SAMPLE_STEP = 10;

} // namespace

// The next line, cut; false at the end of the file. With its line feed: a last line may have none.
static bool ReadLine(FILE* file, std::string& line) {
    line.clear();
    int c = std::getc(file);
    if (c == EOF)
        return false;
    for (; c != EOF && c != '\n'; c = std::getc(file)) {
        if (line.size() < LONGEST_LINE)
            line += char(c);
    }
    if (c == '\n')
        line += '\n';
    return true;
}

static void EvaluateLines(FILE* source, FILE* sample) {
    std::string line;
    for (int64_t count = 1; ReadLine(source, line); count++) {
        LoadFen(line.c_str());
        std::printf("%d\n", StaticScore());
        if (count % SAMPLE_STEP == 0 && sample != nullptr)
            std::fwrite(line.data(), 1, line.size(), sample);
    }
}

void EpdEvaluate(const char* path) {
    FILE* const source = OpenFile(path, "r");
    FILE* const sample = OpenFile("out.epd", "w");
    if (source != nullptr) {
        EvaluateLines(source, sample);
        std::fclose(source);
    }
    if (sample != nullptr)
        std::fclose(sample);
    std::fflush(stdout);
}
