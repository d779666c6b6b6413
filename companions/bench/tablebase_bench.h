// How long probes of endgame tablebases take.
#pragma once

// Probes random positions of the tables of up to four men in the directories of the list, each with
// its block in the cache and each without, and prints the times of one probe.
// False when there are none.
bool BenchTablebases(const char* pathList);
