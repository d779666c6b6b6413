#include "compressed_file.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <memory>
#include <thread>

#include "block_encoder.h"
#include "platform/random_file.h"
#include "tablebase/block_decoder.h"
#include "tablebase/compressed_table.h"

namespace {

// Bytes of the plain table in a block, all of them TABLE_BLOCK but for the last.
size_t PlainBytes(uint64_t tableBytes, uint64_t block) {
    return size_t(std::min<uint64_t>(TABLE_BLOCK, tableBytes - block * TABLE_BLOCK));
}

using PackedBlocks = std::vector<std::vector<uint8_t>>;

PackedBlocks EncodeBlocks(std::span<const uint8_t> plain, int threads) {
    PackedBlocks packed((plain.size() + TABLE_BLOCK - 1) / TABLE_BLOCK);
    std::atomic<size_t> next = 0;
    const auto work = [&] {
        for (size_t i = next++; i < packed.size(); i = next++)
            packed[i] = EncodeBlock(plain.subspan(i * TABLE_BLOCK, PlainBytes(plain.size(), i)));
    };
    std::vector<std::thread> others;
    for (int i = 1; i < threads; i++)
        others.emplace_back(work);
    work();
    for (std::thread& thread : others)
        thread.join();
    return packed;
}

bool DecodeTable(int file, const BlockDirectory& directory, std::vector<uint8_t>& plain) {
    const auto decoder = std::make_unique<BlockDecoder>();
    std::vector<uint8_t> packed(MAX_PACKED_BLOCK);
    plain.resize(size_t(directory.plainBytes));
    for (uint64_t block = 0; block < directory.blocks; block++) {
        const size_t bytes = ReadPackedBlock(file, directory, block, packed.data());
        if (!DecodeBlock(*decoder, packed.data(), bytes, plain.data() + block * TABLE_BLOCK,
                         PlainBytes(directory.plainBytes, block)))
            return false;
    }
    return true;
}

} // namespace

std::vector<uint8_t> CompressTable(std::span<const uint8_t> plain, int threads) {
    const PackedBlocks packed = EncodeBlocks(plain, threads);
    std::vector<uint8_t> sizes(packed.size() * DIRECTORY_ENTRY);
    for (size_t i = 0; i < packed.size(); i++)
        StoreLittle16(&sizes[i * DIRECTORY_ENTRY], uint16_t(packed[i].size()));
    uint8_t header[TABLE_HEADER] = {};
    std::memcpy(header, TableMagic, MAGIC_BYTES);
    StoreLittle32(header + BLOCK_SIZE_OFFSET, TABLE_BLOCK);
    StoreLittle32(header + BLOCK_COUNT_OFFSET, uint32_t(packed.size()));
    StoreLittle64(header + PLAIN_BYTES_OFFSET, plain.size());
    StoreLittle32(header + DIRECTORY_SUM_OFFSET, TableChecksum(sizes.data(), sizes.size()));
    StoreLittle32(header + HEADER_SUM_OFFSET, TableChecksum(header, HEADER_SUM_OFFSET));
    std::vector<uint8_t> bytes(header, header + TABLE_HEADER);
    bytes.insert(bytes.end(), sizes.begin(), sizes.end());
    for (const std::vector<uint8_t>& block : packed)
        bytes.insert(bytes.end(), block.begin(), block.end());
    return bytes;
}

bool ReadCompressedTable(const std::filesystem::path& path, std::vector<uint8_t>& plain) {
    const int file = OpenRandomFile(path.string().c_str());
    if (file == NO_FILE)
        return false;
    BlockDirectory directory = {};
    int blockSize = 0;
    const bool read = LoadDirectory(file, directory, blockSize) == FAULT_NONE &&
                      DecodeTable(file, directory, plain);
    FreeDirectory(directory);
    CloseRandomFile(file);
    return read;
}
