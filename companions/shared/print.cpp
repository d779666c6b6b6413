#include "companions/shared/print.h"

#include <cstdarg>
#include <cstdio>

void Print(std::string& text, const char* format, ...) {
    char line[1024];
    va_list values;
    va_start(values, format);
    std::vsnprintf(line, sizeof line, format, values);
    va_end(values);
    text += line;
}
