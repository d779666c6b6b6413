// What files a directory holds, by names without regard to letter case.
#pragma once

#include <map>
#include <string>

struct DirectoryFiles {
    std::string directory; // with a separator at its end
    bool secret;           // it does not let its names be listed
    // Paths to open files by, under their names in lower case. Of several names that differ in case
    // only, the one in lower case counts, else the first by its bytes.
    std::map<std::string, std::string> byName;
};

// The files, and whatever else has a name, in a directory whose name has Windows manners (see
// platform/files.h).
DirectoryFiles ListDirectory(const std::string& name);

// The path to open the file of that name by, which is in lower case; empty when there is none.
std::string PathOfFile(const DirectoryFiles& files, const std::string& name);
