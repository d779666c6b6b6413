#include "tablebase/registry.h"

#include <cstdio>

constinit bool UseEgtb = true;
constinit int32_t EgtbCacheBytes = DEFAULT_EGTB_CACHE;
constinit int32_t LargestTablebase = 0;
constinit int32_t TablebaseMemory = 0;
constinit char EgtbPath[EGTB_PATH_SIZE] = "c:\\tablebases\\";

void SetEgtbPath(const char* path) {
    std::snprintf(EgtbPath, sizeof EgtbPath, "%s", path);
}

void SetDefaultEgtbSettings() {
    UseEgtb = true;
    EgtbCacheBytes = DEFAULT_EGTB_CACHE;
    SetEgtbPath("c:\\tablebases\\");
}

void PrintTablebaseCount() {
    if (LargestTablebase != 0)
        std::printf("%d piece EGTB files found\n", LargestTablebase);
    else
        std::puts("EGTB files not found");
    if (TablebaseMemory != 0)
        std::printf("%dkb of RAM used for TB indices and decompression tables\n",
                    (TablebaseMemory + 1023) / 1024);
    std::fflush(stdout);
}
