#include "book/learning_file.h"

#include <algorithm>
#include <cstdio>
#include <unordered_set>
#include <vector>

#include "platform/bytes.h"
#include "platform/file_lock.h"
#include "platform/files.h"

namespace {

constexpr char Title[] = "Tarquelin learning file";
constexpr uint32_t HEADS_OFFSET = sizeof Title - 1;
constexpr uint32_t BUCKETS = 65536;
constexpr uint32_t ENTRIES_OFFSET = HEADS_OFFSET + 4 * BUCKETS;
static_assert(ENTRIES_OFFSET == 262167);
constexpr uint32_t ENTRY_SIZE = 24;
constexpr uint32_t NEXT_OFFSET = 20; // of the link in an entry
constexpr uint32_t FIELDS_SIZE = NEXT_OFFSET;

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
    return HEADS_OFFSET + 4 * (keys.key1 % BUCKETS);
}

static bool Write(uint64_t offset, const void* bytes, size_t size) {
    return SeekFile(LearningFile, offset) && std::fwrite(bytes, size, 1, LearningFile) == 1;
}

// Makes the open file one without entries unless its head is there. False when it cannot be. Who
// starts at the same time must wait: what it added would be gone.
static bool ProvideHead() {
    if (SeekEnd(LearningFile) >= ENTRIES_OFFSET)
        return true;
    if (!LockAgainstOthers(LearningFile))
        return false;
    bool whole = SeekEnd(LearningFile) >= ENTRIES_OFFSET;
    if (!whole) {
        const std::vector<char> heads(4 * BUCKETS);
        whole = Write(0, Title, HEADS_OFFSET) && Write(HEADS_OFFSET, heads.data(), heads.size());
    }
    UnlockForOthers(LearningFile);
    return whole;
}

void OpenLearningFile(const char* path) {
    CloseLearningFile();
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

// A link of a bucket; 0 where the file ends before it.
static uint32_t ReadLink(uint32_t offset) {
    unsigned char bytes[4];
    if (!SeekFile(LearningFile, offset) || std::fread(bytes, sizeof bytes, 1, LearningFile) != 1)
        return 0;
    return LoadLittle32(bytes);
}

// False where no entry can be: in the head of the file and beyond its end.
static bool ReadEntry(uint32_t offset, Entry& entry) {
    unsigned char bytes[ENTRY_SIZE];
    if (offset < ENTRIES_OFFSET || !SeekFile(LearningFile, offset) ||
        std::fread(bytes, sizeof bytes, 1, LearningFile) != 1)
        return false;
    entry.position = {int32_t(LoadLittle32(bytes)), int32_t(LoadLittle32(bytes + 4)),
                      LoadLittle32(bytes + 8)};
    entry.keys = {LoadLittle32(bytes + 12), LoadLittle32(bytes + 16)};
    entry.next = LoadLittle32(bytes + NEXT_OFFSET);
    return true;
}

uint32_t LookUpLearned(LearningKeys keys, LearnedPosition& found) {
    if (LearningFile == nullptr)
        return 0;
    uint32_t offset = ReadLink(HeadOffset(keys));
    if (offset == 0)
        return 0;
    // No bucket holds more entries than the file: whoever has read that many goes round in a
    // circle.
    uint64_t left = SeekEnd(LearningFile) / ENTRY_SIZE;
    for (Entry entry; left > 0 && ReadEntry(offset, entry); left--) {
        if (entry.keys.key1 == keys.key1 && entry.keys.key2 == keys.key2) {
            found = entry.position;
            return offset;
        }
        offset = entry.next;
    }
    return 0;
}

// Where the link to the bucket's next entry belongs.
static uint32_t EndOfBucket(LearningKeys keys) {
    std::unordered_set<uint32_t> passed;
    uint32_t link = HeadOffset(keys);
    uint32_t offset = ReadLink(link);
    for (Entry entry; ReadEntry(offset, entry) && passed.insert(offset).second;) {
        link = offset + NEXT_OFFSET;
        offset = entry.next;
    }
    return link;
}

static void StoreFields(unsigned char* bytes, LearningKeys keys, const LearnedPosition& position) {
    StoreLittle32(bytes, uint32_t(position.depth));
    StoreLittle32(bytes + 4, uint32_t(position.evaluation));
    StoreLittle32(bytes + 8, position.move);
    StoreLittle32(bytes + 12, keys.key1);
    StoreLittle32(bytes + 16, keys.key2);
}

// The entry is written before the link to it, so that whenever the process is killed or the disk is
// full, every link leads to a whole entry.
static void Append(LearningKeys keys, const LearnedPosition& position) {
    const uint64_t end = std::max(SeekEnd(LearningFile), uint64_t{ENTRIES_OFFSET});
    if (end > UINT32_MAX - ENTRY_SIZE)
        return;
    unsigned char entry[ENTRY_SIZE] = {};
    StoreFields(entry, keys, position);
    unsigned char link[4];
    StoreLittle32(link, uint32_t(end));
    // Before the file grows: what no entry could be at must not look like one then.
    const uint32_t linkOffset = EndOfBucket(keys);
    if (Write(end, entry, sizeof entry))
        Write(linkOffset, link, sizeof link);
}

void AddLearned(LearningKeys keys, const LearnedPosition& position) {
    if (LearningFile == nullptr || !LockAgainstOthers(LearningFile))
        return;
    Append(keys, position);
    UnlockForOthers(LearningFile);
}

void RefreshLearned(uint32_t offset, LearningKeys keys, const LearnedPosition& position) {
    if (LearningFile == nullptr)
        return;
    unsigned char fields[FIELDS_SIZE];
    StoreFields(fields, keys, position);
    Write(offset, fields, sizeof fields);
}
