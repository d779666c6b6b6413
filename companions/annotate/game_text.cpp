#include "game_text.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::string_view Results[] = {"1-0", "0-1", "1/2-1/2", "1/2", "*"};

// Words that are no moves: remarks of old programs.
constexpr std::string_view OtherWords[] = {"ep", "e.p.", "ch", "mate", "dbl", "dis", "TN", "N"};

// The glyphs that judge a move, in the order of their numbers.
constexpr std::array<std::string_view, 6> Glyphs = {"!", "?", "!!", "??", "!?", "?!"};

class Scanner {
public:
    explicit Scanner(std::string_view theText) : text(theText) {}
    GameText TakeGame();

private:
    bool AtEnd() const {
        return at >= text.size();
    }
    char Here() const {
        return AtEnd() ? '\0' : text[at];
    }
    bool AtLineStart() const {
        return at == 0 || text[at - 1] == '\n' || text[at - 1] == '\r';
    }
    void Fail(const char* what, size_t place) {
        if (game.fault == nullptr) {
            game.fault = what;
            game.faultPlace = place;
        }
    }
    void SkipSpace();
    void SkipLine();
    void TakeTag();
    void TakeComment();
    void TakeLineComment();
    void TakeVariation();
    void TakeGlyph();
    void TakeWord();
    void TakeMove(Place word);
    void AddRemark(Remark::Kind kind, size_t begin);

    std::string_view text;
    size_t at = 0;
    size_t number = std::string_view::npos; // where the move number before the next move begins
    GameText game = {};
};

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsWordCharacter(char c) {
    return IsLetter(c) || IsDigit(c) || c == '-' || c == '=' || c == ':' || c == '/' || c == '*';
}

// The number of the glyph that the text begins with, 0 for none; "!?" before "!".
int GlyphAt(std::string_view text) {
    for (size_t i = Glyphs.size(); i-- > 0;) {
        if (text.starts_with(Glyphs[i]))
            return int(i) + 1;
    }
    return 0;
}

} // namespace

void Scanner::SkipSpace() {
    while (!AtEnd()) {
        if (Here() == '%' && AtLineStart())
            SkipLine();
        else if (IsSpace(Here()))
            at++;
        else
            return;
    }
}

// Up to the end of the line and over it.
void Scanner::SkipLine() {
    const size_t end = text.find('\n', at);
    at = end == std::string_view::npos ? text.size() : end + 1;
}

// Whatever is wrong with a tag, it ends with its line.
void Scanner::TakeTag() {
    const size_t begin = at++;
    while (Here() == ' ' || Here() == '\t')
        at++;
    GameTag tag;
    const size_t name = at;
    while (!AtEnd() && !IsSpace(Here()) && Here() != ']' && Here() != '"')
        at++;
    tag.name = text.substr(name, at - name);
    while (Here() == ' ' || Here() == '\t')
        at++;
    if (Here() != '"') {
        Fail("a tag without a value in quotes", begin);
        return SkipLine();
    }
    for (at++; !AtEnd() && Here() != '"' && Here() != '\n'; at++) {
        if (Here() == '\\' && at + 1 < text.size() && (text[at + 1] == '"' || text[at + 1] == '\\'))
            at++;
        tag.value += Here();
    }
    if (Here() != '"')
        Fail("a tag whose value does not end", begin);
    else
        at++;
    while (!AtEnd() && Here() != ']' && Here() != '\n')
        at++;
    at += Here() == ']' ? 1 : 0;
    game.tags.push_back(std::move(tag));
}

void Scanner::AddRemark(Remark::Kind kind, size_t begin) {
    const Remark remark = {kind, {begin, at}};
    if (game.moves.empty()) {
        game.preface.push_back(remark);
        return;
    }
    WrittenMove& move = game.moves.back();
    move.remarks.push_back(remark);
    move.end = at;
    if (kind == Remark::COMMENT && remark.place.In(text).find("[%eval ") != std::string_view::npos)
        move.evaluated = true;
}

void Scanner::TakeComment() {
    const size_t begin = at;
    const size_t end = text.find('}', at);
    if (end == std::string_view::npos) {
        Fail("a comment that does not end", begin);
        at = text.size();
        return;
    }
    at = end + 1;
    AddRemark(Remark::COMMENT, begin);
}

void Scanner::TakeLineComment() {
    const size_t begin = at;
    SkipLine();
    AddRemark(Remark::COMMENT, begin);
}

void Scanner::TakeVariation() {
    const size_t begin = at;
    int depth = 0;
    while (!AtEnd()) {
        const char c = Here();
        if (c == '{') {
            const size_t end = text.find('}', at);
            at = end == std::string_view::npos ? text.size() : end + 1;
            continue;
        }
        if (c == ';') {
            SkipLine();
            continue;
        }
        at++;
        depth += c == '(' ? 1 : c == ')' ? -1 : 0;
        if (depth == 0)
            return AddRemark(Remark::VARIATION, begin);
    }
    Fail("a variation that does not end", begin);
}

// "$4" or "??". Glyphs behind a comment still are those of the move, but an addition comes before
// the comment.
void Scanner::TakeGlyph() {
    int glyph = 0;
    if (Here() == '$') {
        for (at++; IsDigit(Here()); at++)
            glyph = std::min(glyph * 10 + (Here() - '0'), 1000);
    } else {
        glyph = GlyphAt(text.substr(at));
        at += glyph != 0 ? Glyphs[size_t(glyph - 1)].size() : 1;
    }
    if (game.moves.empty())
        return;
    WrittenMove& move = game.moves.back();
    if (glyph >= 1 && glyph <= int(Glyphs.size()))
        move.glyph = glyph;
    if (move.remarks.empty())
        move.marksEnd = at;
    move.end = at;
}

void Scanner::TakeMove(Place word) {
    WrittenMove move;
    move.word = word;
    move.numbered = number != std::string_view::npos;
    move.numberBegin = move.numbered ? number : word.begin;
    while (Here() == '+' || Here() == '#')
        at++;
    move.marksEnd = move.end = at;
    game.moves.push_back(std::move(move));
    number = std::string_view::npos;
}

void Scanner::TakeWord() {
    const size_t begin = at;
    while (IsWordCharacter(Here()))
        at++;
    const std::string_view word = text.substr(begin, at - begin);
    if (std::ranges::find(Results, word) != std::end(Results)) {
        game.result = word;
    } else if (IsDigit(word[0]) && !word.starts_with("0-0")) {
        // A move may stand right behind its number, without a point.
        at = begin;
        while (IsDigit(Here()))
            at++;
        while (Here() == '.')
            at++;
        number = begin;
    } else if (std::ranges::find(OtherWords, word) == std::end(OtherWords) && word.size() > 1) {
        TakeMove({begin, at});
    }
}

GameText Scanner::TakeGame() {
    for (SkipSpace(); !AtEnd(); SkipSpace()) {
        const char c = Here();
        if (c == '[' && game.moves.empty())
            TakeTag();
        else if (c == '{')
            TakeComment();
        else if (c == ';')
            TakeLineComment();
        else if (c == '(')
            TakeVariation();
        else if (c == '$' || c == '!' || c == '?')
            TakeGlyph();
        else if (IsLetter(c) || IsDigit(c) || c == '*' || text.substr(at).starts_with("--"))
            TakeWord();
        else
            at++;
    }
    return std::move(game);
}

GameText TakeApart(std::string_view text) {
    return Scanner(text).TakeGame();
}

std::string_view GameText::Tag(std::string_view name) const {
    const auto found = std::ranges::find(tags, name, &GameTag::name);
    return found == tags.end() ? std::string_view() : std::string_view(found->value);
}
