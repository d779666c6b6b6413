#include "eval/parameters/values_file.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <string>

#include "eval/parameters/carried_values.h"
#include "eval/parameters/parameters.h"
#include "platform/files.h"

namespace {

using ParameterList = std::array<int32_t, EVAL_PARAMETER_COUNT>;

} // namespace

// Digits up to the first other character, which stays unread; false when there are none.
static bool ReadDigits(FILE* file, int64_t& value) {
    int c = std::getc(file);
    const bool found = std::isdigit(c) != 0;
    for (value = 0; std::isdigit(c) != 0; c = std::getc(file))
        value = std::min<int64_t>(10 * value + (c - '0'), PARAMETER_LIMIT);
    std::ungetc(c, file);
    return found;
}

// The next number of the file, read as `scanf` reads one but cut to the limit; false when something
// else comes.
static bool ReadValue(FILE* file, int32_t& value) {
    int c = std::getc(file);
    while (std::isspace(c) != 0)
        c = std::getc(file);
    const bool negative = c == '-';
    if (c != '-' && c != '+')
        std::ungetc(c, file);
    int64_t size = 0;
    if (!ReadDigits(file, size))
        return false;
    value = int32_t(negative ? -size : size);
    return true;
}

void LoadParameters(const char* path, bool silent) {
    ParameterList list = std::bit_cast<ParameterList>(Params);
    std::fill_n(list.begin(), IMBALANCE_PARAMETER_COUNT, 0);
    if (FILE* const file = OpenFile(path, "r")) {
        for (int32_t& value : list) {
            if (!ReadValue(file, value))
                break;
        }
        std::fclose(file);
    } else if (!CarriedValues.empty()) {
        std::ranges::copy(CarriedValues.first(std::min(CarriedValues.size(), list.size())),
                          list.begin());
    } else if (!silent) {
        std::puts("Error loading values.txt");
        std::fflush(stdout);
    }
    Params = std::bit_cast<EvalParameters>(list);
}

bool WriteParameters(const char* path) {
    std::string text;
    for (const int32_t value : std::bit_cast<ParameterList>(Params))
        text += std::to_string(value) + '\n';
    return ReplaceWholeFile(path, text);
}
