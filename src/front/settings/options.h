// The one table of what the user may set: in the settings file, as a UCI option, or in both ways.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string>

// What is set: a number or the number that a word stands for, and the rest of the line from there.
struct OptionValue {
    int32_t number;
    std::string text;
};

struct OptionWord {
    const char* word;
    int32_t number;
};

enum class OptionKind {
    NUMBER,
    MEGABYTES, // of a table
    EXPONENT,  // of the power of two that a table's size is
    WORD,      // one of a few words
    PATH,      // the rest of the line
    BUTTON,    // no value; "Hash" is the second word of its name
    TEXT,      // only to be read
};

struct Option {
    const char* key = nullptr;      // in the settings file; null: it cannot be set there
    const char* otherKey = nullptr; // another spelling of it
    const char* uciName = nullptr;  // null: it is no UCI option
    bool modern = false;            // only the modern interface has it as a UCI option
    int announced = 0;              // its place in the list that UCI asks for, from 1 on
    const char* offered = nullptr;  // what that list calls the default; null: the value in force
    OptionKind kind = OptionKind::NUMBER;
    std::span<const OptionWord> words = {}; // the first that matches counts
    int32_t initial = 0;                    // the value at start, of numbers, exponents and words
    // Bounds, which hold for the settings file and are advice for UCI. A number outside is cut to
    // them, a size falls back to `fallback`; both with a warning that calls the option `warned`.
    // Null: there are none.
    const char* warned = nullptr;
    int32_t least = std::numeric_limits<int32_t>::min();
    int32_t most = std::numeric_limits<int32_t>::max();
    int32_t unit = 1; // bytes an entry, of a size in megabytes
    int32_t fallback = 0;
    int32_t (*get)() = nullptr;
    // Before the tables are made; sizes come in entries or bytes.
    void (*set)(const OptionValue& value) = nullptr;
    // In a running engine, sizes as they were given; null: the same as before.
    void (*setRunning)(const OptionValue& value) = nullptr;
    const char* label = nullptr; // of its line in the summary
    void (*print)() = nullptr;   // lines of its own in the summary
};

// What the interface may be called: 0 is the classic one, 1 the modern one.
inline constexpr OptionWord InterfaceWords[] = {{"classic", 0}, {"modern", 1}};

// All options. Their order is that of the summary, and the one in which keys and names are tried:
// keys in megabytes begin with the names of the plain keys, so they come before them; a beginning
// of an option's name will do, and means the first that has it.
std::span<const Option> Options();

// Searches tablebases in those directories from now on.
void NameTablebases(const std::string& path);

// Gives every option its value at start.
void SetDefaultSettings();
