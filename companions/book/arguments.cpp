#include "arguments.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>

static const Option* FindOption(std::span<const Option> options, const char* name) {
    const auto found = std::ranges::find_if(
        options, [name](const Option& option) { return std::strcmp(option.name, name) == 0; });
    return found == options.end() ? nullptr : &*found;
}

bool ReadArguments(std::span<const char* const> words, std::span<const Option> options,
                   Files& files) {
    for (size_t i = 0; i < words.size(); i++) {
        if (std::strncmp(words[i], "--", 2) != 0) {
            files.push_back(words[i]);
            continue;
        }
        const Option* const option = FindOption(options, words[i]);
        if (option == nullptr) {
            std::fprintf(stderr, "There is no option %s\n", words[i]);
            return false;
        }
        const bool isSwitch = option->value == nullptr;
        if (!isSwitch && i + 1 == words.size()) {
            std::fprintf(stderr, "%s needs a value\n", option->name);
            return false;
        }
        if (!option->take(isSwitch ? nullptr : words[++i])) {
            std::fprintf(stderr, "%s cannot be %s\n", option->name, words[i]);
            return false;
        }
    }
    return true;
}

void PrintOptions(std::span<const Option> options) {
    for (const Option& option : options) {
        std::string text = option.name;
        if (option.value != nullptr)
            text += std::string(" ") + option.value;
        std::printf("  %-26s %s\n", text.c_str(), option.help);
    }
}

bool ReadNumber(const char* text, int low, int high, int& number) {
    const char* const end = text + std::strlen(text);
    int value = 0;
    const auto [stopped, error] = std::from_chars(text, end, value);
    if (error != std::errc() || stopped != end || value < low || value > high)
        return false;
    number = value;
    return true;
}
