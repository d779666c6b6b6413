// The values file: the parameter set as a text that a user or a tuner can change.
//
// One decimal integer a line, without names, comments or a head, in the order of the members of
// `EvalParameters`. White space of any kind separates the numbers when the file is read.
#pragma once

constexpr char VALUES_FILE[] = "values.txt";

// Sets the imbalance to zero and replaces the parameters by the numbers of the file. What stands
// behind the first text that is no number, and behind the last parameter, is not read; parameters
// without a number keep their values. Numbers that are too large are cut to the limit of
// parameters. Where the file cannot be opened, the values that the program carries take its place;
// one without any reports it, unless `silent`. The tables that depend on the parameters are the
// caller's business.
void LoadParameters(const char* path = VALUES_FILE, bool silent = false);

// Writes the file anew. Where that fails, on a full disk say, the old one stays as it was: false.
bool WriteParameters(const char* path = VALUES_FILE);
