#include "tablebase/registry.h"

#include <cstdlib>
#include <filesystem>

#include "platform/bytes.h"
#include "support/tablebase_test.h"
#include "tablebase/block_code.h"
#include "tablebase/classes.h"
#include "tablebase/tablebases.h"

namespace fs = std::filesystem;

namespace {

class Registry : public TablebaseTest {
protected:
    static bool Has(const char* name, Colour side) {
        return RegisteredTable(FindTablebaseClass(name), side) != nullptr;
    }
};

TEST_F(Registry, CountsTheMenOfTheLargestClass) {
    EXPECT_EQ(Register(""), 0);
    for (const auto& [name, men] :
         {std::pair{"kpk.nbb", 3}, std::pair{"kppk.nbw", 4}, std::pair{"knkn.nbb", 4},
          std::pair{"kqqkq.nbw", 5}, std::pair{"kppkpp.nbb", 6}}) {
        WriteFileText(name, "");
        EXPECT_EQ(Complaint("."), "");
        EXPECT_EQ(LargestTablebase(), men) << name;
    }
    fs::remove("kppkpp.nbb");
    EXPECT_EQ(Register("."), 5);
    EXPECT_GT(TablebaseMemory(), 0);
    EXPECT_EQ(Register("nowhere"), 0);
    EXPECT_EQ(TablebaseMemory(), 0);
}

TEST_F(Registry, NeedsOneFileOfASymmetricClass) {
    WriteFileText("kqkq.nbw", "");
    WriteFileText("kqkq.nbb", "");
    WriteFileText("kpkp.nbb", "");
    Register(".");
    EXPECT_TRUE(Has("kqkq", WHITE));
    EXPECT_FALSE(Has("kqkq", BLACK));
    EXPECT_FALSE(Has("kpkp", WHITE));
    EXPECT_TRUE(Has("kpkp", BLACK));
}

TEST_F(Registry, WalksTheListOfDirectories) {
    fs::create_directories("One/Two");
    fs::create_directories("three men");
    WriteFileText("One/Two/KQK.NBW", "");
    WriteFileText("three men/krk.nbw", "");
    WriteFileText("three men/KQK.nbw", std::string(30000, 'x'));
    const struct {
        const char* list;
        bool queen;
        bool rook;
    } cases[] = {
        {"one\\two\\", true, false},
        {"One/Two;three men", true, true},
        {" three men ,,; one\\TWO ,", true, true},
        {"nowhere;One;three men", false, true},
        {"d:\\One\\Two", false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.list);
        Complaint(c.list);
        EXPECT_EQ(Has("kqk", WHITE), c.queen);
        EXPECT_EQ(Has("krk", WHITE), c.rook);
    }
}

// Even where a directory has a name like a drive's, only drives that exist are looked at.
TEST_F(Registry, AsksForTheDriveFirst) {
    fs::create_directories("e:");
    WriteFileText("e:/kqk.nbw", "");
    fs::create_directories("drive/tables");
    WriteFileText("drive/tables/kpk.nbw", "");
    EXPECT_EQ(Register("e:;d:\\tables"), 0);
    setenv("TARQUELIN_DRIVE_D", (fs::current_path() / "drive").c_str(), 1);
    EXPECT_EQ(Register("e:\\;d:\\Tables"), 3);
    unsetenv("TARQUELIN_DRIVE_D");
    EXPECT_TRUE(Has("kpk", WHITE));
    EXPECT_FALSE(Has("kqk", WHITE));
}

TEST_F(Registry, RefusesAPlainFileThatIsTooLong) {
    WriteFileText("kqk.nbw", std::string(25636, '\0'));
    // A compressed one is looked for only where a plain one cannot be opened.
    WriteFileText("kqk.nbw.emd", "");
    EXPECT_EQ(Complaint("."), "*** Unable to register ./kqk.nbw\n");
    WriteFileText("kqk.nbw", std::string(25635, '\0'));
    EXPECT_EQ(Complaint("."), "");
    EXPECT_EQ(LargestTablebase(), 3);
}

TEST_F(Registry, TriesTheNamesInADirectoryThatCannotBeListed) {
    fs::create_directories("tables/kpk.nbw");
    WriteFileText("tables/kqk.nbw", "");
    WriteFileText("tables/krk.nbb.emd", "");
    fs::permissions("tables", fs::perms(0311));
    const WithoutPrivileges nobody;
    EXPECT_EQ(Complaint("tables"), "*** Unable to register tables/krk.nbb.emd\n");
    EXPECT_TRUE(Has("kqk", WHITE));
    EXPECT_FALSE(Has("kpk", WHITE)) << "a directory";
}

std::string Header(uint32_t blockSize, uint32_t blocks, uint64_t plainBytes) {
    uint8_t header[32] = {'T', 'q', 'n', 'T', 'a', 'b', 'l', 'e'};
    StoreLittle32(header + 8, blockSize);
    StoreLittle32(header + 12, blocks);
    StoreLittle64(header + 16, plainBytes);
    StoreLittle32(header + 24, TableChecksum(nullptr, 0));
    StoreLittle32(header + 28, TableChecksum(header, 28));
    return std::string(header, header + sizeof header);
}

TEST_F(Registry, TellsWhatIsWrongWithACompressedFile) {
    const struct {
        std::string text;
        const char* complaint;
    } cases[] = {
        {"", "*** Unable to register ./kqk.nbw.emd\n"},
        {std::string(200, 'N'), "*** Unable to register ./kqk.nbw.emd\n"},
        {Header(4096, 0, 0), "*** ./kqk.nbw.emd: Unsupported block size 4096\n"},
        {Header(8192, 0xffffffff, 0), "*** Unable to read ./kqk.nbw.emd -file broken\n"},
        {Header(8192, 1, 8192), "*** Unable to read ./kqk.nbw.emd -file broken\n"},
        {Header(8192, 0, 0).substr(0, 20), "*** Unable to read ./kqk.nbw.emd -file broken\n"},
        {Header(8192, 0, 0) + "x", "*** Unable to read ./kqk.nbw.emd -file broken\n"},
        {Header(8192, 0, 0), ""},
    };
    for (const auto& c : cases) {
        WriteFileText("kqk.nbw.emd", c.text);
        EXPECT_EQ(Complaint("."), c.complaint);
        EXPECT_EQ(Has("kqk", WHITE), *c.complaint == '\0');
    }
}

} // namespace
