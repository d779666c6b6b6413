#include "front/game/activity.h"

constinit Activity CurrentActivity = IDLE;
