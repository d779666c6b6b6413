#include "companions/processes/growing_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr size_t PIECE = 1 << 20; // read at once

} // namespace

GrowingFile::~GrowingFile() {
    if (file >= 0)
        close(file);
}

// Always false.
bool GrowingFile::Complain(const char* what) const {
    std::fprintf(stderr, "Cannot %s %s: %s\n", what, path.c_str(), std::strerror(errno));
    return false;
}

bool GrowingFile::Open(const std::string& name, const FileKind& kind) {
    path = name;
    file = open(name.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    struct stat status = {};
    if (file < 0 || fstat(file, &status) != 0)
        return Complain("open");
    // Not handed down to other processes, which may live a little longer than this one.
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    if (fcntl(file, F_SETLK, &whole) != 0 && (errno == EACCES || errno == EAGAIN)) {
        std::fprintf(stderr, "%s: another program is writing to it\n", path.c_str());
        return false;
    }
    size = status.st_size;
    if (size == 0)
        return true;
    if (!IsOurs(kind)) {
        std::fprintf(stderr, "%s: this is no %s\n", path.c_str(), kind.name);
        return false;
    }
    return CutHalfLine();
}

bool GrowingFile::IsOurs(const FileKind& kind) const {
    char text[256];
    const ssize_t got = pread(file, text, sizeof text, 0);
    const std::string_view begin(text, size_t(std::max<ssize_t>(got, 0)));
    const size_t end = begin.find('\n');
    return end != std::string_view::npos && kind.beginsIt(begin.substr(0, end));
}

bool GrowingFile::CutHalfLine() {
    int64_t end = size;
    for (char last = 0; end > 0; end--) {
        if (pread(file, &last, 1, end - 1) != 1)
            return Complain("read");
        if (last == '\n')
            break;
    }
    return end == size || CutAt(end);
}

bool GrowingFile::CutAt(int64_t place) {
    if (ftruncate(file, place) != 0)
        return Complain("shorten");
    size = place;
    return true;
}

bool GrowingFile::ForEachLine(const Visitor& visit) const {
    std::vector<char> piece(PIECE);
    std::string begun; // the part of a line in the pieces before
    int64_t place = 0; // of the line
    for (int64_t read = 0; read < size;) {
        const ssize_t got = pread(file, piece.data(), piece.size(), read);
        if (got <= 0)
            return Complain("read");
        read += got;
        std::string_view rest(piece.data(), size_t(got));
        for (size_t end; (end = rest.find('\n')) != std::string_view::npos;
             rest.remove_prefix(end + 1)) {
            begun += rest.substr(0, end);
            visit(begun, place);
            place += int64_t(begun.size()) + 1;
            begun.clear();
        }
        begun += rest;
    }
    return true;
}

bool GrowingFile::Append(std::string_view text) {
    if (text.empty())
        return true;
    ssize_t written = 0;
    do
        written = write(file, text.data(), text.size());
    while (written < 0 && errno == EINTR);
    if (written == ssize_t(text.size())) {
        size += written;
        return true;
    }
    // The rest does not fit; asking once more tells why.
    if (written >= 0 && write(file, text.data() + written, text.size() - size_t(written)) >= 0)
        errno = EIO;
    const int reason = errno;
    if (ftruncate(file, size) != 0) {
        // What stands there will be cut off when the file is opened next.
    }
    errno = reason;
    return Complain("write");
}
