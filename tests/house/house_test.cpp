// The rules of the house that no compiler checks: which way includes point, where #ifdef may stand,
// how headers begin. Each is a reader of lines, not of C++: it relies on our layout.

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
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

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// The line with nothing before and after its first "#", for reading directives.
std::string Directive(const std::string& line) {
    const size_t hash = line.find_first_not_of(" \t");
    if (hash == std::string::npos || line[hash] != '#')
        return "";
    const size_t word = line.find_first_not_of(" \t", hash + 1);
    return word == std::string::npos ? "#" : "#" + line.substr(word);
}

// What a file includes of ours. Our files may hide in angle brackets: there a path with a slash is
// ours when it begins with a floor.
std::vector<std::string> IncludesOf(const std::string& text) {
    std::vector<std::string> includes;
    for (const std::string& line : LinesOf(text)) {
        const std::string directive = Directive(line);
        const size_t begin = directive.find_first_of("\"<");
        if (!directive.starts_with("#include") || begin == std::string::npos)
            continue;
        const size_t end = directive.find_first_of("\">", begin + 1);
        const std::string name = directive.substr(begin + 1, end - begin - 1);
        if (directive[begin] == '"' || FloorsBelow.contains(FloorOf(name)))
            includes.push_back(name);
    }
    return includes;
}

using Faults = std::vector<std::string>;

Faults ArrowsThatPointUp(const Sources& sources) {
    Faults faults;
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
Faults Circles(const Sources& sources) {
    std::map<std::string, std::set<std::string>> uses;
    for (const auto& [path, text] : sources) {
        for (const std::string& include : IncludesOf(text)) {
            if (ModuleOf(include) != ModuleOf(path))
                uses[ModuleOf(path)].insert(ModuleOf(include));
        }
    }
    Faults circles;
    for (const auto& [start, unused] : uses) {
        std::set<std::string> reached;
        const std::function<void(const std::string&)> follow = [&](const std::string& module) {
            const auto found = uses.find(module);
            if (found == uses.end())
                return;
            for (const std::string& next : found->second) {
                if (reached.insert(next).second)
                    follow(next);
            }
        };
        follow(start);
        if (reached.contains(start))
            circles.push_back(start);
    }
    return circles;
}

// Conditional compilation, and macros of our own, outside the platform floor.
Faults Conditions(const Sources& sources) {
    Faults faults;
    for (const auto& [path, text] : sources) {
        for (const std::string& line : LinesOf(text)) {
            const std::string directive = Directive(line);
            if (FloorOf(path) != "platform" &&
                (directive.starts_with("#if") || directive.starts_with("#define")))
                faults.push_back(path + ": " + directive);
        }
    }
    return faults;
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
    Faults faults;
    for (const auto& [path, text] : sources) {
        for (const std::string& line : LinesOf(text)) {
            const size_t begin = line.find_first_not_of(' ');
            if (begin != std::string::npos && begin > 0 && line.compare(begin, 7, "static ") == 0 &&
                line.compare(begin, 17, "static constexpr ") != 0)
                faults.push_back(path + ":" + line);
        }
    }
    return faults;
}

struct Rule {
    const char* name;
    Faults (*broken)(const Sources&);
    Sources wrong; // an invented tree with faults of this kind
    Faults faults; // and what is to be found in it
};

// Beside each fault of an invented tree stands what looks like it and is right.
std::vector<Rule> Rules() {
    return {
        {"no include points up or sideways",
         ArrowsThatPointUp,
         {{"board/a.h", "#include \"search/b.h\"\n"},
          {"board/b.cpp", "#include <eval/c.h>\n#include <sys/types.h>\n"},
          {"eval/c.cpp", "  #  include \"book/d.h\"\n// #include \"front/h.h\"\n"},
          {"tools/i.cpp", "#include \"search/b.h\"\n#include \"eval/c.h\"\n"},
          {"search/j.cpp", "#include \"b.h\"\n#include \"search/b.h\"\n"},
          {"attic/k.cpp", "#include \"board/a.h\"\n"},
          {"front/h.cpp", "#include \"board/a.h\"\n#include <vector>\n"}},
         {"attic/k.cpp includes board/a.h", "board/a.h includes search/b.h",
          "board/b.cpp includes eval/c.h", "eval/c.cpp includes book/d.h",
          "search/j.cpp includes b.h", "tools/i.cpp includes search/b.h"}},
        {"no two modules include each other, not even by way of a third",
         Circles,
         {{"search/e.h", "#include \"search/f.h\"\n"},
          {"search/f.h", ""},
          {"search/f.cpp", "#include \"search/f.h\"\n#include \"search/g.h\"\n"},
          {"search/g.h", "#include \"search/e.h\"\n"},
          {"search/h.cpp", "#include \"search/h.h\"\n#include \"search/e.h\"\n"}},
         {"search/e", "search/f", "search/g"}},
        {"only the platform floor asks which platform it is, and nobody makes macros",
         Conditions,
         {{"board/a.h", "#pragma once\n# ifdef _WIN32\n"},
          {"board/b.cpp", "#if defined(__linux__)\n#define FAST 1\n#endif\n"},
          {"platform/c.cpp", "#ifdef _WIN32\n#else\n#endif\n"}},
         {"board/a.h: #ifdef _WIN32", "board/b.cpp: #if defined(__linux__)",
          "board/b.cpp: #define FAST 1"}},
        {"every header says what it owns",
         HeadersWithoutAHead,
         {{"board/a.h", "#pragma once\n// Too late.\n"},
          {"board/b.h", "// No guard.\n"},
          {"board/c.h", "// Good.\n#pragma once\n"},
          {"board/d.cpp", "int x;\n"}},
         {"board/a.h", "board/b.h"}},
        {"no procedure hides a variable of its own",
         VariablesHiddenInProcedures,
         {{"board/a.cpp", "static void Count() {\n    static int calls = 0;\n"
                          "    static constexpr int LIMIT = 9;\n}\n"}},
         {"board/a.cpp:    static int calls = 0;"}},
    };
}

std::string Listed(const Faults& faults) {
    std::string text;
    for (const std::string& fault : faults)
        text += "\n  " + fault;
    return text;
}

TEST(House, TheRulesSeeWhatIsWrong) {
    for (const Rule& rule : Rules()) {
        SCOPED_TRACE(rule.name);
        EXPECT_EQ(rule.broken(rule.wrong), rule.faults);
    }
}

TEST(House, KeepsItsRules) {
    const Sources sources = ReadSources();
    ASSERT_GT(sources.size(), 50U);
    for (const Rule& rule : Rules()) {
        const Faults faults = rule.broken(sources);
        EXPECT_TRUE(faults.empty()) << rule.name << Listed(faults);
    }
}

} // namespace
