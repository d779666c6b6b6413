// The one rule by which keywords are matched, lines split into tokens and numbers read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Whether the text matches the keyword: after leading blanks in both, characters are compared
// without regard to case until one of them ends. So a keyword matches any line that begins with it
// and any non-empty beginning of it; an empty keyword or text matches nothing. The order in which
// keywords are tried therefore decides.
bool KeywordMatches(std::string_view keyword, std::string_view text);

// Whether the whole keyword stands at the beginning of the text, after leading blanks and without
// regard to case.
bool BeginsWithKeyword(std::string_view keyword, std::string_view text);

// Whether the two are the same, without regard to case.
bool SameWords(std::string_view a, std::string_view b);

struct Token {
    std::string text;
    size_t offset; // in the line at which it begins
};

// Splits the text at the separators. Runs of separators count as one, leading ones are skipped, and
// trailing ones yield one more, empty token.
std::vector<Token> Tokenize(std::string_view text, std::string_view separators);

// The decimal number at the beginning of the text, after white space and with an optional sign; 0
// for text that is no number. What does not fit is cut to the nearest 32-bit number.
int32_t ReadNumber(std::string_view text);
