#include "eval/parameters/carried_values.h"

constinit const std::span<const int32_t> CarriedValues = {};
