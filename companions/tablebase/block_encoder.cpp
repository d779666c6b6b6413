#include "block_encoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "tablebase/block_code.h"

namespace {

// How often the block is taken apart anew with the costs that the last time has shown.
constexpr int PASSES = 2;
// Places looked at for a string that has stood before, latest first.
constexpr int CHAIN_LIMIT = 32;
// A string this long is taken without weighing what else there is.
constexpr uint32_t LONG_ENOUGH = 200;
// Of a string that has stood before, only beginnings up to this length are weighed, and all of it.
constexpr uint32_t WEIGHED_LENGTHS = 32;

constexpr size_t NOWHERE = SIZE_MAX;

using Bits = float;

// A step through the block: a byte (distance 0) or a string that has stood `distance` before.
struct Step {
    uint32_t length;
    uint32_t distance;
};

// What the symbols cost.
struct Costs {
    std::array<Bits, MAIN_SYMBOLS> main;
    std::array<Bits, DISTANCE_SYMBOLS> distances;
};

struct Counts {
    std::array<uint32_t, MAIN_SYMBOLS> main = {};
    std::array<uint32_t, DISTANCE_SYMBOLS> distances = {};
};

// The cheapest way to a place of the block.
struct Arrival {
    Bits cost;
    Step step;
    uint32_t last[LAST_DISTANCES];
};

// Strings that have stood before, found by their first two bytes.
class Finder {
public:
    explicit Finder(std::span<const uint8_t> bytes)
        : plain(bytes), previous(bytes.size(), NOWHERE) {
        newest.fill(NOWHERE);
    }

    // Makes the string that begins here findable.
    void Add(size_t place) {
        if (place + MIN_MATCH > plain.size())
            return;
        size_t& head = newest[Head(place)];
        previous[place] = head;
        head = place;
    }

    uint32_t LengthAt(size_t place, uint32_t distance) const {
        const size_t limit = plain.size() - place;
        size_t length = 0;
        while (length < limit && plain[place + length] == plain[place + length - distance])
            length++;
        return uint32_t(length);
    }

    // Ever longer strings that stand ever farther back.
    void Find(size_t place, std::vector<Step>& found) const {
        found.clear();
        if (place + MIN_MATCH > plain.size())
            return;
        uint32_t longest = MIN_MATCH - 1;
        size_t at = newest[Head(place)];
        for (int i = 0; i < CHAIN_LIMIT && at != NOWHERE; i++, at = previous[at]) {
            if (place + longest < plain.size() && plain[at + longest] != plain[place + longest])
                continue;
            const auto distance = uint32_t(place - at);
            const uint32_t length = LengthAt(place, distance);
            if (length <= longest)
                continue;
            longest = length;
            found.push_back({length, distance});
            if (place + length == plain.size())
                return;
        }
    }

private:
    size_t Head(size_t place) const {
        return size_t{plain[place]} << 8 | plain[place + 1];
    }

    std::span<const uint8_t> plain;
    std::array<size_t, 1 << 16> newest;
    std::vector<size_t> previous;
};

uint32_t LengthSymbol(uint32_t length) {
    return BYTES + SlotOf(length - MIN_MATCH);
}

uint32_t DistanceSymbol(const uint32_t (&last)[LAST_DISTANCES], uint32_t distance) {
    const auto* const found = std::find(std::begin(last), std::end(last), distance);
    return found != std::end(last) ? uint32_t(found - last) : LAST_DISTANCES + SlotOf(distance - 1);
}

int ExtraBits(uint32_t symbol, uint32_t firstSlot) {
    return symbol < firstSlot ? 0 : Slots[symbol - firstSlot].bits;
}

// Finds the cheapest way through a block.
class Parser {
public:
    Parser(std::span<const uint8_t> bytes, const Costs& bits)
        : plain(bytes), costs(bits), finder(bytes), arrivals(bytes.size() + 1) {}

    std::vector<Step> Parse() {
        for (Arrival& arrival : arrivals)
            arrival.cost = INFINITY;
        arrivals[0] = {0, {0, 0}, {1, 2, 3}};
        std::vector<Step> found;
        size_t skipTo = 0;
        for (size_t place = 0; place < plain.size(); place++) {
            if (place >= skipTo)
                skipTo = StepFrom(place, found);
            finder.Add(place);
        }
        std::vector<Step> steps;
        for (size_t place = plain.size(); place > 0; place -= steps.back().length)
            steps.push_back(arrivals[place].step);
        std::reverse(steps.begin(), steps.end());
        return steps;
    }

private:
    void Arrive(size_t from, Step step, Bits cost) {
        const Arrival& start = arrivals[from];
        Arrival& arrival = arrivals[from + step.length];
        if (start.cost + cost >= arrival.cost)
            return;
        arrival.cost = start.cost + cost;
        arrival.step = step;
        std::copy_n(start.last, LAST_DISTANCES, arrival.last);
        if (step.distance != 0)
            RememberDistance(arrival.last, step.distance);
    }

    void Weigh(size_t place, uint32_t distance, uint32_t shortest, uint32_t longest) {
        const uint32_t symbol = DistanceSymbol(arrivals[place].last, distance);
        const Bits bits = costs.distances[symbol] + Bits(ExtraBits(symbol, LAST_DISTANCES));
        for (uint32_t length = shortest; length <= longest; length++) {
            if (length > WEIGHED_LENGTHS && length < longest)
                length = longest;
            const uint32_t slot = LengthSymbol(length);
            Arrive(place, {length, distance},
                   bits + costs.main[slot] + Bits(ExtraBits(slot, BYTES)));
        }
    }

    // Returns the place up to which nothing else is worth a look.
    size_t StepFrom(size_t place, std::vector<Step>& found) {
        Arrive(place, {1, 0}, costs.main[plain[place]]);
        uint32_t longest = 0;
        for (uint32_t i = 0; i < LAST_DISTANCES; i++) {
            const uint32_t distance = arrivals[place].last[i];
            if (distance > place)
                continue;
            const uint32_t length = finder.LengthAt(place, distance);
            Weigh(place, distance, MIN_MATCH, length);
            longest = std::max(longest, length);
        }
        if (longest < LONG_ENOUGH) {
            finder.Find(place, found);
            uint32_t shortest = MIN_MATCH;
            for (const Step& step : found) {
                Weigh(place, step.distance, shortest, step.length);
                shortest = step.length + 1;
                longest = std::max(longest, step.length);
            }
        }
        return longest >= LONG_ENOUGH ? place + longest : place;
    }

    std::span<const uint8_t> plain;
    const Costs& costs;
    Finder finder;
    std::vector<Arrival> arrivals;
};

// Calls `take(symbol of the first alphabet, its value, symbol of the second or none, its value)`
// for every step.
constexpr uint32_t NO_SYMBOL = UINT32_MAX;

template <typename Take>
void WalkSteps(std::span<const uint8_t> plain, const std::vector<Step>& steps, Take take) {
    uint32_t last[LAST_DISTANCES] = {1, 2, 3};
    size_t place = 0;
    for (const Step& step : steps) {
        if (step.distance == 0) {
            take(plain[place], 0U, NO_SYMBOL, 0U);
        } else {
            take(LengthSymbol(step.length), step.length - MIN_MATCH,
                 DistanceSymbol(last, step.distance), step.distance - 1);
            RememberDistance(last, step.distance);
        }
        place += step.length;
    }
}

Counts CountSymbols(std::span<const uint8_t> plain, const std::vector<Step>& steps) {
    Counts counts;
    WalkSteps(plain, steps, [&](uint32_t main, uint32_t, uint32_t distance, uint32_t) {
        counts.main[main]++;
        if (distance != NO_SYMBOL)
            counts.distances[distance]++;
    });
    return counts;
}

// What a symbol will cost if it comes about as often as last time. One that did not come at all
// has to be announced besides.
template <size_t N>
void SetCosts(const std::array<uint32_t, N>& counts, std::array<Bits, N>& costs) {
    const Bits total = Bits(std::accumulate(counts.begin(), counts.end(), 0U)) + 1;
    for (size_t i = 0; i < N; i++)
        costs[i] = std::min(Bits(MAX_CODE_LENGTH), std::log2(total / (Bits(counts[i]) + 0.4F)));
}

Costs FirstCosts() {
    Costs costs;
    costs.main.fill(7);
    std::fill_n(costs.main.begin(), BYTES, 5);
    costs.distances.fill(6);
    std::fill_n(costs.distances.begin(), LAST_DISTANCES, 2);
    return costs;
}

// Lengths of the best code words without regard to the limit, by merging the two rarest again and
// again.
void SetBestLengths(std::span<const uint32_t> counts, std::vector<uint32_t>& used,
                    uint8_t* lengths) {
    std::sort(used.begin(), used.end(),
              [&](uint32_t a, uint32_t b) { return counts[a] < counts[b]; });
    // Leaves first, then the nodes that join two others, both by rising weight.
    const size_t leaves = used.size();
    std::vector<uint64_t> weight(2 * leaves);
    std::vector<size_t> parent(2 * leaves);
    for (size_t i = 0; i < leaves; i++)
        weight[i] = counts[used[i]];
    size_t leaf = 0;
    size_t joined = leaves;
    const size_t root = 2 * leaves - 2;
    for (size_t node = leaves; node <= root; node++) {
        for (int child = 0; child < 2; child++) {
            const bool takeLeaf =
                leaf < leaves && (joined >= node || weight[leaf] <= weight[joined]);
            const size_t rarest = takeLeaf ? leaf++ : joined++;
            weight[node] += weight[rarest];
            parent[rarest] = node;
        }
    }
    std::vector<uint8_t> depth(2 * leaves);
    for (size_t node = root; node-- > 0;) {
        depth[node] = uint8_t(std::min(depth[parent[node]] + 1, 255));
        if (node < leaves)
            lengths[used[node]] = depth[node];
    }
}

// Shortens what is too long, and makes room by lengthening the rarest of the others. `used` is in
// order of rising counts.
void LimitLengths(const std::vector<uint32_t>& used, uint8_t* lengths) {
    constexpr uint32_t ROOM = 1 << MAX_CODE_LENGTH;
    uint32_t taken = 0;
    for (const uint32_t symbol : used) {
        lengths[symbol] = std::min(lengths[symbol], uint8_t{MAX_CODE_LENGTH});
        taken += ROOM >> lengths[symbol];
    }
    while (taken > ROOM) {
        for (const uint32_t symbol : used) {
            if (taken <= ROOM)
                break;
            if (lengths[symbol] == MAX_CODE_LENGTH)
                continue;
            lengths[symbol]++;
            taken -= ROOM >> lengths[symbol];
        }
    }
    // What is left over goes to the most frequent.
    for (auto symbol = used.rbegin(); symbol != used.rend(); ++symbol) {
        while (lengths[*symbol] > 1 && taken + (ROOM >> lengths[*symbol]) <= ROOM) {
            taken += ROOM >> lengths[*symbol];
            lengths[*symbol]--;
        }
    }
}

void SetLengths(std::span<const uint32_t> counts, uint8_t* lengths) {
    std::vector<uint32_t> used;
    for (uint32_t symbol = 0; symbol < counts.size(); symbol++) {
        if (counts[symbol] != 0)
            used.push_back(symbol);
    }
    if (used.size() == 1)
        lengths[used[0]] = 1;
    if (used.size() < 2)
        return;
    SetBestLengths(counts, used, lengths);
    LimitLengths(used, lengths);
}

class BitWriter {
public:
    explicit BitWriter(std::vector<uint8_t>& to) : bytes(to) {}

    // The low bits of `value`, lowest first.
    void Put(uint32_t value, int count) {
        for (int i = 0; i < count; i++) {
            if (free == 0) {
                bytes.push_back(0);
                free = 8;
            }
            bytes.back() = uint8_t(bytes.back() | (value >> i & 1) << (8 - free));
            free--;
        }
    }
    // A code word, highest bit first.
    void PutWord(uint32_t word, int length) {
        for (int i = length - 1; i >= 0; i--)
            Put(word >> i & 1, 1);
    }
    void PutNumber(uint32_t number) {
        const int lower = int(std::bit_width(number)) - 1;
        Put(0, lower);
        Put(1, 1);
        Put(number & ((1U << lower) - 1), lower);
    }

private:
    std::vector<uint8_t>& bytes;
    int free = 0;
};

void PutLengths(BitWriter& writer, const std::array<uint8_t, ALL_SYMBOLS>& lengths) {
    for (size_t symbol = 0; symbol < ALL_SYMBOLS;) {
        writer.Put(lengths[symbol], 4);
        size_t next = symbol + 1;
        if (lengths[symbol] == 0) {
            while (next < ALL_SYMBOLS && lengths[next] == 0)
                next++;
            writer.PutNumber(uint32_t(next - symbol));
        }
        symbol = next;
    }
}

// The code words that belong to the lengths.
std::vector<uint32_t> WordsOf(std::span<const uint8_t> lengths) {
    std::vector<uint32_t> words(lengths.size());
    uint32_t next = 0;
    for (int length = 1; length <= MAX_CODE_LENGTH; length++, next <<= 1) {
        for (size_t symbol = 0; symbol < lengths.size(); symbol++) {
            if (lengths[symbol] == length)
                words[symbol] = next++;
        }
    }
    return words;
}

void PutSteps(BitWriter& writer, std::span<const uint8_t> plain, const std::vector<Step>& steps,
              const std::array<uint8_t, ALL_SYMBOLS>& lengths) {
    const std::span<const uint8_t> all = lengths;
    const auto mainLengths = all.first(MAIN_SYMBOLS);
    const auto distanceLengths = all.last(DISTANCE_SYMBOLS);
    const std::vector<uint32_t> mainWords = WordsOf(mainLengths);
    const std::vector<uint32_t> distanceWords = WordsOf(distanceLengths);
    const auto putRest = [&](uint32_t value, uint32_t symbol, uint32_t firstSlot) {
        if (symbol >= firstSlot)
            writer.Put(value - Slots[symbol - firstSlot].first, Slots[symbol - firstSlot].bits);
    };
    WalkSteps(plain, steps, [&](uint32_t main, uint32_t length, uint32_t distance, uint32_t back) {
        writer.PutWord(mainWords[main], mainLengths[main]);
        putRest(length, main, BYTES);
        if (distance == NO_SYMBOL)
            return;
        writer.PutWord(distanceWords[distance], distanceLengths[distance]);
        putRest(back, distance, LAST_DISTANCES);
    });
}

void SetHead(std::vector<uint8_t>& packed, std::span<const uint8_t> plain, BlockMethod method) {
    StoreLittle32(packed.data(), TableChecksum(plain.data(), plain.size()));
    packed[BLOCK_HEAD - 1] = method;
}

std::vector<uint8_t> StoreAsItIs(std::span<const uint8_t> plain) {
    std::vector<uint8_t> packed(BLOCK_HEAD + plain.size());
    SetHead(packed, plain, METHOD_STORED);
    std::ranges::copy(plain, packed.begin() + BLOCK_HEAD);
    return packed;
}

std::vector<uint8_t> WriteCoded(std::span<const uint8_t> plain, const std::vector<Step>& steps,
                                const Counts& counts) {
    std::vector<uint8_t> packed(BLOCK_HEAD);
    SetHead(packed, plain, METHOD_CODED);
    std::array<uint8_t, ALL_SYMBOLS> lengths = {};
    SetLengths(counts.main, lengths.data());
    SetLengths(counts.distances, lengths.data() + MAIN_SYMBOLS);
    BitWriter writer(packed);
    PutLengths(writer, lengths);
    PutSteps(writer, plain, steps, lengths);
    return packed;
}

} // namespace

std::vector<uint8_t> EncodeBlock(std::span<const uint8_t> plain) {
    std::vector<uint8_t> best = StoreAsItIs(plain);
    Costs costs = FirstCosts();
    for (int pass = 0; pass < PASSES; pass++) {
        const std::vector<Step> steps = Parser(plain, costs).Parse();
        const Counts counts = CountSymbols(plain, steps);
        std::vector<uint8_t> packed = WriteCoded(plain, steps, counts);
        if (packed.size() < best.size())
            best = std::move(packed);
        SetCosts(counts.main, costs.main);
        SetCosts(counts.distances, costs.distances);
    }
    return best;
}
