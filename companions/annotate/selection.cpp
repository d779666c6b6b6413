#include "selection.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "game_text.h"
#include "played_game.h"

static std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        c = char(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

// What is not known of a date is no reason to take a game; what `from` does not tell, none to
// leave it out.
static bool IsSince(std::string_view date, std::string_view from) {
    date = date.substr(0, from.size());
    return date.size() == from.size() && date.find('?') == std::string_view::npos && date >= from;
}

// By the moves where they are in the lists, else by what the game says of itself.
static std::string EcoOf(const GameText& text, std::string_view source, const Openings& openings) {
    const PlayedGame played = Replay(text, source);
    const Opening opening = openings.Find(played);
    return std::string(opening.eco.empty() ? text.Tag("ECO") : opening.eco);
}

static bool IsWanted(std::string_view source, const Selection& selection,
                     const Openings& openings) {
    const GameText text = TakeApart(source);
    const auto has = [&](std::string_view tag) {
        return Lower(text.Tag(tag)).find(Lower(selection.player)) != std::string::npos;
    };
    return (selection.from.empty() || IsSince(text.Tag("Date"), selection.from)) &&
           (selection.player.empty() || has("White") || has("Black")) &&
           (selection.result.empty() || text.Tag("Result") == selection.result) &&
           (selection.eco.empty() || EcoOf(text, source, openings).starts_with(selection.eco));
}

std::vector<size_t> SelectGames(const GameFile& file, const Selection& selection,
                                const Openings& openings) {
    const bool all = selection.from.empty() && selection.player.empty() &&
                     selection.result.empty() && selection.eco.empty();
    std::vector<size_t> wanted;
    for (size_t i = 0; i < file.Games().size(); i++) {
        if (all || IsWanted(file.Text(file.Games()[i]), selection, openings))
            wanted.push_back(i);
    }
    return wanted;
}
