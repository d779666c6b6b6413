// Opening files by names with Windows manners.

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "platform/files.h"
#include "support/scratch.h"

namespace fs = std::filesystem;

namespace {

// A directory of its own, with some files whose text is their path, as the current directory.
class Files : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories("Deep/Inner Room");
        for (const char* const path :
             {"Book.tqn", "Deep/Inner Room/Games.PGN", "Deep/upper.txt", "Deep/UPPER.TXT",
              "c:\\literal.txt", "back\\slash.txt", "slash.txt", "Deep/bOok.tqn"})
            std::ofstream(path) << path;
    }
    ScratchDirectory scratch;
    fs::path directory = fs::current_path();
};

std::string TextOf(FILE* file) {
    if (file == nullptr)
        return "none";
    char text[100] = "";
    const size_t size = std::fread(text, 1, sizeof text, file);
    std::fclose(file);
    return std::string(text, size);
}

TEST_F(Files, AreFoundWithWindowsManners) {
    const struct {
        std::string name;
        const char* found;
    } cases[] = {
        {"Book.tqn", "Book.tqn"},
        {"book.TQN", "Book.tqn"},
        {".\\book.tqn", "Book.tqn"},
        {"deep\\inner room\\games.pgn", "Deep/Inner Room/Games.PGN"},
        {"deep\\..\\deep\\.\\book.tqn", "Deep/bOok.tqn"},
        {directory.string() + "\\DEEP\\Book.tqn", "Deep/bOok.tqn"},
        // The name as it stands comes first, and among like names the first by its bytes.
        {"Deep/upper.txt", "Deep/upper.txt"},
        {"Deep/Upper.txt", "Deep/UPPER.TXT"},
        {"back\\slash.txt", "back\\slash.txt"},
        {"c:\\literal.txt", "c:\\literal.txt"},
        // No drive, no such file, no file at all.
        {"c:\\book.tqn", "none"},
        {"C:\\literal.txt", "none"},
        {"Book.tqn\\", "Book.tqn"},
        {"nowhere\\Book.tqn", "none"},
        {"deep\\inner room", "none"},
        {".", "none"},
        {"\\", "none"},
        {"", "none"},
        {std::string(5000, 'x'), "none"},
        {"b\xe9\xff\\\x01", "none"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(TextOf(OpenFile(c.name.c_str(), "rb")), c.found);
    }
}

TEST_F(Files, ThatStandUnderAnotherSpellingAreUpdatedAndNewOnesTakeTheirNameAsItIs) {
    const auto append = [](const char* name) {
        FILE* const file = OpenFile(name, "ab");
        ASSERT_NE(file, nullptr);
        std::fputs("+", file);
        std::fclose(file);
    };
    append(".\\BOOK.TQN");
    append("new.LOG");
    append("New.log");
    EXPECT_EQ(TextOf(std::fopen("Book.tqn", "rb")), "Book.tqn+");
    EXPECT_EQ(TextOf(std::fopen("new.LOG", "rb")), "++");
    EXPECT_FALSE(fs::exists("New.log"));
}

TEST_F(Files, OnADriveStandInTheDirectoryThatIsGivenForIt) {
    setenv("TARQUELIN_DRIVE_X", (directory / "Deep").c_str(), 1);
    for (const char* const name : {"x:\\book.tqn", "X:BOOK.TQN", "x:/./Book.tqn"})
        EXPECT_EQ(TextOf(OpenFile(name, "rb")), "Deep/bOok.tqn") << name;
    FILE* const created = OpenFile("x:\\inner ROOM\\New.csv", "ab");
    ASSERT_NE(created, nullptr);
    std::fclose(created);
    EXPECT_TRUE(fs::exists("Deep/Inner Room/New.csv"));
    EXPECT_EQ(OpenFile("x:\\", "rb"), nullptr);
    EXPECT_EQ(OpenFile("x:\\no room\\New.csv", "ab"), nullptr);
    setenv("TARQUELIN_DRIVE_X", "", 1);
    EXPECT_EQ(OpenFile("x:\\book.tqn", "rb"), nullptr);
    unsetenv("TARQUELIN_DRIVE_X");
}

TEST_F(Files, MayNotBeAnythingElseEvenForWriting) {
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    EXPECT_FALSE(ReplaceWholeFile("pipe", "text"));
    EXPECT_FALSE(ReplaceWholeFile("Deep", "text"));
    for (const char* const mode : {"rb", "wb", "ab", "rb+"}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(OpenFile("Deep", mode), nullptr);
        EXPECT_EQ(OpenFile("pipe", mode), nullptr);
        EXPECT_EQ(OpenFile("no such room/file.txt", mode), nullptr);
    }
}

TEST_F(Files, AreReplacedWholeOrNotAtAll) {
    fs::create_symlink("Deep/upper.txt", "link");
    fs::permissions("Deep/upper.txt", fs::perms(0640));
    const size_t rooms = size_t(std::distance(fs::directory_iterator("Deep"), {}));
    EXPECT_TRUE(ReplaceWholeFile("LINK", "new"));
    EXPECT_TRUE(fs::is_symlink("link"));
    EXPECT_EQ(TextOf(OpenFile("Deep/upper.txt", "rb")), "new");
    EXPECT_EQ(fs::status("Deep/upper.txt").permissions(), fs::perms(0640));
    // As on a full disk, seen at once or when the file is closed.
    rlimit before;
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {1000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    const bool replaced = ReplaceWholeFile("link", std::string(1001, 'x')) ||
                          ReplaceWholeFile("link", std::string(100001, 'x'));
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(replaced);
    EXPECT_EQ(TextOf(OpenFile("link", "rb")), "new");
    EXPECT_EQ(size_t(std::distance(fs::directory_iterator("Deep"), {})), rooms);
}

// Walking down such a name takes longer than any test may.
TEST_F(Files, AreNotLookedForByNamesBeyondAllPaths) {
    std::string name = "x";
    for (int i = 0; i < 500000; i++)
        name += "\\a";
    EXPECT_EQ(OpenFile(name.c_str(), "rb"), nullptr);
    EXPECT_EQ(FindPath(name), name);
}

} // namespace
