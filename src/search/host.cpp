#include "search/host.h"

constinit SearchHost Host = {
    [] { return false; },
    [] { return false; },
    [] {},
    [] {},
    [] {},
    [](bool, BoundType) {},
    [] {},
    [] {},
    [](Move, bool) {},
};
