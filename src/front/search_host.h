// What the front end does for a running search.
#pragma once

// Fills the search's host record. Called once at start-up.
void InstallSearchHost();
