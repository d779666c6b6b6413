// What files a directory holds, by names without regard to letter case.
#pragma once

#include <map>
#include <string>

// Paths to open files by, under their names in lower case. Of several names that differ in case
// only, the one in lower case counts, else the first by its bytes.
using FilesByName = std::map<std::string, std::string>;

// The files, and whatever else has a name, in a directory whose name has Windows manners (see
// platform/files.h). Empty when there is no such directory or it cannot be read.
FilesByName ListDirectory(const std::string& name);
