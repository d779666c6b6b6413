// Makes, checks and shows endgame tablebases.
//
//     tarquelin-tb build tablebases
//
// makes all tables of three and four men, which are, byte for byte, the published ones.

#include <cstdio>
#include <new>
#include <string>
#include <vector>

#include "board/attacks.h"
#include "commands.h"

namespace {

struct Command {
    const char* name;
    const char* words;
    const char* help;
    int (*run)(CommandWords words);
};

constexpr Command Commands[] = {
    {"build", "[--threads N] DIRECTORY [CLASS...]",
     "makes the tables of the classes named (kqk, kqkr, ...), and of those that they need;\n"
     "        without names all of three and four men. Tables that are there stay.",
     BuildTables},
    {"verify", "DIRECTORY", "compares the tables with the checksums of the published ones",
     VerifyTables},
    {"list", "DIRECTORY", "tells for every table its size, results and longest mates", ListTables},
    {"compress", "DIRECTORY [TARGET]",
     "writes the tables compressed into the target directory, else beside them, about a fifth as\n"
     "        long, in a form that only this program and the engine read",
     CompressTables},
    {"decompress", "DIRECTORY [TARGET]", "turns such compressed tables back into plain ones",
     DecompressTables},
};

void PrintHelp(std::FILE* to) {
    std::fputs("Usage: tarquelin-tb COMMAND ...\n\n", to);
    for (const Command& command : Commands)
        std::fprintf(to, "    %s %s\n        %s\n", command.name, command.words, command.help);
}

int Run(const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        if (word == "--help" || word == "-h") {
            PrintHelp(stdout);
            return 0;
        }
    }
    for (const Command& command : Commands) {
        if (words.empty() || words[0] != command.name)
            continue;
        const int status = command.run(CommandWords(words).subspan(1));
        if (status == WRONG_USAGE)
            std::fprintf(stderr, "Usage: tarquelin-tb %s %s\n", command.name, command.words);
        return status;
    }
    PrintHelp(stderr);
    return WRONG_USAGE;
}

} // namespace

int main(int argc, char** argv) {
    InitAttackTables();
    try {
        return Run(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::bad_alloc&) {
        std::fputs("Out of memory\n", stderr);
        return 1;
    }
}
