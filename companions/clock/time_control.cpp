#include "time_control.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

namespace {

constexpr double LONGEST = 1000000; // seconds

} // namespace

// Takes a number off the front of the text; seconds become milliseconds.
static bool TakeSeconds(std::string_view& text, int& milliseconds) {
    double seconds = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), seconds, std::chars_format::fixed);
    if (error != std::errc() || seconds < 0 || seconds > LONGEST)
        return false;
    text.remove_prefix(size_t(end - text.data()));
    milliseconds = int(std::lround(seconds * 1000));
    return true;
}

static bool TakeWord(std::string_view& text, std::string_view word) {
    if (!text.starts_with(word))
        return false;
    text.remove_prefix(word.size());
    return true;
}

static bool TakeMoves(std::string_view& text, int& moves) {
    const size_t slash = text.find('/');
    if (slash == std::string_view::npos)
        return true;
    const auto [end, error] = std::from_chars(text.data(), text.data() + slash, moves);
    if (error != std::errc() || end != text.data() + slash || moves <= 0)
        return false;
    text.remove_prefix(slash + 1);
    return true;
}

bool ReadTimeControl(const std::string& text, TimeControl& control) {
    std::string_view rest = text;
    control = {};
    if (TakeWord(rest, "move/"))
        return TakeSeconds(rest, control.moveTime) && rest.empty() && control.moveTime > 0;
    if (!TakeMoves(rest, control.moves) || !TakeSeconds(rest, control.base) || control.base <= 0)
        return false;
    if (TakeWord(rest, "+") && !TakeSeconds(rest, control.increment))
        return false;
    return rest.empty();
}

void ChessClock::Move(int milliseconds) {
    leftBehindMove = left - milliseconds;
    left = std::max(leftBehindMove, 0);
    made++;
    if (control.moveTime > 0) {
        left = control.moveTime;
        return;
    }
    left += control.increment;
    if (control.moves > 0 && made % control.moves == 0)
        left += control.base;
}
