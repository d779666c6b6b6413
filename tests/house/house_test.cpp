// The rules of the house that no compiler checks: which way includes point, where #ifdef may stand,
// who owns the process-wide variables.

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
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

std::vector<std::string> IncludesOf(const std::string& text) {
    std::vector<std::string> includes;
    const std::regex line("#\\s*include\\s*\"([^\"]+)\"");
    for (std::sregex_iterator match(text.begin(), text.end(), line), end; match != end; ++match)
        includes.push_back((*match)[1]);
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
        if (FloorOf(path) == "platform")
            continue;
        EXPECT_FALSE(std::regex_search(text, std::regex("#\\s*(ifdef|ifndef|if )"))) << path;
    }
}

TEST(House, EveryHeaderSaysWhatItOwns) {
    for (const auto& [path, text] : ReadSources()) {
        const bool told = text.starts_with("// ") && text.find("\n#pragma once\n") != text.npos;
        EXPECT_TRUE(!path.ends_with(".h") || told) << path;
    }
}

// Names declared `extern` in the header.
std::vector<std::string> ExternNames(const std::string& header) {
    std::vector<std::string> names;
    const std::regex declaration("\nextern [^;(]*?([A-Za-z_0-9]+)(\\[[^;]*\\])?;");
    for (std::sregex_iterator match(header.begin(), header.end(), declaration), end; match != end;
         ++match)
        names.push_back((*match)[1]);
    return names;
}

TEST(House, EveryProcessWideVariableIsDefinedOnceByItsOwnerAndConstinit) {
    const Sources sources = ReadSources();
    int variables = 0;
    for (const auto& [path, text] : sources) {
        if (!path.ends_with(".h"))
            continue;
        for (const std::string& name : ExternNames(text)) {
            variables++;
            const std::regex definition("\nconstinit [^;{=]*\\b" + name + "\\b");
            for (const auto& [other, source] : sources) {
                const bool owner = other == ModuleOf(path) + ".cpp";
                EXPECT_EQ(std::regex_search(source, definition), owner) << name << " in " << other;
            }
        }
    }
    EXPECT_GT(variables, 50);
}

TEST(House, NoProcedureHidesAVariableOfItsOwn) {
    const std::regex local("\n +static (?!constexpr|_)[^(\n]*[=;]");
    for (const auto& [path, text] : ReadSources())
        EXPECT_FALSE(std::regex_search(text, local)) << path;
}

} // namespace
