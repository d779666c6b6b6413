#include "companions/shared/text_lines.h"

#include <cerrno>
#include <cstring>

bool LineReader::Open(const char* path) {
    file = std::fopen(path, "rb");
    if (file == nullptr)
        std::fprintf(stderr, "%s: %s\n", path, std::strerror(errno));
    return file != nullptr;
}

LineReader::~LineReader() {
    if (file != nullptr)
        std::fclose(file);
}

bool LineReader::Next(std::string& line) {
    line.clear();
    int c = std::fgetc(file);
    if (c == EOF)
        return false;
    for (; c != EOF && c != '\n'; c = std::fgetc(file))
        line += char(c);
    whole = c == '\n';
    if (line.ends_with('\r'))
        line.pop_back();
    number++;
    return true;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}
