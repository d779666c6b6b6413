#include "sha256.h"

#include <array>
#include <bit>
#include <cstring>

namespace {

constexpr size_t BLOCK = 64; // bytes
constexpr int ROUNDS = 64;

using State = std::array<uint32_t, 8>;
using Words = std::array<uint32_t, ROUNDS>;

constexpr Words RoundConstants = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

Words Schedule(const uint8_t* block) {
    Words w = {};
    for (size_t i = 0; i < 16; i++) {
        const uint8_t* b = block + 4 * i;
        w[i] = uint32_t{b[0]} << 24 | uint32_t{b[1]} << 16 | uint32_t{b[2]} << 8 | b[3];
    }
    for (size_t i = 16; i < ROUNDS; i++) {
        const uint32_t a = w[i - 15];
        const uint32_t b = w[i - 2];
        w[i] = w[i - 16] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ a >> 3) + w[i - 7] +
               (std::rotr(b, 17) ^ std::rotr(b, 19) ^ b >> 10);
    }
    return w;
}

void AddBlock(State& state, const uint8_t* block) {
    const Words w = Schedule(block);
    auto [a, b, c, d, e, f, g, h] = state;
    for (size_t i = 0; i < ROUNDS; i++) {
        const uint32_t choice = (e & f) ^ (~e & g);
        const uint32_t majority = (a & b) ^ (a & c) ^ (b & c);
        const uint32_t t1 = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) + choice +
                            RoundConstants[i] + w[i];
        const uint32_t t2 = (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + majority;
        h = g;
        g = f;
        f = e;
        e = d + t1;
        d = c;
        c = b;
        b = a;
        a = t1 + t2;
    }
    const State add = {a, b, c, d, e, f, g, h};
    for (size_t i = 0; i < state.size(); i++)
        state[i] += add[i];
}

// What is left of the bytes, a one bit, zeros, and the number of bits.
void AddLastBlocks(State& state, std::span<const uint8_t> rest, uint64_t length) {
    std::array<uint8_t, 2 * BLOCK> last = {};
    if (!rest.empty())
        std::memcpy(last.data(), rest.data(), rest.size());
    last[rest.size()] = 0x80;
    const size_t end = rest.size() + 9 <= BLOCK ? BLOCK : 2 * BLOCK;
    for (size_t i = 0; i < 8; i++)
        last[end - 1 - i] = uint8_t(length * 8 >> (8 * i));
    for (size_t at = 0; at < end; at += BLOCK)
        AddBlock(state, last.data() + at);
}

} // namespace

std::string Sha256(std::span<const uint8_t> bytes) {
    State state = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                   0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    const size_t whole = bytes.size() / BLOCK * BLOCK;
    for (size_t at = 0; at < whole; at += BLOCK)
        AddBlock(state, bytes.data() + at);
    AddLastBlocks(state, bytes.subspan(whole), bytes.size());
    std::string digits;
    for (const uint32_t word : state) {
        for (int shift = 28; shift >= 0; shift -= 4)
            digits += "0123456789abcdef"[word >> shift & 15];
    }
    return digits;
}
