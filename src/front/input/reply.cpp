#include "front/input/reply.h"

#include <cstdio>

void PrintLine(const char* line) {
    std::puts(line);
    std::fflush(stdout);
}
