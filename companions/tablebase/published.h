// Sizes and checksums of the published tables of three and four men.
#pragma once

#include <cstddef>
#include <string_view>

#include "tablebase/classes.h"

// Whether the class is one of those: 1 to LAST_FOUR_MEN_CLASS. The others below need such a class.
bool IsPublished(int classNumber);
size_t PublishedBytes(int classNumber, Colour side);
// 64 hexadecimal digits in lower case.
std::string_view PublishedSha256(int classNumber, Colour side);
