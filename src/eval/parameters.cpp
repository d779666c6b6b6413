#include "eval/parameters.h"

constinit EvalParameters Params = {};
