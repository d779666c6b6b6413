// Tables of test cases that are kept as files.
#pragma once

#include <string>
#include <vector>

// The fields of every line but the first of a file in tests/data/, which has its columns' names.
std::vector<std::vector<std::string>> DataRows(const std::string& name);
