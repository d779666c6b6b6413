// Compressed tables: what the companion writes is what the engine reads, and nothing else is.

#include "tablebase/compressed_table.h"

#include <cstring>
#include <filesystem>
#include <random>
#include <vector>

#include "platform/random_file.h"
#include "support/companion.h"
#include "support/data_file.h"
#include "support/tablebase_test.h"
#include "tablebase/block_cache.h"
#include "tablebase/block_decoder.h"
#include "tablebase/classes.h"
#include "tablebase/registry.h"

namespace fs = std::filesystem;

namespace {

class CompressedTable : public TablebaseTest {
protected:
    static int Companion(const std::string& words) {
        return RunCompanion("tarquelin-tb", words).status;
    }
    // Puts the text under the plain name "kpk.nbw" and compresses it.
    static std::string Compressed(const std::string& plain) {
        WriteFileText("plain/kpk.nbw", plain);
        fs::remove("packed/kpk.nbw.emd");
        EXPECT_EQ(Companion("compress plain packed"), 0) << FileText("out");
        return FileText("packed/kpk.nbw.emd");
    }
    void SetUp() override {
        fs::create_directories("plain");
    }
};

TEST_F(CompressedTable, GivesTheSameAnswersInAFractionOfTheSpace) {
    ASSERT_EQ(Companion("compress " + std::string(ThreeMenTables) + " packed"), 0);
    ASSERT_EQ(Register(ThreeMenTables), 3);
    const int32_t plainMemory = TablebaseMemory();
    std::vector<int32_t> scores;
    for (const auto& row : DataRows("index_vectors.csv"))
        scores.push_back(ProbedScore(row[1].c_str()));
    ASSERT_EQ(Complaint("packed"), "");
    EXPECT_GT(TablebaseMemory(), plainMemory);
    size_t i = 0;
    for (const auto& row : DataRows("index_vectors.csv"))
        EXPECT_EQ(ProbedScore(row[1].c_str()), scores[i++]) << row[1];
    ASSERT_EQ(Companion("decompress packed unpacked"), 0);
    for (const char* const name : {"kqk.nbw", "krk.nbb", "kpk.nbw", "kpk.nbb"}) {
        const std::string plain = ThreeMenTable(name);
        EXPECT_EQ(FileText(std::string("unpacked/") + name), plain);
        EXPECT_LT(fs::file_size("packed/" + std::string(name) + ".emd"), plain.size() / 4) << name;
    }
}

TEST_F(CompressedTable, HoldsAnyBytes) {
    std::mt19937 random(3);
    std::string noise(3 * TABLE_BLOCK + 1, '\0');
    for (char& c : noise)
        c = char(random());
    std::string skewed = noise; // code words of very different lengths
    for (char& c : skewed)
        c = char(__builtin_ctz(random() | 1U << 30));
    std::string period;
    while (period.size() < 2 * TABLE_BLOCK)
        period += noise.substr(0, 777);
    for (const std::string& plain :
         {std::string(), std::string("x"), std::string(TABLE_BLOCK, 'y'), noise, skewed, period}) {
        Compressed(plain);
        fs::remove("unpacked/kpk.nbw");
        ASSERT_EQ(Companion("decompress packed unpacked"), 0);
        EXPECT_TRUE(FileText("unpacked/kpk.nbw") == plain) << plain.size();
    }
}

// A changed bit anywhere shows at once, or else in the block that it belongs to.
TEST_F(CompressedTable, BelievesNoDamagedFile) {
    const std::string plain = ThreeMenTable("kpk.nbw");
    const std::string packed = Compressed(plain);
    ASSERT_FALSE(packed.empty());
    std::mt19937 random(5);
    int refused = 0;
    for (int i = 0; i < 300; i++) {
        std::string damaged = packed;
        // One in three in the header or directory.
        const size_t place = random() % (i % 3 == 0 ? 52 : packed.size());
        if (i % 10 == 9)
            damaged.resize(place);
        else
            damaged[place] = char(damaged[place] ^ 1 << random() % 8);
        WriteFileText("kpk.nbw.emd", damaged);
        Complaint(".");
        TableFile* const table = RegisteredTable(FindTablebaseClass("kpk"), WHITE);
        refused += table == nullptr;
        for (uint64_t at = 0; table != nullptr && at < plain.size(); at += 4001) {
            uint8_t block[TABLE_BLOCK];
            const size_t bytes = ReadTableBlock(*table, at / TABLE_BLOCK, block);
            ASSERT_TRUE(bytes == 0 ||
                        std::memcmp(block, &plain[at / TABLE_BLOCK * TABLE_BLOCK], bytes) == 0);
        }
    }
    EXPECT_GE(refused, 100);
}

// With checksums made right again, only the decoder's own care is left.
TEST_F(CompressedTable, DecodesAnyBytesSafely) {
    const std::string packed = Compressed(ThreeMenTable("kpk.nbw"));
    const size_t first = TABLE_HEADER + 10 * DIRECTORY_ENTRY;
    ASSERT_GT(packed.size(), first + 2000);
    const std::vector<uint8_t> whole(packed.begin() + long(first),
                                     packed.begin() + long(first) + 1500);
    std::mt19937 random(9);
    BlockDecoder decoder;
    int decoded = 0;
    for (int i = 0; i < 3000; i++) {
        // Buffers of the exact size let every byte read or written outside show.
        std::vector<uint8_t> bytes(whole.begin(),
                                   whole.begin() + long(1 + random() % whole.size()));
        for (uint32_t changes = random() % 4; changes > 0; changes--)
            bytes[random() % std::min<size_t>(bytes.size(), i % 2 ? 60 : 2000)] ^=
                uint8_t(random());
        std::vector<uint8_t> plain(1 + random() % TABLE_BLOCK);
        decoded += DecodeBlock(decoder, bytes.data(), bytes.size(), plain.data(), plain.size());
    }
    EXPECT_EQ(decoded, 0);
}

} // namespace
