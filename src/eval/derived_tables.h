// The tables that the evaluation computes from its parameters, all at once.
#pragma once

// Fills every table that depends on the parameters. Called at start-up, before any position is set
// up, and when the parameters change.
void InitDerivedTables();
