// The dialect of the console and of xboard: a thinking line of depth, score, hundredths of a
// second, nodes and variation, once more at the end of a search unless the move comes from the
// book, then "resign" when the rule says so, and "move"; result lines in between.
#pragma once

#include "front/game/dialect.h"

extern const Dialect ConsoleDialect;
