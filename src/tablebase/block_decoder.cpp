#include "tablebase/block_decoder.h"

#include <algorithm>
#include <cstring>

namespace {

// Reads bits off a string of bytes. Beyond its end there are zeros, and `Overrun` tells.
class BitReader {
public:
    BitReader(const uint8_t* first, const uint8_t* last) : next(first), end(last) {}

    // At least 56 bits are at hand afterwards. Eight bytes at once where there are as many; the
    // upper bits of the last of them may come again, as they are, with the next ones.
    void Refill() {
        if (end - next >= 8) {
            bits |= LoadLittle64(next) << held;
            next += (63 - held) >> 3;
            held |= 56;
            return;
        }
        while (held <= 56 && next < end) {
            bits |= uint64_t{*next++} << held;
            held += 8;
        }
    }
    uint32_t Peek(int count) const {
        return uint32_t(bits & ((uint64_t{1} << count) - 1));
    }
    void Drop(int count) {
        bits >>= count;
        held -= count;
    }
    uint32_t Take(int count) {
        const uint32_t value = Peek(count);
        Drop(count);
        return value;
    }
    bool Overrun() const {
        return held < 0;
    }

private:
    const uint8_t* next;
    const uint8_t* end;
    uint64_t bits = 0;
    int held = 0;
};

} // namespace

// A number of at least 1, of `maxBits` bits at most; 0 when it is longer.
static uint32_t TakeNumber(BitReader& reader, int maxBits) {
    int lower = 0;
    while (reader.Take(1) == 0) {
        if (++lower >= maxBits)
            return 0;
    }
    return 1U << lower | reader.Take(lower);
}

static bool ReadLengths(BitReader& reader, uint8_t* lengths) {
    constexpr int RUN_BITS = std::bit_width(ALL_SYMBOLS);
    uint32_t symbol = 0;
    while (symbol < ALL_SYMBOLS) {
        reader.Refill();
        const uint32_t length = reader.Take(4);
        if (length > MAX_CODE_LENGTH || reader.Overrun())
            return false;
        const uint32_t run = length == 0 ? TakeNumber(reader, RUN_BITS) : 1;
        if (run == 0 || run > ALL_SYMBOLS - symbol)
            return false;
        std::fill_n(lengths + symbol, run, uint8_t(length));
        symbol += run;
    }
    return true;
}

static uint32_t Reversed(uint32_t word, int length) {
    uint32_t reversed = 0;
    for (int i = 0; i < length; i++)
        reversed |= (word >> i & 1) << (length - 1 - i);
    return reversed;
}

// False when there are more code words than bits can tell apart. Fewer are allowed: what no word
// stands for is refused where it is met.
static bool FillTable(CodeTable& table, const uint8_t* lengths, uint32_t symbols) {
    uint32_t next[MAX_CODE_LENGTH + 2] = {};
    for (uint32_t symbol = 0; symbol < symbols; symbol++) {
        if (lengths[symbol] != 0)
            next[lengths[symbol] + 1]++;
    }
    for (int length = 2; length <= MAX_CODE_LENGTH + 1; length++)
        next[length] = (next[length] + next[length - 1]) << 1;
    // The number after the last word of the full length, doubled once too often.
    if (next[MAX_CODE_LENGTH + 1] > 2U << MAX_CODE_LENGTH)
        return false;
    std::memset(&table, 0, sizeof table);
    for (uint32_t symbol = 0; symbol < symbols; symbol++) {
        const int length = lengths[symbol];
        if (length == 0)
            continue;
        const uint32_t word = Reversed(next[length]++, length);
        for (uint32_t i = word; i < 1U << MAX_CODE_LENGTH; i += 1U << length)
            table.entries[i] = uint16_t(symbol << 4 | uint32_t(length));
    }
    return true;
}

// The next symbol; UINT32_MAX when no code word fits.
static uint32_t TakeSymbol(BitReader& reader, const CodeTable& table) {
    const uint32_t entry = table.entries[reader.Peek(MAX_CODE_LENGTH)];
    reader.Drop(int(entry & 15));
    return entry == 0 ? UINT32_MAX : entry >> 4;
}

static uint32_t TakeSlotValue(BitReader& reader, uint32_t slot) {
    return Slots[slot].first + reader.Take(Slots[slot].bits);
}

// How far back the string stands; 0 when no code word fits.
static uint32_t TakeDistance(BitReader& reader, const CodeTable& table,
                             uint32_t (&last)[LAST_DISTANCES]) {
    const uint32_t symbol = TakeSymbol(reader, table);
    if (symbol == UINT32_MAX)
        return 0;
    const uint32_t distance =
        symbol < LAST_DISTANCES ? last[symbol] : TakeSlotValue(reader, symbol - LAST_DISTANCES) + 1;
    RememberDistance(last, distance);
    return distance;
}

// Copies byte by byte, since the string may overlap what it makes.
static void CopyString(uint8_t* to, size_t distance, size_t length) {
    if (distance == 1) {
        std::memset(to, to[-1], length);
        return;
    }
    const uint8_t* from = to - distance;
    for (size_t i = 0; i < length; i++)
        to[i] = from[i];
}

static bool DecodeSymbols(const BlockDecoder& decoder, BitReader& reader, uint8_t* plain,
                          size_t plainBytes) {
    uint32_t last[LAST_DISTANCES] = {1, 2, 3};
    size_t done = 0;
    while (done < plainBytes) {
        reader.Refill();
        const uint32_t symbol = TakeSymbol(reader, decoder.main);
        if (symbol < BYTES) {
            plain[done++] = uint8_t(symbol);
            continue;
        }
        if (symbol == UINT32_MAX)
            return false;
        const size_t length = MIN_MATCH + TakeSlotValue(reader, symbol - BYTES);
        const size_t distance = TakeDistance(reader, decoder.distances, last);
        if (distance == 0 || distance > done || length > plainBytes - done)
            return false;
        CopyString(plain + done, distance, length);
        done += length;
    }
    return !reader.Overrun();
}

static bool DecodeCoded(BlockDecoder& decoder, BitReader reader, uint8_t* plain,
                        size_t plainBytes) {
    uint8_t lengths[ALL_SYMBOLS];
    return ReadLengths(reader, lengths) && FillTable(decoder.main, lengths, MAIN_SYMBOLS) &&
           FillTable(decoder.distances, lengths + MAIN_SYMBOLS, DISTANCE_SYMBOLS) &&
           DecodeSymbols(decoder, reader, plain, plainBytes);
}

bool DecodeBlock(BlockDecoder& decoder, const uint8_t* packed, size_t packedBytes, uint8_t* plain,
                 size_t plainBytes) {
    if (packedBytes < BLOCK_HEAD || plainBytes > TABLE_BLOCK)
        return false;
    const uint8_t* const body = packed + BLOCK_HEAD;
    const size_t bodyBytes = packedBytes - BLOCK_HEAD;
    const uint8_t method = packed[BLOCK_HEAD - 1];
    if (method == METHOD_STORED && bodyBytes == plainBytes)
        std::memcpy(plain, body, plainBytes);
    else if (method != METHOD_CODED ||
             !DecodeCoded(decoder, BitReader(body, body + bodyBytes), plain, plainBytes))
        return false;
    return TableChecksum(plain, plainBytes) == LoadLittle32(packed);
}
