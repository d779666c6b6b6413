#include "platform/random_file.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

#ifdef _WIN32

#include <io.h>
#include <windows.h>

// There directories cannot be opened in this way: access is denied.
int OpenRandomFile(const char* path) {
    const int file = _open(path, _O_RDONLY | _O_BINARY);
    const DWORD attributes = file < 0 ? GetFileAttributesA(path) : 0;
    if (file < 0 && attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        errno = ENOENT;
    return file;
}

void CloseRandomFile(int file) {
    _close(file);
}

int64_t RandomFileSize(int file) {
    return _lseeki64(file, 0, SEEK_END);
}

int64_t ReadFileAt(int file, uint64_t offset, void* buffer, size_t bytes) {
    if (_lseeki64(file, int64_t(offset), SEEK_SET) < 0)
        return -1;
    return _read(file, buffer, unsigned(bytes));
}

#else

#include <unistd.h>

// A pipe without a writer would be waited for when it is opened, were it not for O_NONBLOCK.
int OpenRandomFile(const char* path) {
    const int file = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return NO_FILE;
    struct stat status;
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode))
        return file;
    close(file);
    errno = ENOENT;
    return NO_FILE;
}

void CloseRandomFile(int file) {
    close(file);
}

int64_t RandomFileSize(int file) {
    return lseek(file, 0, SEEK_END);
}

int64_t ReadFileAt(int file, uint64_t offset, void* buffer, size_t bytes) {
    ssize_t read = 0;
    do
        read = pread(file, buffer, bytes, off_t(offset));
    while (read < 0 && errno == EINTR);
    return read;
}

#endif
