#include "support/data_file.h"

#include <fstream>
#include <sstream>

std::vector<std::vector<std::string>> DataRows(const std::string& name) {
    std::ifstream file(TARQUELIN_SOURCE_DIR "/tests/data/" + name);
    std::vector<std::vector<std::string>> rows;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        rows.emplace_back();
        std::istringstream fields(line);
        for (std::string field; std::getline(fields, field, ',');)
            rows.back().push_back(field);
    }
    return rows;
}
