#include "annotated_pgn.h"

#include <algorithm>
#include <cstdlib>

#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/moves/san.h"
#include "board/position.h"
#include "board/score.h"
#include "companions/shared/text_lines.h"
#include "tools/pgn_moves.h"

namespace {

// Lines are broken behind so many characters.
constexpr size_t LINE_LENGTH = 79;
// Plies of a variation, and of one that ends with a mate.
constexpr size_t SHOWN_PLIES = 7;
constexpr size_t SHOWN_MATE_PLIES = 13;

// Copies a text and puts words between its bytes.
class Additions {
public:
    explicit Additions(std::string_view theSource)
        : source(theSource),
          lineEnd(theSource.find("\r\n") == std::string_view::npos ? "\n" : "\r\n") {}

    // The source up to that place.
    void CopyUpTo(size_t place) {
        text += source.substr(copied, place - copied);
        copied = place;
    }
    // The words, with space before them, and behind them where the source goes on without any.
    void Add(std::string_view words) {
        for (const std::string_view word : Split(words, ' '))
            AddWord(word);
        if (copied < source.size() && !IsSpace(source[copied]))
            text += ' ';
    }
    std::string End() {
        CopyUpTo(source.size());
        return std::move(text);
    }

private:
    static bool IsSpace(char c) {
        return c == ' ' || c == '\t' || c == '\n' || c == '\r';
    }
    // A "_" stands for a space at which no line is broken.
    void AddWord(std::string_view word) {
        const size_t end = text.rfind('\n');
        const size_t column = end == std::string::npos ? text.size() : text.size() - end - 1;
        if (column + 1 + word.size() > LINE_LENGTH && column > 0)
            text += lineEnd;
        else if (column > 0 && !IsSpace(text.back()))
            text += ' ';
        const size_t begin = text.size();
        text += word;
        std::replace(text.begin() + std::ptrdiff_t(begin), text.end(), '_', ' ');
    }

    std::string_view source;
    std::string_view lineEnd;
    size_t copied = 0;
    std::string text;
};

} // namespace

static std::string EvaluationWords(const Verdict& verdict) {
    return "[%eval_" + ScoreText(verdict.score) + "] [%depth_" + std::to_string(verdict.depth) +
           "]";
}

std::vector<Move> ShownLine(const AnnotatedGame& game, size_t ply) {
    const Verdict& verdict = game.analysis[ply];
    const size_t plies = std::abs(verdict.score) > MATE_BOUND ? SHOWN_MATE_PLIES : SHOWN_PLIES;
    std::vector<Move> line = verdict.line;
    line.resize(std::min(line.size(), plies));
    return line;
}

bool ShowsBetterMove(const AnnotatedGame& game, size_t ply) {
    const MoveJudgement& judged = game.judgement.moves[ply];
    const std::vector<Move>& line = game.analysis[ply].line;
    return (judged.mark != Mark::NONE || judged.tablesChanged) && !line.empty() &&
           line[0] != game.played.moves[ply];
}

static const char* OutcomeText(int score) {
    return score > MATE_BOUND ? "White wins" : score < -MATE_BOUND ? "Black wins" : "draw";
}

// A verdict of the tables is told where they begin to know, and where it changes.
static std::string TablebaseRemark(const AnnotatedGame& game, size_t ply) {
    const Verdict& before = game.analysis[ply];
    const Verdict& after = game.analysis[ply + 1];
    if (!after.exact || after.depth == 0)
        return {};
    if (!before.exact)
        return std::string("Tablebase: ") + OutcomeText(after.score) + ".";
    if (game.judgement.moves[ply].tablesChanged)
        return std::string("Tablebase: ") + OutcomeText(before.score) + " before this move, " +
               OutcomeText(after.score) + " after it.";
    return {};
}

std::string RemarkOn(const AnnotatedGame& game, size_t ply) {
    constexpr const char* names[] = {"", "Doubtful", "Mistake", "Blunder"};
    const MoveJudgement& judged = game.judgement.moves[ply];
    std::string text;
    const auto say = [&text](const std::string& sentence) {
        text += (text.empty() || sentence.empty() ? "" : " ") + sentence;
    };
    if (judged.mark != Mark::NONE)
        say(names[int(judged.mark)] + std::string(": ") + ScoreText(game.analysis[ply].score) +
            " -> " + ScoreText(game.analysis[ply + 1].score) + ".");
    if (judged.missedMate != 0)
        say("Missed mate in " + std::to_string(judged.missedMate) + ".");
    if (judged.allowedMate != 0 && judged.mark != Mark::NONE)
        say("Allows mate in " + std::to_string(judged.allowedMate) + ".");
    say(TablebaseRemark(game, ply));
    if (game.judgement.turningPoint == ply)
        say("The turning point.");
    if (ply + 1 == game.opening.bookPlies && game.opening.eco.empty())
        say("End of book.");
    else if (ply + 1 == game.opening.bookPlies)
        say("End of book: " + std::string(game.opening.name) + " (" +
            std::string(game.opening.eco) + ").");
    return text;
}

// The move before it stands on the board.
static std::string VariationWords(const AnnotatedGame& game, size_t ply) {
    std::string words = "(";
    size_t made = 0;
    for (const Move move : ShownLine(game, ply)) {
        // What comes out of a table of positions may belong to another one.
        if (!IsLegal(move))
            break;
        // Behind the comment on the first move it is not plain whose move comes.
        const bool numbered = made <= 1 || game.played.SideAt(ply + made) == WHITE;
        if (numbered)
            words += (made == 0 ? "" : " ") + game.played.MoveNumber(ply + made) + "_";
        else
            words += " ";
        words += SanText(move);
        if (made == 0)
            words += " {[%eval_" + ScoreText(game.analysis[ply].score) + "]}";
        MakeMove(move, true);
        made++;
    }
    for (size_t i = 0; i < made; i++)
        UnmakeMove();
    return made > 0 ? words + ")" : std::string();
}

// Whether one of the variations that stand behind the move begins with the one that is better.
static bool HasVariation(const AnnotatedGame& game, size_t ply) {
    const Move better = game.analysis[ply].line[0];
    for (const Remark& remark : game.text.moves[ply].remarks) {
        if (remark.kind != Remark::VARIATION)
            continue;
        const std::string_view inside = remark.place.In(game.source).substr(1);
        const GameText variation = TakeApart(inside.substr(0, inside.size() - 1));
        if (variation.moves.empty())
            continue;
        const SanMove first =
            PgnParseSan(variation.moves[0].word.In(inside.substr(0, inside.size() - 1)));
        if (first.matches == 1 && first.move == better)
            return true;
    }
    return false;
}

// Whether a comment on the move says so already, however its lines are broken.
static bool IsSaid(const AnnotatedGame& game, size_t ply, const std::string& remark) {
    std::string said;
    for (const Remark& comment : game.text.moves[ply].remarks) {
        for (const char c : comment.place.In(game.source)) {
            const char plain = c == '\n' || c == '\r' ? ' ' : c;
            if (plain != ' ' || !said.ends_with(' '))
                said += plain;
        }
    }
    return said.find(remark) != std::string::npos;
}

static std::string WithSpacesKept(std::string text) {
    std::ranges::replace(text, '_', '-');
    return text;
}

static void AddToMove(Additions& additions, const AnnotatedGame& game, size_t ply) {
    const WrittenMove& written = game.text.moves[ply];
    const MoveJudgement& judged = game.judgement.moves[ply];
    additions.CopyUpTo(written.marksEnd);
    if (judged.mark != Mark::NONE && written.glyph == 0)
        additions.Add("$" + std::to_string(GlyphNumber(judged.mark)));
    std::string words;
    // The end of the game by the rules needs no evaluation.
    if (!written.evaluated && game.analysis[ply + 1].depth > 0)
        words = EvaluationWords(game.analysis[ply + 1]);
    if (const std::string remark = RemarkOn(game, ply);
        !remark.empty() && !IsSaid(game, ply, remark))
        words += (words.empty() ? "" : " ") + WithSpacesKept(remark);
    if (!words.empty())
        additions.Add("{" + words + "}");
    if (!ShowsBetterMove(game, ply) || HasVariation(game, ply))
        return;
    additions.CopyUpTo(written.end);
    if (const std::string variation = VariationWords(game, ply); !variation.empty())
        additions.Add(variation);
}

std::string AnnotatedPgn(const AnnotatedGame& game) {
    Additions additions(game.source);
    if (game.text.moves.empty())
        return additions.End();
    SetUpStart(game.played);
    // Without tags, what stands before the moves is told of the game before them.
    bool evaluated = game.text.tags.empty() || game.analysis[0].depth == 0;
    for (const Remark& remark : game.text.preface)
        evaluated |= remark.place.In(game.source).find("[%eval ") != std::string_view::npos;
    additions.CopyUpTo(game.text.moves[0].numberBegin);
    if (!evaluated)
        additions.Add("{" + EvaluationWords(game.analysis[0]) + "}");
    for (size_t ply = 0; ply < game.played.moves.size(); ply++) {
        const WrittenMove& written = game.text.moves[ply];
        additions.CopyUpTo(written.numberBegin);
        // Behind a comment it is not plain whose move comes.
        if (!written.numbered)
            additions.Add(game.played.MoveNumber(ply));
        AddToMove(additions, game, ply);
        MakeMove(game.played.moves[ply], true);
    }
    SetUpStart(game.played);
    return additions.End();
}
