#include "companions/shared/engine_start.h"

#include <cstdio>

#include "board/attacks.h"
#include "board/keys.h"
#include "eval/derived_tables.h"
#include "eval/endings/king_pawn_bitbase.h"
#include "eval/parameters/values_file.h"
#include "platform/clock.h"
#include "platform/files.h"

void StartTables() {
    StartClock();
    InitAttackTables();
    InitKingPawnBitbase();
    InitKeys();
    InitDerivedTables();
}

bool ReadValues(const std::string& path) {
    std::FILE* const file = OpenFile(path.c_str(), "rb");
    if (file == nullptr) {
        std::perror(path.c_str());
        return false;
    }
    std::fclose(file);
    LoadParameters(path.c_str());
    return true;
}
