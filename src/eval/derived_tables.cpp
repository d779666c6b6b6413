#include "eval/derived_tables.h"

#include "eval/material/material.h"
#include "eval/parameters/attacker_weight.h"
#include "eval/parameters/piece_square_tables.h"

void InitDerivedTables() {
    InitPieceSquareTables();
    InitMaterialTable();
    InitAttackerWeight();
}
