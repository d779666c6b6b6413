#include "front/input/keyword.h"

#include <algorithm>
#include <limits>

static char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

static std::string_view SkipBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

// How many characters agree from the beginning on.
static size_t CommonLength(std::string_view a, std::string_view b) {
    size_t length = 0;
    while (length < a.size() && length < b.size() && Lower(a[length]) == Lower(b[length]))
        length++;
    return length;
}

bool KeywordMatches(std::string_view keyword, std::string_view text) {
    keyword = SkipBlanks(keyword);
    text = SkipBlanks(text);
    if (keyword.empty() || text.empty())
        return false;
    const size_t length = CommonLength(keyword, text);
    return length == keyword.size() || length == text.size();
}

bool BeginsWithKeyword(std::string_view keyword, std::string_view text) {
    return CommonLength(keyword, SkipBlanks(text)) == keyword.size();
}

bool SameWords(std::string_view a, std::string_view b) {
    return a.size() == b.size() && CommonLength(a, b) == a.size();
}

std::vector<Token> Tokenize(std::string_view text, std::string_view separators) {
    std::vector<Token> tokens;
    size_t begin = text.find_first_not_of(separators);
    while (begin != std::string_view::npos) {
        const size_t end = text.find_first_of(separators, begin);
        tokens.push_back({std::string(text.substr(begin, end - begin)), begin});
        if (end == std::string_view::npos)
            return tokens;
        begin = text.find_first_not_of(separators, end);
    }
    if (!tokens.empty())
        tokens.push_back({"", text.size()});
    return tokens;
}

int32_t ReadNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    const bool negative = !text.empty() && text.front() == '-';
    if (negative || (!text.empty() && text.front() == '+'))
        text.remove_prefix(1);
    constexpr int64_t largest = std::numeric_limits<int32_t>::max();
    int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            break;
        value = std::min(value * 10 + (c - '0'), largest + 1);
    }
    return int32_t(negative ? -value : std::min(value, largest));
}
