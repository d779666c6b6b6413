#include "front/game/interface.h"

#include <cstdio>

constinit InterfaceState Interface;

void PayPongs() {
    for (const int number : Interface.OwedPongs)
        std::printf("pong %d\n", number);
    std::fflush(stdout);
    Interface.OwedPongs.clear();
}
