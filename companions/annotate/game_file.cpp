#include "game_file.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr size_t PIECE = 1 << 20; // read at once

// Of the checksum FNV-1a.
constexpr uint64_t CHECKSUM_START = 0xcbf29ce484222325;
constexpr uint64_t CHECKSUM_PRIME = 0x100000001b3;

constexpr std::string_view GAME_START = "[Event ";

// What some editors begin a file with. It belongs to no line.
constexpr std::string_view BYTE_ORDER_MARK = "\xef\xbb\xbf";

// Reads a file byte by byte and notes where games begin: with a tag behind moves, or with the first
// move behind a result.
class GameFinder {
public:
    explicit GameFinder(std::vector<GamePiece>& theGames) : games(theGames) {}

    void Take(char c) {
        if (atLineStart)
            lineBegin = place;
        const bool isMark = atLineStart && place < int64_t(BYTE_ORDER_MARK.size()) &&
                            c == BYTE_ORDER_MARK[size_t(place)];
        if (!isMark)
            TakeInside(c);
        atLineStart = isMark || c == '\n';
        line += c == '\n' ? 1 : 0;
        place++;
    }
    void End() {
        EndWord();
        if (place == 0)
            return;
        if (games.empty())
            games.push_back({0, 0, 1});
        games.back().size = place - games.back().begin;
        games.front().size += games.front().begin;
        games.front().begin = 0;
    }

private:
    enum Inside { TEXT, TAG, COMMENT, LINE };

    // Whether the line so far is the beginning of a game's first tag: all that ends a comment which
    // nobody has closed.
    bool CompletesGameStart(char c) {
        if (atLineStart)
            matched = 0;
        else if (matched < 0)
            return false;
        matched = c == GAME_START[size_t(matched)] ? matched + 1 : -1;
        if (matched != int(GAME_START.size()))
            return false;
        matched = -1;
        return true;
    }

    void TakeInside(char c) {
        switch (inside) {
        case TAG:
            // A tag ends with its line at the latest, and a bracket in its value with the value.
            quoted ^= c == '"' && last != '\\';
            if ((c == ']' && !quoted) || c == '\n')
                inside = TEXT;
            break;
        case COMMENT:
            if (c == '}') {
                inside = TEXT;
            } else if (CompletesGameStart(c)) {
                BeginGame(lineBegin);
                quoted = false;
                inside = TAG;
            }
            break;
        case LINE:
            if (c == '\n')
                inside = TEXT;
            break;
        case TEXT:
            TakeText(c);
            break;
        }
        last = c;
    }

    void TakeText(char c) {
        const bool startsLine = atLineStart;
        if (IsWordCharacter(c)) {
            if (wordLength == 0)
                wordBegin = place;
            if (wordLength < int(word.size()))
                word[size_t(wordLength)] = c;
            wordLength++;
            return;
        }
        EndWord();
        if (c == '[' && startsLine) {
            if (moved || games.empty())
                BeginGame(place);
            inside = TAG;
            quoted = false;
        } else if (c == '{') {
            inside = COMMENT;
            matched = -1;
        } else if (c == ';' || (c == '%' && startsLine)) {
            inside = LINE;
        } else if (c == '(') {
            depth++;
        } else if (c == ')') {
            depth--;
        }
    }

    static bool IsWordCharacter(char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '-' || c == '/' || c == '*';
    }

    void EndWord() {
        if (wordLength == 0)
            return;
        const std::string_view text(word.data(), size_t(std::min(wordLength, int(word.size()))));
        const bool isResult =
            text == "1-0" || text == "0-1" || text == "1/2-1/2" || text == "1/2" || text == "*";
        wordLength = 0;
        if (ended || games.empty()) {
            // A game goes on behind a result where its numbers do; a second result is a game.
            if (games.empty() || isResult || text == "1")
                BeginGame(wordBegin);
            ended = false;
        }
        moved = true;
        if (isResult && depth <= 0)
            ended = true;
    }

    void BeginGame(int64_t begin) {
        if (!games.empty())
            games.back().size = begin - games.back().begin;
        games.push_back({begin, 0, line});
        moved = ended = false;
        depth = 0;
    }

    std::vector<GamePiece>& games;
    Inside inside = TEXT;
    int64_t place = 0;
    int64_t line = 1;
    int64_t lineBegin = 0;
    int64_t wordBegin = 0;
    std::array<char, 8> word = {};
    int wordLength = 0;
    int depth = 0;    // of variations
    int matched = -1; // of the beginning of a game's first tag; -1 when the line is another
    char last = '\0';
    bool atLineStart = true;
    bool quoted = false;
    bool moved = false; // words have come behind the tags
    bool ended = false; // the last word was a result
};

} // namespace

GameFile::~GameFile() {
    if (file >= 0)
        close(file);
}

bool GameFile::Open(const std::string& path) {
    file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    GameFinder finder(games);
    fingerprint = CHECKSUM_START;
    std::vector<char> piece(PIECE);
    ssize_t got = file < 0 ? -1 : 1;
    for (int64_t place = 0; got > 0; place += got) {
        got = pread(file, piece.data(), piece.size(), place);
        for (ssize_t i = 0; i < got; i++) {
            const char c = piece[size_t(i)];
            finder.Take(c);
            fingerprint = (fingerprint ^ static_cast<unsigned char>(c)) * CHECKSUM_PRIME;
        }
    }
    if (got < 0) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), std::strerror(errno));
        return false;
    }
    finder.End();
    return true;
}

std::string GameFile::Text(const GamePiece& game) const {
    std::string text(size_t(game.size), '\0');
    size_t got = 0;
    while (got < text.size()) {
        const ssize_t more =
            pread(file, text.data() + got, text.size() - got, game.begin + int64_t(got));
        if (more <= 0)
            return {};
        got += size_t(more);
    }
    return text;
}
