#include "front/play_settings.h"

constinit PlaySettings PlayOptions;
