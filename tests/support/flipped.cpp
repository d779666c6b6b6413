#include "support/flipped.h"

#include <cctype>

#include "board/fen.h"

// The placement of a FEN with the squares that `squareAt` names for its places, and these letters.
template <typename SquareAt>
static std::string Placement(SquareAt squareAt, const char* white, const char* black) {
    std::string men;
    for (int place = 0; place < 64; place++) {
        const int sq = squareAt(place);
        men += place % 8 == 0 && place > 0 ? "/" : "";
        men += Board[sq] == EMPTY ? '1' : (ColourOn(sq) == WHITE ? white : black)[Board[sq]];
    }
    return men;
}

std::string FlippedFen() {
    std::string text = Placement([](int place) { return place; }, ".knp?rbq", ".KNP?RBQ");
    text += SideToMove == WHITE ? " b " : " w ";
    for (int right = 0; right < 4; right++) {
        if (CastleRights >> right & 1)
            text += "kqKQ"[right];
    }
    text += CastleRights == 0 ? "- " : " ";
    if (!IsDoubleStep(ChangeSide(SideToMove), LastMove()))
        return text + "-";
    const int stepped = To(LastMove()) ^ 56;
    return text + char('a' + FileOf(stepped)) + char('1' + RankOf(stepped));
}

std::string FlippedFen(const std::string& fen) {
    LoadFen(fen.c_str());
    return FlippedFen();
}

std::string MirroredFen() {
    return Placement([](int place) { return 63 - place; }, ".KNP?RBQ", ".knp?rbq") +
           (SideToMove == WHITE ? " w - -" : " b - -");
}
