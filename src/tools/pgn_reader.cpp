#include "tools/pgn_reader.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "platform/files.h"

namespace {

constexpr int NOTHING = -1;
// So much of the text can be looked at ahead.
constexpr size_t LOOKAHEAD = 64;

// The first tag of every game; the only text that ends an unclosed comment or variation.
constexpr std::string_view GAME_START = "[Event ";

// Annotations in words.
constexpr std::string_view Remarks[] = {"ep", "ch", "mate", "dbl", "dis", "TN"};

// Any text of a result begins with one of these, whatever is behind the hyphen or slash.
constexpr std::string_view Results[] = {"1-0", "0-1", "1/2", "*"};
constexpr std::string_view ResultCharacters = "012/-*";

} // namespace

// Reads on behind what is left, which moves to the front with the character before it.
static void Refill(PgnReader& reader) {
    const size_t first = reader.next - 1;
    std::memmove(reader.buffer, reader.buffer + first, reader.end - first);
    reader.end -= first;
    reader.next = 1;
    reader.end +=
        std::fread(reader.buffer + reader.end, 1, PGN_BUFFER_SIZE - reader.end, reader.file);
}

// The rest of the text, at least so much of it as can be looked at ahead unless it ends before.
static std::string_view TextAhead(PgnReader& reader) {
    if (reader.end - reader.next < LOOKAHEAD)
        Refill(reader);
    return {reader.buffer + reader.next, reader.end - reader.next};
}

static int Peek(PgnReader& reader) {
    if (reader.next == reader.end)
        Refill(reader);
    return reader.next < reader.end ? static_cast<unsigned char>(reader.buffer[reader.next])
                                    : NOTHING;
}

static bool AtLineStart(const PgnReader& reader) {
    return reader.buffer[reader.next - 1] == '\n' || reader.buffer[reader.next - 1] == '\r';
}

static bool AtNextGame(PgnReader& reader) {
    return AtLineStart(reader) && TextAhead(reader).starts_with(GAME_START);
}

static bool IsLineEnd(int c) {
    return c == '\n' || c == '\r';
}

static bool IsBlank(int c) {
    return c == ' ' || c == '\t' || c == '\v' || c == '\f';
}

static void SkipLine(PgnReader& reader) {
    while (Peek(reader) != NOTHING && !IsLineEnd(Peek(reader)))
        reader.next++;
}

static void SkipBlanks(PgnReader& reader) {
    while (IsBlank(Peek(reader)))
        reader.next++;
}

bool PgnOpen(PgnReader& reader, const char* path) {
    reader.file = OpenFile(path, "rb");
    if (reader.file == nullptr)
        return false;
    // The reader buffers for itself.
    std::setvbuf(reader.file, nullptr, _IONBF, 0);
    reader.buffer[0] = '\n';
    reader.next = reader.end = 1;
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    if (TextAhead(reader).starts_with(byteOrderMark)) {
        reader.next += byteOrderMark.size();
        reader.buffer[reader.next - 1] = '\n';
    }
    return true;
}

void PgnClose(PgnReader& reader) {
    if (reader.file != nullptr)
        std::fclose(reader.file);
    reader.file = nullptr;
}

bool PgnSkipSpace(PgnReader& reader) {
    for (int c = Peek(reader); c != NOTHING; c = Peek(reader)) {
        if (c == '%' && AtLineStart(reader))
            SkipLine(reader);
        else if (IsBlank(c) || IsLineEnd(c))
            reader.next++;
        else
            return true;
    }
    return false;
}

bool PgnAtTag(PgnReader& reader) {
    return Peek(reader) == '[';
}

static PgnTagEnd WhatFollowsTheTag(PgnReader& reader) {
    if (!PgnSkipSpace(reader))
        return PgnTagEnd::END_OF_FILE;
    return PgnAtTag(reader) ? PgnTagEnd::ANOTHER_TAG : PgnTagEnd::MOVES;
}

static bool EndsTag(int c) {
    return c == NOTHING || c == ']' || IsLineEnd(c);
}

static void ReadName(PgnReader& reader, PgnTag& tag) {
    size_t length = 0;
    for (int c = Peek(reader); !EndsTag(c) && !IsBlank(c); c = Peek(reader)) {
        if (length < PGN_NAME_LENGTH)
            tag.name[length++] = char(c);
        reader.next++;
    }
    tag.name[length] = '\0';
}

// Inside quotes a bracket is a character like others, and a backslash makes a quote one.
static void ReadValue(PgnReader& reader, PgnTag& tag) {
    size_t length = 0;
    SkipBlanks(reader);
    const bool quoted = Peek(reader) == '"';
    if (quoted)
        reader.next++;
    for (int c = Peek(reader); c != NOTHING && !IsLineEnd(c); c = Peek(reader)) {
        if (c == (quoted ? '"' : ']'))
            break;
        reader.next++;
        if (quoted && c == '\\' && (Peek(reader) == '"' || Peek(reader) == '\\')) {
            c = Peek(reader);
            reader.next++;
        }
        if (length < PGN_VALUE_LENGTH)
            tag.value[length++] = char(c);
    }
    tag.value[length] = '\0';
}

PgnTagEnd PgnReadTag(PgnReader& reader, PgnTag& tag) {
    tag.name[0] = tag.value[0] = '\0';
    if (Peek(reader) == '[')
        reader.next++;
    SkipBlanks(reader);
    ReadName(reader, tag);
    if (Peek(reader) == ']') {
        reader.next++;
        return PgnSkipSpace(reader) ? PgnTagEnd::MOVES : PgnTagEnd::END_OF_FILE;
    }
    ReadValue(reader, tag);
    while (!EndsTag(Peek(reader)))
        reader.next++;
    if (Peek(reader) == ']')
        reader.next++;
    return WhatFollowsTheTag(reader);
}

// Passes over the comment that begins with the next character, "{", up to its "}". A comment that
// nobody has closed ends before the next game.
static void PgnSkipComment(PgnReader& reader) {
    reader.next++;
    while (Peek(reader) != NOTHING && !AtNextGame(reader)) {
        const char* const from = reader.buffer + reader.next;
        const char* const until = reader.buffer + reader.end;
        const char* const stop =
            std::find_if(from, until, [](char c) { return c == '}' || IsLineEnd(c); });
        reader.next = size_t(stop - reader.buffer);
        if (stop == until)
            continue;
        reader.next++;
        if (*stop == '}')
            return;
    }
}

// Passes over a variation with those inside it.
static void SkipVariation(PgnReader& reader) {
    int depth = 0;
    for (int c = Peek(reader); c != NOTHING && !AtNextGame(reader); c = Peek(reader)) {
        if (c == '{') {
            PgnSkipComment(reader);
            continue;
        }
        if (c == ';' || (c == '%' && AtLineStart(reader))) {
            SkipLine(reader);
            continue;
        }
        reader.next++;
        if (c == '(')
            depth++;
        if (c == ')' && --depth == 0)
            return;
    }
}

static bool IsDigit(int c) {
    return c >= '0' && c <= '9';
}

static bool IsLetter(int c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

static bool IsWordCharacter(char c) {
    return IsLetter(c) || IsDigit(c) || c == '-' || c == '=' || c == ':';
}

// Passes over all that is no word of the game. False where there is nothing more of this game.
static bool SkipToWord(PgnReader& reader) {
    while (PgnSkipSpace(reader)) {
        const int c = Peek(reader);
        if (c == '[')
            return false;
        if (c == '{')
            PgnSkipComment(reader);
        else if (c == '(')
            SkipVariation(reader);
        else if (c == ';')
            SkipLine(reader);
        else if (IsLetter(c) || IsDigit(c) || c == '*' || TextAhead(reader).starts_with("--"))
            return true;
        else if (reader.next++; c == '$')
            while (IsDigit(Peek(reader)))
                reader.next++;
    }
    return false;
}

static bool BeginsResult(std::string_view text) {
    return std::ranges::any_of(Results, [&](std::string_view r) { return text.starts_with(r); });
}

// A word with a square in it, or castling.
static bool LooksLikeMove(std::string_view text) {
    const std::string_view word =
        text.substr(0, size_t(std::ranges::find_if_not(text, IsWordCharacter) - text.begin()));
    if (word.starts_with("O-O") || word.starts_with("o-o") || word.starts_with("0-0"))
        return true;
    for (size_t i = 1; i < std::min(word.size(), PGN_MOVE_LENGTH); i++) {
        if (word[i - 1] >= 'a' && word[i - 1] <= 'h' && word[i] >= '1' && word[i] <= '8')
            return true;
    }
    return false;
}

static void SkipWord(PgnReader& reader) {
    while (Peek(reader) != NOTHING && IsWordCharacter(char(Peek(reader))))
        reader.next++;
}

void PgnSkipToMoves(PgnReader& reader) {
    while (SkipToWord(reader)) {
        const std::string_view text = TextAhead(reader);
        if (!IsLetter(text[0]) || text.starts_with("Z0") || LooksLikeMove(text))
            return;
        SkipWord(reader);
    }
}

// Reads a word of letters and digits; whether it is more than a remark.
static bool ReadWord(PgnReader& reader, char (&text)[PGN_MOVE_LENGTH + 1]) {
    size_t length = 0;
    for (int c = Peek(reader); c != NOTHING && IsWordCharacter(char(c)); c = Peek(reader)) {
        if (length < PGN_MOVE_LENGTH)
            text[length++] = char(c);
        reader.next++;
    }
    text[length] = '\0';
    const std::string_view word(text, length);
    return length > 1 && std::ranges::find(Remarks, word) == std::end(Remarks);
}

// Whether the number that the text begins with is that of a game's first move.
static bool IsNumberOne(std::string_view text) {
    return text[0] == '1' && (text.size() == 1 || !IsDigit(text[1]));
}

PgnWord PgnReadMove(PgnReader& reader, char (&text)[PGN_MOVE_LENGTH + 1]) {
    bool afterResult = false;
    while (SkipToWord(reader)) {
        const std::string_view ahead = TextAhead(reader);
        if (BeginsResult(ahead)) {
            // A second result is that of another game, one without moves.
            if (afterResult)
                return PgnWord::END_OF_GAME;
            afterResult = true;
            while (Peek(reader) != NOTHING &&
                   ResultCharacters.find(char(Peek(reader))) != std::string_view::npos)
                reader.next++;
        } else if (IsDigit(ahead[0]) && !ahead.starts_with("0-0")) {
            if (afterResult && IsNumberOne(ahead))
                return PgnWord::END_OF_GAME;
            // Only a number tells that the game goes on behind a result.
            afterResult = false;
            while (IsDigit(Peek(reader)))
                reader.next++;
        } else if (afterResult) {
            return PgnWord::END_OF_GAME;
        } else if (ahead.starts_with("--") || ahead.starts_with("Z0")) {
            ahead.copy(text, 2);
            text[2] = '\0';
            reader.next += 2;
            return PgnWord::NULL_MOVE;
        } else if (ReadWord(reader, text)) {
            return PgnWord::MOVE;
        }
    }
    return PgnWord::END_OF_GAME;
}
