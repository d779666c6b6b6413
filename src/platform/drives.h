// Which drives there are, where file names have drive letters.
#pragma once

#include <string>

// Whether a path begins with a drive letter and a colon.
bool HasDriveLetter(const std::string& path);

// Whether the drive with this letter, of either case, is there with a root that can be read. The
// answer is remembered: a drive without a medium is asked only once. Where the system has no
// drives, those exist that a directory stands for.
bool DriveExists(char letter);

// The directory that the environment lets stand for a drive, in TARQUELIN_DRIVE_C and its like;
// empty when there is none, and where the system has drives.
std::string DriveDirectory(char letter);
