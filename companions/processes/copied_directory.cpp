#include "companions/processes/copied_directory.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

CopiedDirectory::CopiedDirectory(const std::string& source) {
    std::error_code error;
    std::string name = (fs::temp_directory_path(error) / "tarquelin-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        return;
    path = name;
    fs::copy(source, path, error);
}

CopiedDirectory::~CopiedDirectory() {
    std::error_code error;
    if (!path.empty())
        fs::remove_all(path, error);
}
