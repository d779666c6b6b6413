#include "book/learning_file.h"

#include <csignal>
#include <cstdlib>
#include <random>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

#include "platform/file_lock.h"
#include "support/scratch.h"

namespace {

constexpr const char* Name = "Learn.tq1";
constexpr size_t EMPTY_SIZE = 262167;

// Positions of one bucket differ above the low 16 bits.
constexpr LearningKeys KeysIn(uint32_t bucket, uint32_t number) {
    return {bucket | number << 16, number + 77};
}

constexpr LearnedPosition Sample(int number) {
    return {450 + number, -100 - number, 796 + Move(number)};
}

std::string Word(uint32_t value) {
    std::string bytes;
    for (int i = 0; i < 4; i++)
        bytes += char(value >> (8 * i));
    return bytes;
}

class LearningFile : public testing::Test {
protected:
    void TearDown() override {
        CloseLearningFile();
    }
    // Puts the bytes into the file and opens it.
    static void Open(const std::string& bytes) {
        CloseLearningFile();
        WriteFileText(Name, bytes);
        OpenLearningFile(Name);
    }
    static bool Knows(LearningKeys keys, const LearnedPosition& expected) {
        LearnedPosition found;
        return LookUpLearned(keys, found) != 0 && found.depth == expected.depth &&
               found.evaluation == expected.evaluation && found.move == expected.move;
    }

    ScratchDirectory directory;
};

TEST_F(LearningFile, IsMadeEmptyAndKeepsWhatIsAdded) {
    OpenLearningFile(Name);
    std::string bytes = FileText(Name);
    ASSERT_EQ(bytes.size(), EMPTY_SIZE);
    EXPECT_EQ(bytes.substr(0, 24), std::string("Tarquelin learning file") + '\0');
    EXPECT_EQ(bytes.find_first_not_of('\0', 23), std::string::npos);
    AddLearned(KeysIn(65535, 1), Sample(1));
    AddLearned(KeysIn(65535, 2), Sample(2));
    AddLearned(KeysIn(0, 3), Sample(3));
    bytes = FileText(Name);
    EXPECT_EQ(bytes.substr(EMPTY_SIZE, 24), Word(451) + Word(uint32_t(-101)) + Word(797) +
                                                Word(0x1ffff) + Word(78) + Word(EMPTY_SIZE + 24));
    EXPECT_EQ(bytes.substr(EMPTY_SIZE - 4, 4), Word(EMPTY_SIZE));
    EXPECT_EQ(bytes.substr(23, 4), Word(EMPTY_SIZE + 48));
    LearnedPosition found;
    const uint32_t offset = LookUpLearned(KeysIn(65535, 2), found);
    EXPECT_EQ(offset, EMPTY_SIZE + 24);
    RefreshLearned(offset, KeysIn(65535, 2), Sample(9));
    CloseLearningFile();
    OpenLearningFile(Name);
    EXPECT_TRUE(Knows(KeysIn(65535, 1), Sample(1)));
    EXPECT_TRUE(Knows(KeysIn(65535, 2), Sample(9)));
    EXPECT_TRUE(Knows(KeysIn(0, 3), Sample(3)));
    EXPECT_EQ(LookUpLearned(KeysIn(65535, 3), found), 0u);
    EXPECT_EQ(FileText(Name).size(), EMPTY_SIZE + 72);
    const LearningKeys keys = LearningKeysOf(0x123456789abcdef0);
    EXPECT_EQ(Word(keys.key1) + Word(keys.key2), Word(0x9abcdef0) + Word(0x56789abc));
}

// Two entries of one bucket whose links have come to lead somewhere else.
TEST_F(LearningFile, BrokenChainsEndAndAreMendedByTheNextEntry) {
    constexpr size_t Head = 23 + 4 * 5;
    constexpr size_t FirstLink = EMPTY_SIZE + 20;
    constexpr size_t SecondLink = EMPTY_SIZE + 44;
    const struct {
        const char* name;
        size_t at; // of the damaged link
        uint32_t link;
        bool secondLost;
    } cases[] = {
        {"round the second", SecondLink, EMPTY_SIZE + 24, false},
        {"round both", SecondLink, EMPTY_SIZE, false},
        {"round the first", FirstLink, EMPTY_SIZE, true},
        {"beyond the end", SecondLink, EMPTY_SIZE + 48, false},
        {"no room for a whole entry", SecondLink, EMPTY_SIZE + 25, false},
        {"into the middle of the second", SecondLink, EMPTY_SIZE + 23, false},
        {"into the middle of the first", FirstLink, EMPTY_SIZE + 1, true},
        {"into the heads", FirstLink, 100, true},
        {"a head into the heads", Head, 24, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Open("");
        AddLearned(KeysIn(5, 1), Sample(1));
        AddLearned(KeysIn(5, 2), Sample(2));
        std::string bytes = FileText(Name);
        bytes.replace(c.at, 4, Word(c.link));
        Open(bytes);
        LearnedPosition found;
        EXPECT_EQ(LookUpLearned(KeysIn(5, 3), found), 0u);
        AddLearned(KeysIn(5, 3), Sample(3));
        EXPECT_TRUE(Knows(KeysIn(5, 3), Sample(3)));
        EXPECT_EQ(Knows(KeysIn(5, 1), Sample(1)), c.at != Head);
        EXPECT_EQ(Knows(KeysIn(5, 2), Sample(2)), !c.secondLost);
    }
}

TEST_F(LearningFile, CutOffAndRandomFilesAreBorne) {
    std::mt19937 random(11);
    for (const size_t size : {size_t{0}, size_t{25}, EMPTY_SIZE - 1, EMPTY_SIZE + 100}) {
        SCOPED_TRACE(size);
        std::string bytes(size, '\0');
        for (char& byte : bytes)
            byte = char(random());
        Open(bytes);
        for (uint32_t i = 0; i < 200; i++) {
            const LearningKeys keys = KeysIn(random() % 65536, i);
            AddLearned(keys, Sample(int(i)));
            EXPECT_TRUE(Knows(keys, Sample(int(i))));
        }
        // What is shorter than its head holds no entries and is made anew.
        const std::string head = size < EMPTY_SIZE ? "Tarquelin learning file" : bytes;
        EXPECT_EQ(FileText(Name).substr(0, 23), head.substr(0, 23));
    }
}

// A pipe is no file: to open it would be to wait for ever.
TEST_F(LearningFile, WithoutAFileNothingIsLearned) {
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    for (const char* const name : {"nowhere/Learn.tq1", "pipe"}) {
        OpenLearningFile(name);
        AddLearned(KeysIn(1, 1), Sample(1));
        LearnedPosition found;
        EXPECT_EQ(LookUpLearned(KeysIn(1, 1), found), 0u);
    }
}

// Each process opens the file for itself, which is not there at first.
TEST_F(LearningFile, TakesTheEntriesOfTwoProcesses) {
    constexpr uint32_t Entries = 1500; // of each, in few buckets
    std::vector<pid_t> processes;
    for (uint32_t first = 0; first < 2 * Entries; first += Entries) {
        if (const pid_t child = fork(); child != 0) {
            processes.push_back(child);
            continue;
        }
        OpenLearningFile(Name);
        for (uint32_t i = first; i < first + Entries; i++)
            AddLearned(KeysIn(i % 64, i), Sample(int(i)));
        std::_Exit(0);
    }
    for (const pid_t process : processes)
        waitpid(process, nullptr, 0);
    OpenLearningFile(Name);
    uint32_t known = 0;
    for (uint32_t i = 0; i < 2 * Entries; i++)
        known += Knows(KeysIn(i % 64, i), Sample(int(i)));
    // On a busy machine one may find the file locked for too long and give an entry up.
    EXPECT_GT(known, 2 * Entries - 30);
    EXPECT_EQ(FileText(Name).size(), EMPTY_SIZE + 24 * known);
}

// A stopped engine may not stop the others: they learn nothing, and soon.
TEST_F(LearningFile, IsLeftAloneWhileAnotherKeepsItLocked) {
    Open("");
    FILE* const other = std::fopen(Name, "rb+");
    ASSERT_TRUE(LockAgainstOthers(other));
    AddLearned(KeysIn(1, 1), Sample(1));
    EXPECT_FALSE(Knows(KeysIn(1, 1), Sample(1)));
    UnlockForOthers(other);
    std::fclose(other);
    AddLearned(KeysIn(1, 1), Sample(1));
    EXPECT_TRUE(Knows(KeysIn(1, 1), Sample(1)));
}

// As on a full disk, from every byte of the entry on.
TEST_F(LearningFile, AnEntryThatDoesNotFitOnTheDiskIsNotLinked) {
    rlimit before;
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    for (size_t room = 0; room < 24; room += 5) {
        Open("");
        AddLearned(KeysIn(1, 1), Sample(1));
        const rlimit limit = {EMPTY_SIZE + 24 + room, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
        AddLearned(KeysIn(1, 2), Sample(2));
        setrlimit(RLIMIT_FSIZE, &before);
        LearnedPosition found;
        EXPECT_TRUE(Knows(KeysIn(1, 1), Sample(1)));
        EXPECT_EQ(LookUpLearned(KeysIn(1, 2), found), 0u);
        AddLearned(KeysIn(1, 3), Sample(3));
        EXPECT_TRUE(Knows(KeysIn(1, 3), Sample(3)));
    }
    std::signal(SIGXFSZ, handler);
}

} // namespace
