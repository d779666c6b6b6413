#include "support/scratch.h"

#include <fstream>
#include <iterator>

#include <gtest/gtest.h>
#include <stdlib.h>

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
