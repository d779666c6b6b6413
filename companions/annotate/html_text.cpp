#include "html_text.h"

// How many bytes behind the first belong to its character; -1 where it begins none.
static int FollowingBytes(unsigned char c) {
    return c < 0x80                ? 0
           : c >= 0xc2 && c < 0xe0 ? 1
           : c >= 0xe0 && c < 0xf0 ? 2
           : c >= 0xf0 && c < 0xf5 ? 3
                                   : -1;
}

static bool IsUtf8(std::string_view text) {
    for (size_t i = 0; i < text.size(); i++) {
        int following = FollowingBytes(static_cast<unsigned char>(text[i]));
        if (following < 0)
            return false;
        for (; following > 0; following--) {
            if (++i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xc0) != 0x80)
                return false;
        }
    }
    return true;
}

std::string HtmlText(std::string_view text) {
    const bool utf8 = IsUtf8(text);
    std::string html;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '&')
            html += "&amp;";
        else if (c == '<')
            html += "&lt;";
        else if (c == '>')
            html += "&gt;";
        else if (c == '"')
            html += "&quot;";
        else if (byte < ' ')
            html += ' ';
        else if (byte < 0x80 || utf8)
            html += c;
        else {
            html += char(0xc0 | byte >> 6);
            html += char(0x80 | (byte & 0x3f));
        }
    }
    return html;
}
