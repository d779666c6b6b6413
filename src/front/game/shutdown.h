// How the process ends when it is told to.
#pragma once

// Gives the tables' memory back and ends the process with exit code 0.
[[noreturn]] void EndProgram();
