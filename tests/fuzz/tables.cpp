// Endgame tables, plain and compressed, with probes of positions in them.
#include "fuzz.h"

#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <vector>

#include "board/fen.h"
#include "board/position.h"
#include "board/score.h"
#include "platform/bytes.h"
#include "tablebase/block_decoder.h"
#include "tablebase/compressed_table.h"
#include "tablebase/tablebases.h"

namespace {

constexpr const char* Tables[] = {"kqk.nbw", "kqk.nbb", "kpk.nbw", "kpk.nbb"};
constexpr size_t PLAIN_BYTES = 90000;   // more than the largest of them
constexpr size_t MOST_PACKED = 1 << 20; // bytes that a table is made to have

} // namespace

// Damage that checksums or the length of the file would tell never comes further: here it does.
static void MendHead(std::string& file) {
    if (file.size() < TABLE_HEADER)
        return;
    auto* const bytes = reinterpret_cast<uint8_t*>(file.data());
    const uint64_t directory = uint64_t{DIRECTORY_ENTRY} * LoadLittle32(bytes + BLOCK_COUNT_OFFSET);
    size_t length = 0;
    if (directory <= file.size() - TABLE_HEADER) {
        StoreLittle32(bytes + DIRECTORY_SUM_OFFSET,
                      TableChecksum(bytes + TABLE_HEADER, size_t(directory)));
        length = TABLE_HEADER + size_t(directory);
        for (size_t i = TABLE_HEADER; i < TABLE_HEADER + directory; i += DIRECTORY_ENTRY)
            length += LoadLittle16(bytes + i);
    }
    StoreLittle32(bytes + HEADER_SUM_OFFSET, TableChecksum(bytes, HEADER_SUM_OFFSET));
    if (length > 0 && length <= MOST_PACKED)
        file.resize(length);
}

// A block by itself, in memory of just its size, so that a byte too many or too early shows.
static void DecodeAlone(std::string_view input) {
    const auto high = size_t{TakeByte(input)} << 8;
    std::vector<uint8_t> plain((high | TakeByte(input)) % TABLE_BLOCK + 1);
    const std::vector<uint8_t> packed(input.begin(), input.end());
    const auto decoder = std::make_unique<BlockDecoder>();
    DecodeBlock(*decoder, packed.data(), packed.size(), plain.data(), plain.size());
}

// The input stands at several places of a table that is else drawn, so that some probes meet it.
static std::string PlainTable(std::string_view input) {
    std::string table;
    const size_t length = input.size() < 4
                              ? PLAIN_BYTES
                              : LoadLittle16(reinterpret_cast<const uint8_t*>(input.data())) * 2;
    while (table.size() < length && !input.empty())
        table += input;
    table.resize(length);
    return table;
}

static void Probe() {
    for (const char* const men : {"K6Q", "K5P1"}) {
        for (int king = 0; king < 64; king++) {
            std::string board(64, '1');
            for (size_t i = 0; men[i] != '\0'; i++) {
                if (men[i] >= 'A')
                    board[(size_t(king) * 5 + i * 9) % 64] = men[i];
            }
            board[size_t(63 - king)] = 'k';
            for (size_t row = 7; row > 0; row--)
                board.insert(8 * row, "/");
            for (const Colour side : {WHITE, BLACK}) {
                LoadFen((board + (side == WHITE ? " w - -" : " b - -")).c_str());
                int32_t score = 0;
                Claim(!ProbeTablebase(side, score) || std::abs(score) < MATE + 1,
                      "a table tells a mate or a draw");
            }
        }
    }
}

void Try(std::string_view input) {
    const uint8_t choice = TakeByte(input);
    if ((choice & 64) != 0)
        return DecodeAlone(input);
    const bool compressed = (choice & 4) != 0;
    const std::string name =
        Tables[choice % std::size(Tables)] + std::string(compressed ? ".emd" : "");
    std::string file = compressed ? std::string(input) : PlainTable(input);
    if (compressed && (choice & 8) != 0)
        MendHead(file);
    PutFile(name.c_str(), file);
    SetEgtbPath(".");
    OpenTablebases();
    AllocateTablebaseCache();
    Probe();
    CloseTablebases();
    std::remove(name.c_str());
}
