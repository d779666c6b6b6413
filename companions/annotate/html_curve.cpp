#include "html_curve.h"

#include <algorithm>

#include "companions/shared/print.h"
#include "judging.h"

namespace {

// Units of the drawing.
constexpr double WIDTH = 600;
constexpr double HEIGHT = 150;

class Curve {
public:
    Curve(const AnnotatedGame& theGame, size_t theNumber) : game(theGame), number(theNumber) {}
    std::string Draw();

private:
    double X(size_t position) const {
        return WIDTH * double(position) / double(std::max<size_t>(game.played.moves.size(), 1));
    }
    double Y(size_t position) const {
        return HEIGHT * (1 - WinningChances(game.analysis[position].score));
    }
    void DrawPhase(const char* name, const char* style, size_t begin, size_t end);
    void DrawSign(size_t ply);

    const AnnotatedGame& game;
    size_t number;
    std::string page;
};

} // namespace

void Curve::DrawPhase(const char* name, const char* style, size_t begin, size_t end) {
    end = std::min(end, game.played.moves.size());
    if (begin >= end)
        return;
    Print(page, "<rect class='%s' x='%.1f' width='%.1f' height='%.0f'/>", style, X(begin),
          X(end) - X(begin), HEIGHT);
    // A name needs room.
    if (X(end) - X(begin) > 60)
        Print(page, "<text x='%.1f' y='%.0f'>%s</text>", X(begin) + 4, HEIGHT - 5, name);
}

// A ring, a disc, a cross: told apart without colours.
void Curve::DrawSign(size_t ply) {
    const Mark mark = game.judgement.moves[ply].mark;
    const double x = X(ply + 1);
    const double y = std::clamp(Y(ply + 1), 6.0, HEIGHT - 6);
    Print(page, "<a href='#g%zum%zu'><title>%s %s</title>", number, ply + 1,
          game.played.MoveNumber(ply).c_str(), MarkText(mark));
    if (mark == Mark::BLUNDER)
        Print(page, "<path class='s3' d='M%.1f %.1fl10 10m0-10l-10 10'/>", x - 5, y - 5);
    else
        Print(page, "<circle class='s%d' cx='%.1f' cy='%.1f' r='4.5'/>", int(mark), x, y);
    page += "</a>";
}

std::string Curve::Draw() {
    const size_t moves = game.played.moves.size();
    const size_t ending = std::min(game.judgement.ending, moves);
    const size_t middlegame = std::min(game.judgement.middlegame, ending);
    Print(page,
          "<svg class='curve' viewBox='0 0 %.0f %.0f' role='img' "
          "aria-label='Chances of White, move by move' data-n='%zu'>",
          WIDTH, HEIGHT, moves);
    DrawPhase("book", "p1", 0, middlegame);
    DrawPhase("middlegame", "p2", middlegame, ending);
    DrawPhase("ending", "p3", ending, moves);
    page += "<path class='area' d='";
    Print(page, "M0 %.0f", HEIGHT);
    for (size_t i = 0; i <= moves; i++)
        Print(page, "L%.1f %.1f", X(i), Y(i));
    Print(page, "V%.0fz'/><path class='half' d='M0 %.0fH%.0f'/>", HEIGHT, HEIGHT / 2, WIDTH);
    page += "<path class='now' d=''/>";
    for (size_t ply = 0; ply < moves; ply++) {
        if (game.judgement.moves[ply].mark != Mark::NONE)
            DrawSign(ply);
    }
    return page + "</svg>";
}

std::string CurvePicture(const AnnotatedGame& game, size_t number) {
    return Curve(game, number).Draw();
}
