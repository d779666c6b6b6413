#include "eval/figures.h"

constinit Colour RootSide = WHITE;
constinit EvalFigures Figures;
