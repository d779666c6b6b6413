#include "support/companion.h"

#include <cstdlib>

#include <sys/wait.h>

#include "support/scratch.h"

Outcome RunCompanion(const std::string& program, const std::string& words,
                     const std::string& before) {
    const std::string path = TARQUELIN_PROGRAMS "/" + program;
    const std::string line = before + " timeout 100 " + path + " " + words + " >out 2>&1";
    const int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, FileText("out")};
}
