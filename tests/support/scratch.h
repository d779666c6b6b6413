// What a test may change freely: set back when it goes out of scope.
#pragma once

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "eval/parameters/parameters.h"

// An empty directory, current as long as this lives.
class ScratchDirectory {
public:
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

private:
    std::filesystem::path home;
    std::filesystem::path directory;
};

// Lets the administrator, who may read and write everything, be somebody else meanwhile.
class WithoutPrivileges {
public:
    WithoutPrivileges();
    ~WithoutPrivileges();
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    bool changed = false;
};

// Keeps the evaluation's parameters, and puts them and the tables that depend on them back.
class ScratchParameters {
public:
    ScratchParameters() = default;
    ~ScratchParameters();
    ScratchParameters(const ScratchParameters&) = delete;
    ScratchParameters& operator=(const ScratchParameters&) = delete;

private:
    EvalParameters kept = Params;
};

// What the call prints on standard output.
template <typename Call> std::string Printed(Call call) {
    testing::internal::CaptureStdout();
    call();
    return testing::internal::GetCapturedStdout();
}

// Bytes of a file; empty when there is none.
std::string FileText(const std::string& path);
void WriteFileText(const std::string& path, const std::string& text);
