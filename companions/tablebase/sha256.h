// The checksum SHA-256.
#pragma once

#include <cstdint>
#include <span>
#include <string>

// The checksum as 64 hexadecimal digits in lower case; empty where the system makes none.
std::string Sha256(std::span<const uint8_t> bytes);
