#include "front/interface.h"

constinit InterfaceState Interface;
