// Numbers in files: little-endian on every platform.
#pragma once

#include <cstdint>

// The number in so many bits from `bytes` on.
inline uint16_t LoadLittle16(const unsigned char* bytes) {
    return uint16_t(bytes[0] | bytes[1] << 8);
}

inline uint32_t LoadLittle32(const unsigned char* bytes) {
    return uint32_t(bytes[0]) | uint32_t(bytes[1]) << 8 | uint32_t(bytes[2]) << 16 |
           uint32_t(bytes[3]) << 24;
}

inline uint64_t LoadLittle64(const unsigned char* bytes) {
    return uint64_t{LoadLittle32(bytes)} | uint64_t{LoadLittle32(bytes + 4)} << 32;
}

// Writes the number there.
inline void StoreLittle16(unsigned char* bytes, uint16_t value) {
    bytes[0] = uint8_t(value);
    bytes[1] = uint8_t(value >> 8);
}

inline void StoreLittle32(unsigned char* bytes, uint32_t value) {
    for (int i = 0; i < 4; i++)
        bytes[i] = uint8_t(value >> (8 * i));
}

inline void StoreLittle64(unsigned char* bytes, uint64_t value) {
    StoreLittle32(bytes, uint32_t(value));
    StoreLittle32(bytes + 4, uint32_t(value >> 32));
}
