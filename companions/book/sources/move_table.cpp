#include "move_table.h"

#include <algorithm>
#include <utility>

namespace {

constexpr size_t FIRST_SIZE = 1 << 12;

} // namespace

static uint32_t AddBounded(uint32_t a, uint32_t b) {
    return uint32_t(std::min<uint64_t>(uint64_t{a} + b, UINT32_MAX));
}

void MoveCount::AddPoints(uint32_t scored, uint32_t conceded) {
    won = AddBounded(won, scored);
    lost = AddBounded(lost, conceded);
}

void MoveCount::AddGame() {
    constexpr uint32_t most = (uint32_t{1} << 31) - 1;
    if (games < most)
        games++;
}

// No move goes from a1 to a1.
static bool IsFree(const MoveCount& slot) {
    return slot.from == slot.to;
}

static size_t HashOf(BookKeys position, int from, int to) {
    uint64_t hash = uint64_t{uint32_t(position.a)} << 32 | uint32_t(position.b);
    hash ^= uint64_t(from << 6 | to) * 0x9E3779B97F4A7C15;
    hash *= 0xBF58476D1CE4E5B9;
    return size_t(hash ^ hash >> 32);
}

MoveCount& MoveTable::Slot(BookKeys position, int from, int to) {
    const size_t mask = slots.size() - 1;
    size_t index = HashOf(position, from, to) & mask;
    while (!IsFree(slots[index]) &&
           !(slots[index].keys == position && slots[index].from == from && slots[index].to == to))
        index = (index + 1) & mask;
    return slots[index];
}

void MoveTable::Grow() {
    std::vector<MoveCount> old(slots.empty() ? FIRST_SIZE : slots.size() * 2, MoveCount{});
    std::swap(old, slots);
    for (const MoveCount& entry : old) {
        if (!IsFree(entry))
            Slot(entry.keys, entry.from, entry.to) = entry;
    }
}

MoveCount& MoveTable::Entry(BookKeys position, int from, int to, bool& isNew) {
    // A quarter stays free, so that a search meets a free slot soon.
    if (count >= slots.size() / 4 * 3)
        Grow();
    MoveCount& slot = Slot(position, from, to);
    isNew = IsFree(slot);
    if (isNew) {
        slot.keys = position;
        slot.from = uint8_t(from);
        slot.to = uint8_t(to);
        slot.score = NO_SCORE;
        count++;
    }
    return slot;
}

std::vector<MoveCount> MoveTable::TakeSorted() {
    std::erase_if(slots, IsFree);
    std::ranges::sort(slots, {}, &MoveCount::keys);
    count = 0;
    return std::exchange(slots, {});
}
