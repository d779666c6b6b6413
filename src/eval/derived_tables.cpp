#include "eval/derived_tables.h"

#include "eval/attacker_weight.h"
#include "eval/material.h"
#include "eval/piece_square_tables.h"

void InitDerivedTables() {
    InitPieceSquareTables();
    InitMaterialTable();
    InitAttackerWeight();
}
