#include "faults.h"

#include <cstdarg>
#include <cstdio>

#include "companions/shared/progress.h"

namespace {

constexpr uint64_t MOST_FAULTS_TOLD = 20;

constinit uint64_t FaultCount = 0;

} // namespace

void Fault(const char* format, ...) {
    if (FaultCount++ >= MOST_FAULTS_TOLD)
        return;
    ClearProgressLine();
    std::va_list values;
    va_start(values, format);
    std::vprintf(format, values);
    va_end(values);
}

uint64_t Faults() {
    return FaultCount;
}
