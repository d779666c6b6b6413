#include "support/search_test.h"

#include "board/moves/generate.h"
#include "board/position.h"
#include "search/driver_state.h"
#include "search/hash_memory.h"
#include "search/limits.h"
#include "search/state.h"
#include "search/tree/driver.h"
#include "support/engine_setup.h"

void ForgetSearches() {
    ClearSearchMemory();
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
