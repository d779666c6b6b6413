// Text for an HTML page.
#pragma once

#include <string>
#include <string_view>

// The text with what means something in HTML written out, as UTF-8: bytes that are none are taken
// for Latin-1, as old game files have it. Control characters become spaces.
std::string HtmlText(std::string_view text);

// The text that a format stands for, appended; not more than some hundred characters.
[[gnu::format(printf, 2, 3)]] void Print(std::string& text, const char* format, ...);
