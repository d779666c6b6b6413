#include "board/piece_square.h"

constinit int16_t PstA[PIECE_CODES][2][64] = {};
constinit int16_t PstB[PIECE_CODES][2][64] = {};
