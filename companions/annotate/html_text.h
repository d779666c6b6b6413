// Text for an HTML page.
#pragma once

#include <string>
#include <string_view>

// The text with what means something in HTML written out, as UTF-8: bytes that are none are taken
// for Latin-1, as old game files have it. Control characters become spaces.
std::string HtmlText(std::string_view text);
