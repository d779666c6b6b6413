// Text files read line by line.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

class LineReader {
public:
    // False, with a message, when the file cannot be opened.
    bool Open(const char* path);
    // The next line without its line end; false at the end of the file.
    bool Next(std::string& line);
    // Whether the last line had a line end: at the end of a file that is being written it may be
    // half a line.
    bool IsWhole() const {
        return whole;
    }
    // Of the last line, from 1.
    int Number() const {
        return number;
    }
    LineReader() = default;
    ~LineReader();
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

private:
    FILE* file = nullptr;
    int number = 0;
    bool whole = false;
};

// The parts between the separators, one more than there are separators.
std::vector<std::string_view> Split(std::string_view text, char separator);
