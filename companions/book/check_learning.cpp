#include "check_learning.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <set>

#include "board/score.h"
#include "book/learning_format.h"
#include "faults.h"
#include "platform/bytes.h"

namespace {

class LearningImage {
public:
    explicit LearningImage(const std::vector<uint8_t>& file) : bytes(file) {}

    uint32_t Head(uint32_t bucket) const {
        return Number(LEARNING_HEADS + 4 * bucket);
    }
    // A number of an entry, by its offset there.
    uint32_t Field(uint32_t entry, uint32_t offset) const {
        return Number(entry + offset);
    }
    bool HasEntry(uint32_t offset) const {
        return offset >= LEARNING_ENTRIES && bytes.size() >= LEARNING_ENTRY_SIZE &&
               offset <= bytes.size() - LEARNING_ENTRY_SIZE;
    }

private:
    uint32_t Number(uint32_t offset) const {
        return LoadLittle32(bytes.data() + offset);
    }
    const std::vector<uint8_t>& bytes;
};

} // namespace

static void CheckEntry(const LearningImage& file, uint32_t entry, uint32_t bucket) {
    if (file.Field(entry, LEARNING_KEY1) % LEARNING_BUCKETS != bucket)
        Fault("entry at %u: is of another bucket than %u\n", entry, bucket);
    if (std::abs(int64_t{int32_t(file.Field(entry, LEARNING_EVALUATION))}) > MATE)
        Fault("entry at %u: its score is none\n", entry);
}

// Goes through the entries of a bucket; `reached` gathers all that any bucket has led to.
static void CheckBucket(const LearningImage& file, uint32_t bucket, std::set<uint32_t>& reached) {
    for (uint32_t entry = file.Head(bucket); entry != 0; entry = file.Field(entry, LEARNING_NEXT)) {
        if (!file.HasEntry(entry))
            return Fault("bucket %u: no entry can be at %u\n", bucket, entry);
        if (reached.contains(entry))
            return Fault("bucket %u: leads to the entry at %u once more\n", bucket, entry);
        if (OverlapsEntry(reached, entry))
            return Fault("bucket %u: leads to %u, into another entry\n", bucket, entry);
        reached.insert(entry);
        CheckEntry(file, entry, bucket);
    }
}

bool IsLearningFile(const std::vector<uint8_t>& bytes) {
    return bytes.size() >= LEARNING_HEADS &&
           std::equal(LEARNING_TITLE, LEARNING_TITLE + LEARNING_HEADS, bytes.begin());
}

int CheckLearningFile(const std::string& path, const std::vector<uint8_t>& bytes) {
    std::set<uint32_t> reached;
    // A shorter one is one that was being made; the engine makes it anew.
    if (bytes.size() >= LEARNING_ENTRIES) {
        const LearningImage file(bytes);
        for (uint32_t bucket = 0; bucket < LEARNING_BUCKETS; bucket++)
            CheckBucket(file, bucket, reached);
    }
    std::printf("%s: %zu learned positions, %" PRIu64 " faults\n", path.c_str(), reached.size(),
                Faults());
    return Faults() == 0 ? 0 : 1;
}
