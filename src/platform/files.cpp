#include "platform/files.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

static bool IsDirectory(const char* path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

#ifdef _WIN32

FILE* OpenFile(const char* path, const char* mode) {
    return IsDirectory(path) ? nullptr : std::fopen(path, mode);
}

#else

static char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

static bool SameName(const std::string& a, const std::string& b) {
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); i++) {
        if (Lower(a[i]) != Lower(b[i]))
            return false;
    }
    return true;
}

// The entry of the directory that has that name but for letter case, or the name itself.
static fs::path FindEntry(const fs::path& directory, const std::string& name) {
    std::error_code error;
    if (name == ".." || fs::exists(directory / name, error))
        return directory / name;
    const fs::path listed = directory.empty() ? fs::path(".") : directory;
    for (fs::directory_iterator entry(listed, error), end; !error && entry != end;
         entry.increment(error)) {
        if (SameName(entry->path().filename().string(), name))
            return directory / entry->path().filename();
    }
    return directory / name;
}

// The file that a name with Windows manners means, component by component.
static fs::path Resolve(const char* path) {
    const std::string text = path;
    fs::path found = text[0] == '\\' || text[0] == '/' ? fs::path("/") : fs::path();
    size_t begin = 0;
    while (begin < text.size()) {
        const size_t end = std::min(text.find_first_of("\\/", begin), text.size());
        const std::string name = text.substr(begin, end - begin);
        if (!name.empty() && name != ".")
            found = FindEntry(found, name);
        begin = end + 1;
    }
    return found;
}

FILE* OpenFile(const char* path, const char* mode) {
    if (path[0] == '\0' || IsDirectory(path))
        return nullptr;
    if (FILE* const literal = std::fopen(path, mode))
        return literal;
    // A drive letter names something only where there are drives.
    if (path[1] == ':')
        return nullptr;
    const fs::path resolved = Resolve(path);
    std::error_code error;
    if (!fs::is_regular_file(resolved, error))
        return nullptr;
    return std::fopen(resolved.c_str(), mode);
}

#endif
