#include "front/settings/summary.h"

#include <cstdio>

#include "front/settings/options.h"

static void PrintOption(const Option& option) {
    if (option.print != nullptr)
        option.print();
    else if (option.label != nullptr && option.kind == OptionKind::WORD)
        std::printf("%s = %s\n", option.label, option.get() != 0 ? "on" : "off");
    else if (option.label != nullptr)
        std::printf("%s = %d\n", option.label, option.get());
}

void PrintSettings() {
    for (const Option& option : Options())
        PrintOption(option);
    std::printf("\n");
    std::fflush(stdout);
}
