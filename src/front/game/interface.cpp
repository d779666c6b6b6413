#include "front/game/interface.h"

constinit InterfaceState Interface;
