// The page that shows the annotated games of a file: one that needs nothing from the network.
#pragma once

#include <cstdio>
#include <string>

#include "annotated_pgn.h"

class HtmlPage {
public:
    HtmlPage() = default;
    ~HtmlPage();
    HtmlPage(const HtmlPage&) = delete;
    HtmlPage& operator=(const HtmlPage&) = delete;

    // False, with a message, when there is no room for the games.
    bool Open();
    void Add(const AnnotatedGame& game, size_t number);
    // A game that is not annotated.
    void AddKept(const GameText& text, const std::string& reason, size_t number);
    // `how` tells how the games were searched. False, with a message, when it cannot be written.
    bool Write(const std::string& path, const std::string& title, const std::string& how);

private:
    // The games come behind the list, which is known when all are there.
    std::FILE* games = nullptr;
    std::string list;
    bool any = false;
};
