// The static evaluation as a table for a person.
#pragma once

// Prints the terms for both sides, in pawns, with a mark at the side that each favours.
void PrintEvalTable();
