#include "platform/drives.h"

static bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool HasDriveLetter(const std::string& path) {
    return path.size() > 1 && path[1] == ':' && IsLetter(path[0]);
}

#ifdef _WIN32

#include <windows.h>

namespace {

constexpr int LETTERS = 26;

enum Answer : char { NOT_ASKED, THERE, MISSING };
constinit Answer Answers[LETTERS] = {};

} // namespace

static bool RootIsReadable(int drive) {
    const char pattern[] = {char('a' + drive), ':', '\\', '*', '\0'};
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(pattern, &found);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    FindClose(search);
    return true;
}

bool DriveExists(char letter) {
    if (!IsLetter(letter))
        return false;
    const int drive = (letter | 0x20) - 'a';
    if ((GetLogicalDrives() >> drive & 1) == 0)
        return false;
    if (Answers[drive] == NOT_ASKED)
        Answers[drive] = RootIsReadable(drive) ? THERE : MISSING;
    return Answers[drive] == THERE;
}

std::string DriveDirectory(char) {
    return "";
}

#else

#include <cstdlib>

std::string DriveDirectory(char letter) {
    const char upper = letter >= 'a' && letter <= 'z' ? char(letter - 'a' + 'A') : letter;
    const char* const directory = std::getenv((std::string("TARQUELIN_DRIVE_") + upper).c_str());
    return directory == nullptr ? "" : directory;
}

bool DriveExists(char letter) {
    return !DriveDirectory(letter).empty();
}

#endif
