#include "eval/figures.h"

constinit EvalFigures Figures;
