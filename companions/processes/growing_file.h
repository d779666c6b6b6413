// A file of lines that grows, whatever stops the program in between.
//
// Each text is written by one call of the system. What a cut in the power leaves of the last one
// ends somewhere in a line; that line goes when the file is opened again.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// What kind of file it is, so that no other one is written to.
struct FileKind {
    const char* name;                        // "file of labelled positions"
    bool (*beginsIt)(std::string_view line); // whether the first line can be one of it
};

class GrowingFile {
public:
    GrowingFile() = default;
    ~GrowingFile();
    GrowingFile(const GrowingFile&) = delete;
    GrowingFile& operator=(const GrowingFile&) = delete;

    // Opens the file, or makes one, to be appended to by nobody else meanwhile, and cuts half a
    // line off its end. False, with a message, when that fails or it is another kind of file.
    bool Open(const std::string& name, const FileKind& kind);

    // Shows every line without its end, with its place in the file. False, with a message, when
    // it cannot be read.
    using Visitor = std::function<void(std::string_view line, int64_t place)>;
    bool ForEachLine(const Visitor& visit) const;

    // Drops what stands from that place on.
    bool CutAt(int64_t place);

    // Writes the text behind all others, whole: where that fails, on a full disk say, nothing of it
    // stays. False, with a message, then.
    bool Append(std::string_view text);

private:
    bool Complain(const char* what) const;
    bool CutHalfLine();
    bool IsOurs(const FileKind& kind) const;

    std::string path;
    int file = -1;
    int64_t size = 0;
};
