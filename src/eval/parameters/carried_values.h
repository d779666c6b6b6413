// Values that a program carries within it.
#pragma once

#include <cstdint>
#include <span>

// In the order of the values file; used where there is no such file. The engine itself carries
// none. A program that must play well without any file is linked with numbers in the place of this
// module's source.
extern const std::span<const int32_t> CarriedValues;
