#include "openings.h"

#include <vector>

#include "board/moves/make_move.h"
#include "board/position.h"
#include "carried_lines.h"
#include "companions/shared/text_lines.h"
#include "search/transposition.h"
#include "tools/pgn_moves.h"

static uint64_t PositionKey() {
    return HashKey() ^ uint64_t(SideToMove);
}

Openings::Openings() {
    for (const std::string_view line : CarriedLines) {
        const std::vector<std::string_view> columns = Split(line, '\t');
        SetStartPosition();
        for (const std::string_view word : Split(columns.back(), ' ')) {
            if (word.ends_with('.'))
                continue;
            const SanMove san = PgnParseSan(word.substr(0, word.find_first_of("+#!?")));
            if (san.matches != 1)
                break;
            MakeMove(san.move, true);
            positions.try_emplace(PositionKey());
        }
        Line& last = positions[PositionKey()];
        if (last.eco.empty())
            last = {columns[0], columns[1]};
    }
    SetStartPosition();
}

Opening Openings::Find(const PlayedGame& game) const {
    Opening opening;
    if (!game.fen.empty())
        return opening;
    SetStartPosition();
    for (size_t ply = 0; ply < game.moves.size(); ply++) {
        MakeMove(game.moves[ply], true);
        const auto found = positions.find(PositionKey());
        if (found == positions.end())
            continue;
        opening.bookPlies = ply + 1;
        if (!found->second.eco.empty()) {
            opening.eco = found->second.eco;
            opening.name = found->second.name;
        }
    }
    SetStartPosition();
    return opening;
}
