#include "book/learning_file.h"

#include <algorithm>
#include <cstdio>
#include <set>
#include <vector>

#include "book/learning_format.h"
#include "book/unwritten.h"
#include "platform/bytes.h"
#include "platform/file_lock.h"
#include "platform/files.h"

namespace {

constexpr uint32_t FIELDS_SIZE = LEARNING_NEXT; // all but the link

struct Entry {
    LearnedPosition position;
    LearningKeys keys;
    uint32_t next;
};

constinit FILE* LearningFile = nullptr;

} // namespace

LearningKeys LearningKeysOf(uint64_t posKey) {
    return {uint32_t(posKey), uint32_t(posKey >> 16)};
}

static uint32_t HeadOffset(LearningKeys keys) {
    return LEARNING_HEADS + 4 * (keys.key1 % LEARNING_BUCKETS);
}

static bool Write(uint64_t offset, const void* bytes, size_t size) {
    return SeekFile(LearningFile, offset) && std::fwrite(bytes, size, 1, LearningFile) == 1;
}

// Makes the open file one without entries unless its head is there. False when it cannot be. Who
// starts at the same time must wait: what it added would be gone.
static bool ProvideHead() {
    if (SeekEnd(LearningFile) >= LEARNING_ENTRIES)
        return true;
    if (!LockAgainstOthers(LearningFile))
        return false;
    bool whole = SeekEnd(LearningFile) >= LEARNING_ENTRIES;
    if (!whole) {
        const std::vector<char> heads(4 * LEARNING_BUCKETS);
        whole = Write(0, LEARNING_TITLE, LEARNING_HEADS) &&
                Write(LEARNING_HEADS, heads.data(), heads.size());
    }
    UnlockForOthers(LearningFile);
    return whole;
}

void OpenLearningFile(const char* path) {
    CloseLearningFile();
    ForgetUnwritten(LEARNED_POSITIONS);
    // Appending nothing makes the file where there is none, and leaves one alone that another
    // process has just made.
    if (FILE* const file = OpenFile(path, "ab"))
        std::fclose(file);
    LearningFile = OpenFile(path, "rb+");
    const bool writable = LearningFile != nullptr;
    if (!writable)
        LearningFile = OpenFile(path, "rb");
    if (LearningFile == nullptr)
        return;
    // Unbuffered: what is written is in the file at once, in one piece for each entry and link.
    std::setvbuf(LearningFile, nullptr, _IONBF, 0);
    if (writable && !ProvideHead())
        CloseLearningFile();
}

void CloseLearningFile() {
    if (LearningFile != nullptr)
        std::fclose(LearningFile);
    LearningFile = nullptr;
}

// 0 where the file ends before it.
static uint32_t ReadHead(LearningKeys keys) {
    unsigned char bytes[4];
    if (!SeekFile(LearningFile, HeadOffset(keys)) ||
        std::fread(bytes, sizeof bytes, 1, LearningFile) != 1)
        return 0;
    return LoadLittle32(bytes);
}

// False where no entry can be: in the head of the file and beyond its end.
static bool ReadEntry(uint32_t offset, Entry& entry) {
    unsigned char bytes[LEARNING_ENTRY_SIZE];
    if (offset < LEARNING_ENTRIES || !SeekFile(LearningFile, offset) ||
        std::fread(bytes, sizeof bytes, 1, LearningFile) != 1)
        return false;
    entry.position = {int32_t(LoadLittle32(bytes)),
                      int32_t(LoadLittle32(bytes + LEARNING_EVALUATION)),
                      LoadLittle32(bytes + LEARNING_MOVE)};
    entry.keys = {LoadLittle32(bytes + LEARNING_KEY1), LoadLittle32(bytes + LEARNING_KEY2)};
    entry.next = LoadLittle32(bytes + LEARNING_NEXT);
    return true;
}

namespace {

// Goes through the entries of a bucket, as far as there are some by sound links: one that leads
// back to an entry or into the middle of one is not, and to write there would damage that entry.
class BucketWalk {
public:
    explicit BucketWalk(LearningKeys keys) : link(HeadOffset(keys)), next(ReadHead(keys)) {}

    // False at the end of the bucket.
    bool Next() {
        if (!ReadEntry(next, entry) || OverlapsEntry(passed, next))
            return false;
        offset = next;
        link = offset + LEARNING_NEXT;
        next = entry.next;
        passed.insert(offset);
        return true;
    }

    Entry entry{};
    uint32_t offset = 0; // of the entry
    uint32_t link;       // the offset of the link to the one behind it

private:
    uint32_t next;
    std::set<uint32_t> passed;
};

} // namespace

uint32_t LookUpLearned(LearningKeys keys, LearnedPosition& found) {
    if (LearningFile == nullptr)
        return 0;
    for (BucketWalk walk(keys); walk.Next();) {
        if (walk.entry.keys.key1 == keys.key1 && walk.entry.keys.key2 == keys.key2) {
            found = walk.entry.position;
            return walk.offset;
        }
    }
    return 0;
}

// Where the link to the bucket's next entry belongs.
static uint32_t EndOfBucket(LearningKeys keys) {
    BucketWalk walk(keys);
    while (walk.Next()) {
    }
    return walk.link;
}

static void StoreFields(unsigned char* bytes, LearningKeys keys, const LearnedPosition& position) {
    StoreLittle32(bytes, uint32_t(position.depth));
    StoreLittle32(bytes + LEARNING_EVALUATION, uint32_t(position.evaluation));
    StoreLittle32(bytes + LEARNING_MOVE, position.move);
    StoreLittle32(bytes + LEARNING_KEY1, keys.key1);
    StoreLittle32(bytes + LEARNING_KEY2, keys.key2);
}

// The entry is written before the link to it, so that whenever the process is killed or the disk is
// full, every link leads to a whole entry.
static void Append(LearningKeys keys, const LearnedPosition& position) {
    const uint64_t end = std::max(SeekEnd(LearningFile), uint64_t{LEARNING_ENTRIES});
    if (end > UINT32_MAX - LEARNING_ENTRY_SIZE)
        return;
    unsigned char entry[LEARNING_ENTRY_SIZE] = {};
    StoreFields(entry, keys, position);
    unsigned char link[4];
    StoreLittle32(link, uint32_t(end));
    // Before the file grows: what no entry could be at must not look like one then.
    const uint32_t linkOffset = EndOfBucket(keys);
    if (!Write(end, entry, sizeof entry) || !Write(linkOffset, link, sizeof link))
        NoteUnwritten(LEARNED_POSITIONS);
}

void AddLearned(LearningKeys keys, const LearnedPosition& position) {
    if (LearningFile == nullptr)
        return NoteUnwritten(LEARNED_POSITIONS);
    if (!LockAgainstOthers(LearningFile))
        return;
    Append(keys, position);
    UnlockForOthers(LearningFile);
}

void RefreshLearned(uint32_t offset, LearningKeys keys, const LearnedPosition& position) {
    if (LearningFile == nullptr)
        return;
    unsigned char fields[FIELDS_SIZE];
    StoreFields(fields, keys, position);
    if (!Write(offset, fields, sizeof fields))
        NoteUnwritten(LEARNED_POSITIONS);
}
