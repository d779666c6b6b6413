// Files of positions.
#include "fuzz.h"

#include "tools/epd_evaluation.h"

void Try(std::string_view input) {
    PutFile("test.epd", input);
    EpdEvaluate("test.epd");
    ClaimSoundPosition();
}
