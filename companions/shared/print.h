// Formatted text for pages that are put together piece by piece.
#pragma once

#include <string>

// The text that a format stands for, appended; not more than some hundred characters.
[[gnu::format(printf, 2, 3)]] void Print(std::string& text, const char* format, ...);
