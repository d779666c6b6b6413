#include "platform/directory.h"

#include <unistd.h>

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

static void AddFile(DirectoryFiles& files, const std::string& name) {
    const std::string path = files.directory + name;
    const std::string key = LowerCase(name);
    const auto [entry, added] = files.byName.emplace(key, path);
    if (!added && entry->second != files.directory + key && (name == key || path < entry->second))
        entry->second = path;
}

std::string PathOfFile(const DirectoryFiles& files, const std::string& name) {
    if (files.secret) {
        const std::string path = files.directory + name;
        return access(path.c_str(), F_OK) == 0 ? path : "";
    }
    const auto found = files.byName.find(name);
    return found == files.byName.end() ? "" : found->second;
}

#ifdef _WIN32

#include <windows.h>

DirectoryFiles ListDirectory(const std::string& name) {
    DirectoryFiles files = {EndsInSeparator(name) ? name : name + "\\", false, {}};
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((files.directory + "*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        files.secret = GetLastError() == ERROR_ACCESS_DENIED;
        return files;
    }
    do
        AddFile(files, found.cFileName);
    while (FindNextFileA(search, &found));
    FindClose(search);
    return files;
}

#else

#include <cerrno>
#include <dirent.h>

DirectoryFiles ListDirectory(const std::string& name) {
    const std::string found = FindPath(name);
    DirectoryFiles files = {EndsInSeparator(found) ? found : found + "/", false, {}};
    DIR* const listing = opendir(files.directory.c_str());
    if (listing == nullptr) {
        files.secret = errno == EACCES;
        return files;
    }
    while (const dirent* const entry = readdir(listing))
        AddFile(files, entry->d_name);
    closedir(listing);
    return files;
}

#endif
