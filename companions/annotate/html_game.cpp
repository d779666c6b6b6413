#include "html_game.h"

#include <algorithm>
#include <cmath>

#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/moves/san.h"
#include "board/position.h"
#include "companions/shared/print.h"
#include "html_board.h"
#include "html_curve.h"
#include "html_text.h"
#include "judging.h"

namespace {

class Section {
public:
    Section(const AnnotatedGame& theGame, size_t theNumber) : game(theGame), number(theNumber) {}
    std::string Write(bool open);

private:
    void WriteBoard();
    void WriteMove(size_t ply);
    void WriteBetterLine(size_t ply);
    void WriteOwnRemarks(const std::vector<Remark>& remarks);
    // Opens the link of a move on the board and makes the move.
    void LinkMove(Move move, const std::string& title);

    const AnnotatedGame& game;
    size_t number;
    std::string page;
};

} // namespace

static std::string Name(const GameText& text, std::string_view tag) {
    const std::string_view name = text.Tag(tag);
    return HtmlText(name.empty() ? "?" : name);
}

// With a true minus, for readers.
static std::string ReadableScore(int score) {
    std::string text = ScoreText(score);
    if (const size_t minus = text.find('-'); minus != std::string::npos)
        text.replace(minus, 1, "&minus;");
    else if (score > 0 && text[0] != '#')
        text.insert(0, "+");
    return text;
}

static std::string AccuracyText(const AnnotatedGame& game, Colour side) {
    const std::optional<double>& accuracy = game.judgement.accuracy[side];
    return accuracy ? std::to_string(std::lround(*accuracy)) + "&nbsp;%" : "";
}

// "23... Qxb2??", of the move on the board that is about to be made.
static std::string MoveWithMark(const AnnotatedGame& game, size_t ply) {
    return game.played.MoveNumber(ply) + " " + SanText(game.played.moves[ply]) +
           MarkText(game.judgement.moves[ply].mark);
}

static void PlayTo(const AnnotatedGame& game, size_t ply) {
    SetUpStart(game.played);
    for (size_t i = 0; i < ply; i++)
        MakeMove(game.played.moves[i], true);
}

// Where nothing can be done with the page, the board shows the turning point, or the end.
void Section::WriteBoard() {
    const size_t shown =
        game.judgement.turningPoint ? *game.judgement.turningPoint + 1 : game.played.moves.size();
    PlayTo(game, shown);
    page += "<div class='seen'>" + BoardPicture(shown > 0 ? game.played.moves[shown - 1] : NO_MOVE);
    page += "<p class='said' aria-live='polite'>";
    if (shown > 0) {
        PlayTo(game, shown - 1);
        page += "After " + MoveWithMark(game, shown - 1);
    }
    page += "</p><div class='keys'><button data-k='first' aria-label='Start'>|&lt;</button>"
            "<button data-k='back' aria-label='Back'>&lt;</button>"
            "<button data-k='next' aria-label='Next'>&gt;</button>"
            "<button data-k='last' aria-label='End'>&gt;|</button>"
            "<button data-k='turn' aria-label='Turn the board'>turn</button></div></div>\n";
}

void Section::LinkMove(Move move, const std::string& title) {
    page += " data-d='" + BoardChanges(move) + "' title='" + title + "'>";
    page += SanText(move);
    MakeMove(move, true);
}

// The position before the move of that ply is on the board, and stays.
void Section::WriteBetterLine(size_t ply) {
    size_t made = 0;
    for (const Move move : ShownLine(game, ply)) {
        if (!IsLegal(move))
            break;
        const bool numbered = made == 0 || game.played.SideAt(ply + made) == WHITE;
        if (made == 0)
            Print(page, "<span class='better' data-at='%zu'>Better ", ply);
        const std::string title = game.played.MoveNumber(ply + made) + " " + SanText(move) +
                                  " (variation, " + ReadableScore(game.analysis[ply].score) + ")";
        if (numbered)
            page += game.played.MoveNumber(ply + made) + "&nbsp;";
        page += "<a class='m'";
        LinkMove(move, title);
        page += "</a> ";
        made++;
    }
    for (size_t i = 0; i < made; i++)
        UnmakeMove();
    if (made > 0)
        page += "<span class='e'>" + ReadableScore(game.analysis[ply].score) + "</span></span>";
}

// Without what is meant for programs, "[%clk 0:03:12]".
static std::string WithoutCommands(std::string_view text) {
    std::string plain(text);
    for (size_t begin; (begin = plain.find("[%")) != std::string::npos;) {
        const size_t end = plain.find(']', begin);
        plain.erase(begin, end == std::string::npos ? end : end + 1 - begin);
    }
    return plain;
}

void Section::WriteOwnRemarks(const std::vector<Remark>& remarks) {
    for (const Remark& remark : remarks) {
        std::string_view text = remark.place.In(game.source);
        if (remark.kind == Remark::COMMENT) {
            text.remove_prefix(1);
            if (text.ends_with('}'))
                text.remove_suffix(1);
        }
        const std::string plain = WithoutCommands(text);
        if (plain.find_first_not_of(" \t\r\n") != std::string::npos)
            page += " <span class='own'>" + HtmlText(plain) + "</span> ";
    }
}

void Section::WriteMove(size_t ply) {
    const Move move = game.played.moves[ply];
    const WrittenMove& written = game.text.moves[ply];
    const MoveJudgement& judged = game.judgement.moves[ply];
    constexpr const char* authors[] = {"", "!", "?", "!!", "??", "!?", "?!"};
    const std::string mark = written.glyph != 0 ? authors[written.glyph] : MarkText(judged.mark);
    const std::string title = game.played.MoveNumber(ply) + " " + SanText(move) + mark + " " +
                              ReadableScore(game.analysis[ply + 1].score);
    if (game.played.SideAt(ply) == WHITE || ply == 0)
        page += "<span class='e'>" + game.played.MoveNumber(ply) + "</span>&nbsp;";
    const char* const colours[] = {"", " k1", " k2", " k3"};
    const char* const colour = colours[int(judged.mark)];
    Print(page, "<a class='m%s' id='g%zum%zu' href='#g%zum%zu'", colour, number, ply + 1, number,
          ply + 1);
    LinkMove(move, title);
    page += mark + "</a> ";
    if (std::string remark = HtmlText(RemarkOn(game, ply)); !remark.empty()) {
        constexpr std::string_view arrow = "-&gt;";
        if (const size_t place = remark.find(arrow); place != std::string::npos)
            remark.replace(place, arrow.size(), "&rarr;");
        page += std::string("<span class='says") + colour + "'>" + remark + "</span>";
    }
    if (ShowsBetterMove(game, ply)) {
        UnmakeMove();
        WriteBetterLine(ply);
        MakeMove(move, true);
    }
    WriteOwnRemarks(written.remarks);
    page += '\n';
}

std::string Section::Write(bool open) {
    const GameText& text = game.text;
    Print(page, "<details id='g%zu'%s><summary>%zu. ", number, open ? " open" : "", number);
    page += Name(text, "White") + " &ndash; " + Name(text, "Black") + " " + Name(text, "Result") +
            " <span>";
    for (const char* tag : {"Event", "Site", "Date", "Round"}) {
        if (const std::string_view value = text.Tag(tag);
            value.find_first_not_of("?.-") != std::string_view::npos)
            page += HtmlText(value) + ". ";
    }
    if (!game.opening.eco.empty())
        page += HtmlText(game.opening.eco) + " " + HtmlText(game.opening.name) + ".";
    SetUpStart(game.played);
    page += "</span></summary>\n<div class='game' data-start='" + Placement() + "'>\n";
    WriteBoard();
    page += "<div class='told'>" + CurvePicture(game, number) + "\n<div class='moves'>";
    WriteOwnRemarks(text.preface);
    SetUpStart(game.played);
    for (size_t ply = 0; ply < game.played.moves.size(); ply++)
        WriteMove(ply);
    SetUpStart(game.played);
    page += Name(text, "Result") + "</div></div></div></details>\n";
    return std::move(page);
}

std::string HtmlGame(const AnnotatedGame& game, size_t number, bool open) {
    return Section(game, number).Write(open);
}

static std::string RowBegin(const GameText& text, const std::string& number) {
    return "<tr><td class='n'>" + number + "</td><td class='white'>" + Name(text, "White") +
           "</td><td>" + Name(text, "Black") + "</td><td class='n'>" + Name(text, "Result") +
           "</td><td class='date'>" + Name(text, "Date") + "</td>";
}

std::string HtmlRow(const AnnotatedGame& game, size_t number) {
    const std::string name = std::to_string(number);
    std::string row = RowBegin(game.text, "<a href='#g" + name + "'>" + name + "</a>");
    row += "<td class='opening'>" + HtmlText(game.opening.eco) + " " + HtmlText(game.opening.name) +
           "</td><td class='n" + (game.played.moves.empty() ? "" : " accuracy") + "'>" +
           AccuracyText(game, WHITE) + "</td><td class='n'>" + AccuracyText(game, BLACK) +
           "</td><td>";
    if (const std::optional<size_t> ply = game.judgement.turningPoint) {
        PlayTo(game, *ply);
        row += "<a class='turn' href='#g" + name + "m" + std::to_string(*ply + 1) + "'>" +
               MoveWithMark(game, *ply) + "</a>";
        SetUpStart(game.played);
    }
    return row + "</td></tr>\n";
}

std::string HtmlKeptRow(const GameText& text, const std::string& reason, size_t number) {
    return RowBegin(text, std::to_string(number)) +
           "<td class='kept' colspan='4'>not annotated: " + HtmlText(reason) + "</td></tr>\n";
}
