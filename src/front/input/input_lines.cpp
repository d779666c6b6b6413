#include "front/input/input_lines.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/input.h"
#include "platform/standard_streams.h"

namespace {

constexpr int READ_SIZE = 4096;
// Reads in one look for a line: a megabyte, so that a sender of endless lines delays a search but
// does not stop it.
constexpr int READS_PER_LOOK = 256;

// What was read and not yet taken. Only bytes from `TakenUpTo` on count; the head is dropped when
// it has grown large, so that many short lines in one burst cost no copying.
constinit std::vector<char> Buffer;
constinit size_t TakenUpTo = 0;
// No line feed stands before this place: endless lines are not searched again and again.
constinit size_t SearchedUpTo = 0;
// The last read has met the end of input. A terminal may go on after it.
constinit bool InputEnded = false;
// One stream without its other end is enough.
constinit bool EitherStreamEnds = false;

} // namespace

void EndWithEitherStream(bool wanted) {
    EitherStreamEnds = wanted;
}

static bool ReaderIsMissed() {
    return EitherStreamEnds && OutputHungUp();
}

bool InputTellsSomething() {
    return StandardInputWaiting() != 0 || ReaderIsMissed();
}

// Reads once and appends to the buffer, waiting until there is something. False at the end of
// input.
static bool ReadInput() {
    char chunk[READ_SIZE];
    if (EitherStreamEnds)
        AwaitInputOrHangup();
    const int count = ReaderIsMissed() ? 0 : ReadStandardInput(chunk, READ_SIZE);
    InputEnded = count == 0;
    if (InputEnded)
        return false;
    if (TakenUpTo > READ_SIZE) {
        Buffer.erase(Buffer.begin(), Buffer.begin() + std::ptrdiff_t(TakenUpTo));
        SearchedUpTo -= TakenUpTo;
        TakenUpTo = 0;
    }
    Buffer.insert(Buffer.end(), chunk, chunk + count);
    return true;
}

bool LineWaiting() {
    const auto end = std::find(Buffer.begin() + std::ptrdiff_t(SearchedUpTo), Buffer.end(), '\n');
    SearchedUpTo = size_t(end - Buffer.begin());
    return end != Buffer.end();
}

bool ReadWaitingInput() {
    for (int i = 0; i < READS_PER_LOOK && !LineWaiting() && InputTellsSomething(); i++) {
        if (!ReadInput())
            return false;
    }
    return true;
}

bool PeekLine(std::string& line) {
    if (!LineWaiting())
        return false;
    const char* const begin = Buffer.data() + TakenUpTo;
    size_t length = SearchedUpTo - TakenUpTo;
    // A carriage return right before the line feed belongs to the line end.
    if (length > 0 && begin[length - 1] == '\r')
        length--;
    line.assign(begin, strnlen(begin, length));
    if (const size_t carriageReturn = line.find('\r'); carriageReturn != std::string::npos)
        line[carriageReturn] = ' ';
    return true;
}

void DropLine() {
    if (LineWaiting())
        TakenUpTo = ++SearchedUpTo;
}

bool WaitForLine() {
    while (!LineWaiting()) {
        if (!ReadInput())
            return false;
    }
    return true;
}

bool NextLine(std::string& line) {
    if (!WaitForLine() || !PeekLine(line))
        return false;
    DropLine();
    return true;
}

bool Abandoned() {
    return InputEnded && (EitherStreamEnds || OutputAbandoned());
}

int NextCharacter() {
    while (TakenUpTo == Buffer.size()) {
        if (!ReadInput())
            return -1;
    }
    const int character = static_cast<unsigned char>(Buffer[TakenUpTo]);
    TakenUpTo++;
    if (SearchedUpTo < TakenUpTo)
        SearchedUpTo = TakenUpTo;
    return character;
}
