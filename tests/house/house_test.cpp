// The rules of the house that no compiler checks: which way includes point, where #ifdef may stand,
// how headers begin. Each is a reader of lines, not of C++: it relies on our layout.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace {

// Text of every source file by its path below src/.
using Sources = std::map<std::string, std::string>;

Sources ReadSources() {
    Sources sources;
    const fs::path root = fs::path(TARQUELIN_SOURCE_DIR) / "src";
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (!entry.is_regular_file())
            continue;
        std::ostringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        sources[fs::relative(entry.path(), root).generic_string()] = text.str();
    }
    return sources;
}

// What each floor may include besides itself.
const std::map<std::string, std::set<std::string>> FloorsBelow = {
    {"platform", {}},
    {"board", {"platform"}},
    {"eval", {"platform", "board"}},
    {"tablebase", {"platform", "board"}},
    {"book", {"platform", "board"}},
    {"search", {"platform", "board", "eval", "tablebase", "book"}},
    {"tools", {"platform", "board", "eval"}},
    {"front", {"platform", "board", "eval", "tablebase", "book", "search", "tools"}},
};

std::string FloorOf(const std::string& path) {
    return path.substr(0, path.find('/'));
}

// A header and its source file are one module.
std::string ModuleOf(const std::string& path) {
    return path.substr(0, path.rfind('.'));
}

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

// What follows the blanks at the beginning of a text.
std::string_view AfterBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

// The line's directive without blanks around its "#"; empty when it has none.
std::string Directive(std::string_view line) {
    line = AfterBlanks(line);
    return line.starts_with('#') ? "#" + std::string(AfterBlanks(line.substr(1))) : "";
}

// What a line includes of ours, if anything. Our files may hide in angle brackets: there a path is
// ours when it begins with a floor.
std::string Included(const std::string& line) {
    constexpr std::string_view word = "#include";
    const std::string directive = Directive(line);
    if (!directive.starts_with(word))
        return "";
    const std::string_view name = AfterBlanks(std::string_view(directive).substr(word.size()));
    const size_t end = name.find_last_of("\">");
    if (name.size() < 2 || end == 0)
        return "";
    const std::string path(name.substr(1, end - 1));
    return name[0] == '"' || FloorsBelow.contains(FloorOf(path)) ? path : "";
}

using Faults = std::vector<std::string>;

// Calls `visit` with every line of every file, and collects what it tells of them.
template <typename Visit> Faults OfEachLine(const Sources& sources, Visit visit) {
    Faults faults;
    for (const auto& [path, text] : sources) {
        std::istringstream stream(text);
        for (std::string line; std::getline(stream, line);) {
            if (const std::string fault = visit(path, line); !fault.empty())
                faults.push_back(path + fault);
        }
    }
    return faults;
}

Faults ArrowsThatPointUp(const Sources& sources) {
    return OfEachLine(sources, [](const std::string& path, const std::string& line) {
        const std::string floor = FloorOf(path);
        const std::string included = Included(line);
        const bool down =
            FloorsBelow.contains(floor) &&
            (FloorOf(included) == floor || FloorsBelow.at(floor).contains(FloorOf(included)));
        return included.empty() || down ? "" : " includes " + included;
    });
}

// Modules, or folders, that reach themselves through what they include.
Faults Circles(const Sources& sources, std::string (*unitOf)(const std::string&)) {
    std::map<std::string, std::set<std::string>> reached;
    OfEachLine(sources, [&](const std::string& path, const std::string& line) {
        const std::string unit = unitOf(Included(line));
        if (!unit.empty() && unit != unitOf(path))
            reached[unitOf(path)].insert(unit);
        return "";
    });
    for (bool grows = true; grows;) {
        grows = false;
        for (auto& [unit, others] : reached) {
            const size_t before = others.size();
            for (const std::string& other : std::set(others))
                others.insert(reached[other].begin(), reached[other].end());
            grows |= others.size() > before;
        }
    }
    Faults circles;
    for (const auto& [unit, others] : reached) {
        if (others.contains(unit))
            circles.push_back(unit);
    }
    return circles;
}

Faults CirclesOfModules(const Sources& sources) {
    return Circles(sources, ModuleOf);
}

Faults CirclesOfFolders(const Sources& sources) {
    return Circles(sources, FolderOf);
}

// Conditional compilation, and macros of our own, outside the platform floor.
Faults Conditions(const Sources& sources) {
    return OfEachLine(sources, [](const std::string& path, const std::string& line) {
        const std::string directive = Directive(line);
        const bool wrong = directive.starts_with("#if") || directive.starts_with("#define");
        return wrong && FloorOf(path) != "platform" ? ": " + directive : "";
    });
}

Faults HeadersWithoutAHead(const Sources& sources) {
    Faults faults;
    for (const auto& [path, text] : sources) {
        const size_t pragma = text.find("\n#pragma once\n");
        if (path.ends_with(".h") && (!text.starts_with("// ") || pragma == std::string::npos))
            faults.push_back(path);
    }
    return faults;
}

Faults VariablesHiddenInProcedures(const Sources& sources) {
    return OfEachLine(sources, [](const std::string&, const std::string& line) {
        const std::string_view text = AfterBlanks(line);
        const bool hidden = line.starts_with(' ') && text.starts_with("static ") &&
                            !text.starts_with("static constexpr ");
        return hidden ? ":" + line : "";
    });
}

struct Rule {
    const char* name;
    Faults (*broken)(const Sources&);
};

constexpr Rule Rules[] = {
    {"no include points up or sideways", ArrowsThatPointUp},
    {"no two modules include each other, not even by way of a third", CirclesOfModules},
    {"nor do two folders", CirclesOfFolders},
    {"only the platform floor asks which platform it is, and nobody makes macros", Conditions},
    {"every header says what it owns", HeadersWithoutAHead},
    {"no procedure hides a variable of its own", VariablesHiddenInProcedures},
};

std::string Listed(const Faults& faults) {
    std::string text;
    for (const std::string& fault : faults)
        text += "\n  " + fault;
    return text;
}

TEST(House, KeepsItsRules) {
    const Sources sources = ReadSources();
    ASSERT_GT(sources.size(), 50U);
    for (const Rule& rule : Rules) {
        const Faults faults = rule.broken(sources);
        EXPECT_TRUE(faults.empty()) << rule.name << Listed(faults);
    }
}

} // namespace
