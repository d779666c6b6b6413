#include "support/engine_setup.h"

#include <gtest/gtest.h>

#include "board/attacks.h"
#include "board/keys.h"
#include "board/position.h"
#include "eval/derived_tables.h"
#include "eval/endings/king_pawn_bitbase.h"
#include "platform/runtime_rand.h"
#include "search/limits.h"

namespace {

constinit bool TablesAreSetUp = false;

class EngineTables : public testing::Environment {
public:
    void SetUp() override {
        SetUpEngineTables();
    }
};

// The test framework deletes it.
const testing::Environment* const Registered = testing::AddGlobalTestEnvironment(new EngineTables);

} // namespace

void SetUpEngineTables() {
    if (TablesAreSetUp)
        return;
    TablesAreSetUp = true;
    InitAttackTables();
    InitKingPawnBitbase();
    // The keys are those of the sequence's first numbers, whoever has drawn from it before.
    SeedRand(1);
    InitKeys();
    InitDerivedTables();
    SetStartPosition();
}

void ForgetLimits() {
    Clock = {};
    Limits = {};
    SearchOptions = {};
}
