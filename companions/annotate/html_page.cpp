#include "html_page.h"

#include <array>

#include "html_board.h"
#include "html_game.h"
#include "html_style.h"
#include "html_text.h"

HtmlPage::~HtmlPage() {
    if (games != nullptr)
        std::fclose(games);
}

bool HtmlPage::Open() {
    games = std::tmpfile();
    if (games == nullptr)
        std::perror("Cannot open a temporary file");
    return games != nullptr;
}

void HtmlPage::Add(const AnnotatedGame& game, size_t number) {
    const std::string text = HtmlGame(game, number, !any);
    std::fwrite(text.data(), 1, text.size(), games);
    list += HtmlRow(game, number);
    any = true;
}

void HtmlPage::AddKept(const GameText& text, const std::string& reason, size_t number) {
    list += HtmlKeptRow(text, reason, number);
}

static bool Put(std::FILE* file, const std::string& text) {
    return std::fwrite(text.data(), 1, text.size(), file) == text.size();
}

static bool Copy(std::FILE* from, std::FILE* to) {
    std::array<char, 1 << 16> piece;
    std::rewind(from);
    while (const size_t got = std::fread(piece.data(), 1, piece.size(), from)) {
        if (std::fwrite(piece.data(), 1, got, to) != got)
            return false;
    }
    return std::ferror(from) == 0;
}

bool HtmlPage::Write(const std::string& path, const std::string& title, const std::string& how) {
    const std::string unfinished = path + ".new";
    std::FILE* const file = std::fopen(unfinished.c_str(), "wb");
    if (file == nullptr) {
        std::perror(unfinished.c_str());
        return false;
    }
    std::string head = "<!DOCTYPE html>\n<html lang='en'><head><meta charset='utf-8'>\n"
                       "<meta name='viewport' content='width=device-width,initial-scale=1'>\n"
                       "<title>" +
                       HtmlText(title) + "</title>\n<style>" + PAGE_STYLE +
                       "</style></head>\n<body>\n" + BoardSymbols() + "<h1>" + HtmlText(title) +
                       "</h1>\n<p class='note'>" + HtmlText(how) +
                       "<span class='live-only'> The board follows the keys &larr; and &rarr;, "
                       "a click on a move or on the curve, and a finger that swipes.</span> The "
                       "curve is White's chances: a ring is ?!, a disc ?, a cross ??.</p>\n";
    head +=
        "<div class='list'><table><thead><tr><th class='n'></th><th>White</th><th>Black</th>"
        "<th class='n'>Result</th><th class='date'>Date</th><th class='opening'>Opening</th>"
        "<th class='n' colspan='2'>Accuracy</th><th>Turning point</th></tr></thead>\n<tbody>\n" +
        list + "</tbody></table></div>\n";
    bool written = std::ferror(games) == 0 && Put(file, head) && Copy(games, file) &&
                   Put(file, std::string("<script>") + PAGE_SCRIPT + "</script>\n</body></html>\n");
    written = std::fclose(file) == 0 && written;
    if (!written || std::rename(unfinished.c_str(), path.c_str()) != 0) {
        std::perror(path.c_str());
        return false;
    }
    return true;
}
