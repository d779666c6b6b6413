#include "platform/directory.h"

#include <algorithm>

#include "platform/files.h"

static std::string LowerCase(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z')
            c = char(c - 'A' + 'a');
    }
    return text;
}

static bool EndsInSeparator(const std::string& path) {
    return !path.empty() && (path.back() == '\\' || path.back() == '/');
}

static void AddFile(FilesByName& files, const std::string& directory, const std::string& name) {
    const std::string path = directory + name;
    const std::string key = LowerCase(name);
    const auto [entry, added] = files.emplace(key, path);
    if (!added && entry->second != directory + key && (name == key || path < entry->second))
        entry->second = path;
}

#ifdef _WIN32

#include <windows.h>

FilesByName ListDirectory(const std::string& name) {
    FilesByName files;
    const std::string directory = EndsInSeparator(name) ? name : name + "\\";
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((directory + "*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return files;
    do
        AddFile(files, directory, found.cFileName);
    while (FindNextFileA(search, &found));
    FindClose(search);
    return files;
}

#else

#include <dirent.h>

FilesByName ListDirectory(const std::string& name) {
    FilesByName files;
    const std::string found = FindPath(name);
    const std::string directory = EndsInSeparator(found) ? found : found + "/";
    DIR* const listing = opendir(directory.c_str());
    if (listing == nullptr)
        return files;
    while (const dirent* const entry = readdir(listing))
        AddFile(files, directory, entry->d_name);
    closedir(listing);
    return files;
}

#endif
