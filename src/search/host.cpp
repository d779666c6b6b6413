#include "search/host.h"

constinit SearchHost Host = {
    [] { return false; },
    [] { return false; },
    [] {},
    [] {},
    [] {},
    [](BoundType, int) {},
    [] {},
    [] {},
    [](Move, bool) {},
    [] {},
};
