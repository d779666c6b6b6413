// The entry of the engine, which takes nothing from the command line.
#include "front/start.h"

int main() {
    return RunEngine();
}
