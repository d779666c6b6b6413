// The course of a game as a curve.
#pragma once

#include <string>

#include "annotated_pgn.h"

// White's chances by ply as SVG: the phases shaded, the marked moves with signs that lead to
// "#g<number>m<ply>".
std::string CurvePicture(const AnnotatedGame& game, size_t number);
