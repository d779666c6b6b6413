// The words of the command line: options with their values, and the files between them.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

using Files = std::vector<const char*>;

struct Option {
    const char* name;
    const char* value; // what stands for its value in the help; null for a switch
    const char* help;
    bool (*take)(const char* text); // false when the value is none; a switch gets null
};

// Sorts the words into options, which are taken at once, and files. False, with a message, when a
// word begins with "--" and is no option, or an option has no value or a bad one.
bool ReadArguments(std::span<const char* const> words, std::span<const Option> options,
                   Files& files);

void PrintOptions(std::span<const Option> options);

// A whole number within the bounds, in decimal digits; false for any other text.
bool ReadNumber(const char* text, int low, int high, int& number);
