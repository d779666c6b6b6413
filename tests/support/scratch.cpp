#include "support/scratch.h"

#include <fstream>
#include <iterator>

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include "eval/derived_tables.h"

namespace fs = std::filesystem;

ScratchDirectory::ScratchDirectory() : home(fs::current_path()) {
    char name[] = "/tmp/tarquelin-scratch-XXXXXX";
    EXPECT_NE(mkdtemp(name), nullptr);
    directory = name;
    fs::current_path(directory);
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code error;
    fs::current_path(home, error);
    fs::remove_all(directory, error);
}

WithoutPrivileges::WithoutPrivileges() {
    constexpr uid_t NOBODY = 65534;
    if (geteuid() != 0)
        return;
    fs::permissions(".", fs::perms(0711));
    changed = seteuid(NOBODY) == 0;
    EXPECT_TRUE(changed);
}

WithoutPrivileges::~WithoutPrivileges() {
    EXPECT_TRUE(!changed || seteuid(0) == 0);
}

ScratchParameters::~ScratchParameters() {
    Params = kept;
    InitDerivedTables();
}

std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteFileText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}
