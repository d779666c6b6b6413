#include "front/game/play_settings.h"

constinit PlaySettings PlayOptions;
