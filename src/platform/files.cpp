#include "platform/files.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/drives.h"
#include "platform/file_writer.h"

#ifdef _WIN32

#include <io.h>
#include <sys/stat.h>

// Names need no help here.
static std::string FileFor(const char* path) {
    return path;
}

static FILE* OpenRegular(const std::string& path, const char* mode) {
    FILE* const file = std::fopen(path.c_str(), mode);
    struct _stat64 status;
    if (file == nullptr ||
        (_fstat64(_fileno(file), &status) == 0 && (status.st_mode & _S_IFMT) == _S_IFREG))
        return file;
    std::fclose(file);
    return nullptr;
}

std::string FindPath(const std::string& name) {
    return name;
}

bool SeekFile(FILE* file, uint64_t offset) {
    return offset <= INT64_MAX && _fseeki64(file, int64_t(offset), SEEK_SET) == 0;
}

uint64_t SeekEnd(FILE* file) {
    if (_fseeki64(file, 0, SEEK_END) != 0)
        return 0;
    return uint64_t(std::max<int64_t>(_ftelli64(file), 0));
}

#else

namespace fs = std::filesystem;

// No system here takes a longer path. Looking for one component by component would take minutes
// when a line of a megabyte is given for a name.
static constexpr size_t LONGEST_PATH = 4096;

static char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

static bool SameName(const std::string& a, const std::string& b) {
    return std::ranges::equal(a, b, {}, Lower, Lower);
}

// The entry of the directory that has that name but for letter case, or the name itself. Among
// several the first by its bytes, so that the choice does not hang on the order in the directory.
static fs::path FindEntry(const fs::path& directory, const std::string& name) {
    std::error_code error;
    if (name == ".." || fs::exists(directory / name, error))
        return directory / name;
    std::string found;
    const fs::path listed = directory.empty() ? fs::path(".") : directory;
    for (fs::directory_iterator entry(listed, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string candidate = entry->path().filename().string();
        if (SameName(candidate, name) && (found.empty() || candidate < found))
            found = candidate;
    }
    return directory / (found.empty() ? name : found);
}

// The file that a name with Windows manners means, component by component, from the directory on.
static fs::path Resolve(fs::path found, const std::string& path) {
    size_t begin = 0;
    while (begin < path.size()) {
        const size_t end = std::min(path.find_first_of("\\/", begin), path.size());
        const std::string name = path.substr(begin, end - begin);
        if (!name.empty() && name != ".")
            found = FindEntry(found, name);
        begin = end + 1;
    }
    return found;
}

static fs::path ResolveWithoutDrive(const std::string& path) {
    const bool fromRoot = path.starts_with('\\') || path.starts_with('/');
    return Resolve(fromRoot ? "/" : "", path);
}

// The literal name where it exists. Else one on a drive is looked for in the drive's directory,
// where new files are created as well; another one that nothing is found for is created as it
// stands.
static std::string FileFor(const char* path) {
    std::error_code error;
    if (std::strlen(path) > LONGEST_PATH || fs::exists(path, error))
        return path;
    if (HasDriveLetter(path)) {
        const std::string directory = DriveDirectory(path[0]);
        return directory.empty() ? path : Resolve(directory, path + 2).string();
    }
    const fs::path resolved = ResolveWithoutDrive(path);
    return fs::is_regular_file(resolved, error) ? resolved.string() : path;
}

static FILE* OpenRegular(const std::string& path, const char* mode) {
    return IsPlaceOfFile(path) ? std::fopen(path.c_str(), mode) : nullptr;
}

// The same for a directory, which is never created.
std::string FindPath(const std::string& name) {
    std::error_code error;
    if (name.empty() || name.size() > LONGEST_PATH || fs::exists(name, error))
        return name;
    if (HasDriveLetter(name)) {
        const std::string directory = DriveDirectory(name[0]);
        return directory.empty() ? name : Resolve(directory, name.substr(2)).string();
    }
    const fs::path resolved = ResolveWithoutDrive(name);
    return resolved.empty() ? "." : resolved.string();
}

bool SeekFile(FILE* file, uint64_t offset) {
    return offset <= INT64_MAX && fseeko(file, off_t(offset), SEEK_SET) == 0;
}

uint64_t SeekEnd(FILE* file) {
    if (fseeko(file, 0, SEEK_END) != 0)
        return 0;
    return uint64_t(std::max<off_t>(ftello(file), 0));
}

#endif

FILE* OpenFile(const char* path, const char* mode) {
    return OpenRegular(FileFor(path), mode);
}

bool ReplaceWholeFile(const char* path, const std::string& bytes) {
    FileWriter file(FileFor(path));
    file.Write({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
    return !file.Finish();
}
