// The settings file.
#include "fuzz.h"

#include "front/game/manners.h"
#include "front/settings/options.h"
#include "front/settings/settings_file.h"
#include "front/settings/summary.h"

void Try(std::string_view input) {
    PutFile("Tarquelin.ini", input);
    UseManners(Classic);
    ReadInterface();
    SetDefaultSettings();
    ReadSettingsFile();
    PrintSettings();
}
