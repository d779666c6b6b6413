// Looking through a file of learned positions for damage.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

bool IsLearningFile(const std::vector<uint8_t>& bytes);

// Tells of every link that leads nowhere, in a circle, into another bucket or into the middle of an
// entry, and of scores that are none; the exit status is 1 when there is any. Entries that no link
// leads to are no damage: an engine that is stopped between the two leaves such behind.
int CheckLearningFile(const std::string& path, const std::vector<uint8_t>& bytes);
