#include "support/search_test.h"

#include "board/moves/generate.h"
#include "board/moves/order_tables.h"
#include "board/position.h"
#include "search/driver_state.h"
#include "search/hash_memory.h"
#include "search/limits.h"
#include "search/state.h"
#include "support/engine_setup.h"

void ForgetSearches() {
    ClearAllHashTables();
    ClearHistory();
    ClearEvasionReplies();
    ClearCaptureStats();
    ClearPlyStates();
    Past = {};
    ForgetLimits();
    Running = {};
    Budget = {};
    MoveStackTop = 0;
    SetStartPosition();
}

void SearchingTest::SetUp() {
    AllocateHashTables();
    ForgetSearches();
}

void SearchingTest::TearDown() {
    ForgetSearches();
    FreeHashTables();
}
