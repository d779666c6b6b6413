#include "sha256.h"

#include <openssl/evp.h>

std::string Sha256(std::span<const uint8_t> bytes) {
    uint8_t digest[EVP_MAX_MD_SIZE];
    unsigned size = 0;
    if (EVP_Digest(bytes.data(), bytes.size(), digest, &size, EVP_sha256(), nullptr) != 1)
        return "";
    std::string digits;
    for (const uint8_t byte : std::span(digest).first(size)) {
        digits += "0123456789abcdef"[byte >> 4];
        digits += "0123456789abcdef"[byte & 15];
    }
    return digits;
}
