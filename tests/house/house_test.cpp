// The rules of the house that no compiler checks: which way includes point, where #ifdef may stand,
// who owns the process-wide variables.

#include <cctype>
#include <filesystem>
#include <fstream>
#include <functional>
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

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// The line without blanks before and after its first "#", for reading directives.
std::string Directive(const std::string& line) {
    std::string directive;
    for (const char c : line) {
        if (c != ' ' || directive.size() > 1)
            directive += c;
    }
    return directive;
}

std::vector<std::string> IncludesOf(const std::string& text) {
    constexpr std::string_view include = "#include \"";
    std::vector<std::string> includes;
    for (const std::string& line : LinesOf(text)) {
        const std::string directive = Directive(line);
        if (directive.starts_with(include))
            includes.push_back(
                directive.substr(include.size(), directive.rfind('"') - include.size()));
    }
    return includes;
}

std::vector<std::string> ArrowsThatPointUp(const Sources& sources) {
    std::vector<std::string> faults;
    for (const auto& [path, text] : sources) {
        const auto floor = FloorsBelow.find(FloorOf(path));
        for (const std::string& include : IncludesOf(text)) {
            if (floor == FloorsBelow.end() ||
                (FloorOf(include) != floor->first && !floor->second.contains(FloorOf(include))))
                faults.push_back(path + " includes " + include);
        }
    }
    return faults;
}

// Modules that reach themselves through what they include.
std::set<std::string> Circles(const Sources& sources) {
    std::map<std::string, std::set<std::string>> uses;
    for (const auto& [path, text] : sources) {
        for (const std::string& include : IncludesOf(text)) {
            if (ModuleOf(include) != ModuleOf(path))
                uses[ModuleOf(path)].insert(ModuleOf(include));
        }
    }
    std::set<std::string> circles;
    for (const auto& [start, unused] : uses) {
        std::set<std::string> reached;
        const std::function<void(const std::string&)> follow = [&](const std::string& module) {
            for (const std::string& next : uses[module]) {
                if (reached.insert(next).second)
                    follow(next);
            }
        };
        follow(start);
        if (reached.contains(start))
            circles.insert(start);
    }
    return circles;
}

std::string Listed(const auto& names) {
    std::string text;
    for (const std::string& name : names)
        text += "\n  " + name;
    return text;
}

TEST(House, TheCheckersSeeWhatIsWrong) {
    const Sources wrong = {
        {"board/a.h", "#include \"search/b.h\"\n"},
        {"eval/c.cpp", "#include \"book/d.h\"\n"},
        {"search/e.h", "#include \"search/f.h\"\n"},
        {"search/f.h", ""},
        {"search/f.cpp", "#include \"search/g.h\"\n"},
        {"search/g.h", "#include \"search/e.h\"\n"},
        {"front/h.cpp", "#include \"board/a.h\"\n#include <vector>\n"},
    };
    EXPECT_EQ(ArrowsThatPointUp(wrong), (std::vector<std::string>{"board/a.h includes search/b.h",
                                                                  "eval/c.cpp includes book/d.h"}));
    EXPECT_EQ(Circles(wrong), (std::set<std::string>{"search/e", "search/f", "search/g"}));
}

TEST(House, NoIncludePointsUpOrSideways) {
    const Sources sources = ReadSources();
    ASSERT_GT(sources.size(), 50U);
    const auto faults = ArrowsThatPointUp(sources);
    EXPECT_TRUE(faults.empty()) << Listed(faults);
}

TEST(House, NoModulesIncludeEachOther) {
    const auto circles = Circles(ReadSources());
    EXPECT_TRUE(circles.empty()) << Listed(circles);
}

TEST(House, OnlyThePlatformAsksForThePlatform) {
    for (const auto& [path, text] : ReadSources()) {
        for (const std::string& line : LinesOf(text))
            EXPECT_TRUE(FloorOf(path) == "platform" || !Directive(line).starts_with("#if")) << path;
    }
}

TEST(House, EveryHeaderSaysWhatItOwns) {
    for (const auto& [path, text] : ReadSources()) {
        const bool told = text.starts_with("// ") && text.find("\n#pragma once\n") != text.npos;
        EXPECT_TRUE(!path.ends_with(".h") || told) << path;
    }
}

bool IsNameCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

// The last word before the first of the characters that end a variable's declarator.
std::string DeclaredName(const std::string& line) {
    size_t end = line.find_first_of("[;={(");
    while (end != std::string::npos && end > 0 && !IsNameCharacter(line[end - 1]))
        end--;
    if (end == std::string::npos)
        return "";
    size_t begin = end;
    while (begin > 0 && IsNameCharacter(line[begin - 1]))
        begin--;
    return line.substr(begin, end - begin);
}

// Names of the variables whose lines begin with the word at the left margin.
std::set<std::string> NamesDeclared(const std::string& text, const std::string& word) {
    std::set<std::string> names;
    for (const std::string& line : LinesOf(text)) {
        if (line.starts_with(word + " "))
            names.insert(DeclaredName(line));
    }
    return names;
}

TEST(House, EveryProcessWideVariableIsDefinedOnceByItsOwnerAndConstinit) {
    const Sources sources = ReadSources();
    size_t variables = 0;
    for (const auto& [path, text] : sources) {
        if (!path.ends_with(".h"))
            continue;
        for (const std::string& name : NamesDeclared(text, "extern")) {
            variables++;
            for (const auto& [other, source] : sources) {
                const bool owner = other == ModuleOf(path) + ".cpp";
                EXPECT_EQ(NamesDeclared(source, "constinit").contains(name), owner)
                    << name << " in " << other;
            }
        }
    }
    EXPECT_GT(variables, 50U);
}

TEST(House, NoProcedureHidesAVariableOfItsOwn) {
    for (const auto& [path, text] : ReadSources()) {
        for (const std::string& line : LinesOf(text)) {
            const size_t begin = line.find_first_not_of(' ');
            const bool local = begin != std::string::npos && begin > 0 &&
                               line.compare(begin, 7, "static ") == 0 &&
                               line.compare(begin, 17, "static constexpr ") != 0;
            EXPECT_FALSE(local) << path << ": " << line;
        }
    }
}

} // namespace
