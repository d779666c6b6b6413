#include "support/book_file.h"

#include <algorithm>

#include "board/fen.h"
#include "board/position.h"
#include "book/book.h"
#include "book/book_format.h"
#include "book/book_keys.h"
#include "book/book_learning.h"
#include "book/book_settings.h"

namespace {

struct Node {
    BookKeys keys;
    std::string bytes;
};

} // namespace

static std::string Word(uint32_t value) {
    std::string bytes;
    for (int i = 0; i < 4; i++)
        bytes += char(value >> (8 * i));
    return bytes;
}

static std::string Squares(const char* text) {
    return {char(text[0] - 'a' + 8 * (text[1] - '1')), char(text[2] - 'a' + 8 * (text[3] - '1'))};
}

std::string BookBytes(int version, const std::vector<BookTestNode>& nodes) {
    std::vector<Node> sorted;
    for (const BookTestNode& node : nodes) {
        LoadFen(node.fen);
        std::string bytes(1, char(node.moves.size()));
        for (const BookTestMove& move : node.moves) {
            bytes += Squares(move.squares) + char(move.statistics);
            if (version != 0)
                bytes += char(move.statistics >> 8);
        }
        sorted.push_back({KeysOfPosition(), bytes});
    }
    std::ranges::sort(sorted, {}, &Node::keys);
    std::string book =
        BOOK_MAGIC + Word(uint32_t(version)) + Word(0) + Word(uint32_t(nodes.size()));
    std::string lists;
    const size_t listsAt = BOOK_HEADER_SIZE + BOOK_RECORD_SIZE * sorted.size();
    for (const Node& node : sorted) {
        book += Word(uint32_t(node.keys.a)) + Word(uint32_t(node.keys.b)) +
                Word(uint32_t(listsAt + lists.size()));
        lists += node.bytes;
    }
    return book + lists;
}

int StatisticsInBook(const std::string& bytes, const char* squares) {
    const size_t at = bytes.find(Squares(squares), BOOK_HEADER_SIZE);
    if (at == std::string::npos || at + 4 > bytes.size())
        return -1;
    return uint8_t(bytes[at + 2]) | uint8_t(bytes[at + 3]) << 8;
}

void BookTest::SetUp() {
    Book = {};
    BookLearned = false;
    SetStartPosition();
}

void BookTest::TearDown() {
    Open("");
    Book = {};
    BookLearned = false;
    SetStartPosition();
}

std::string BookTest::Open(const std::string& bytes) {
    WriteFileText("test.tqn", bytes);
    return Printed([] { OpenBook("test.tqn"); });
}
