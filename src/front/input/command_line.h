// One line of input as a command sees it.
#pragma once

#include <string>
#include <vector>

#include "front/input/keyword.h"

struct CommandLine {
    std::string text;
    std::vector<Token> tokens; // token 0 is the command word; an empty last token is not counted

    // How many tokens follow the command word.
    int Arguments() const {
        return int(tokens.size()) - 1;
    }
    // The line from argument `i` on, counted from 1; empty when there is none.
    std::string Rest(int i) const {
        return i <= Arguments() ? text.substr(tokens[size_t(i)].offset) : "";
    }
    // Argument `i`, counted from 1, as a number; `missing` when there is none.
    int32_t Number(int i, int32_t missing = 0) const {
        return i <= Arguments() ? ReadNumber(tokens[size_t(i)].text) : missing;
    }
};
