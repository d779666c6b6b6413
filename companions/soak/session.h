// A session: what a user has set, and the lines that an engine is then sent.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct SessionLine {
    std::string text; // any bytes but a line feed
    int allowed = 0;  // milliseconds for which it may keep the engine from its next answer
};

struct Session {
    std::string settings; // text of the settings file
    std::vector<SessionLine> lines;
};

// The session of that seed, always the same: the three dialects mixed, sensible lines and
// senseless ones. The engine's tables have been started. `tables` is a directory of endgame tables.
Session MakeSession(uint64_t seed, int lines, const std::string& tables);

// As a file: the settings, an empty line, then each line with its milliseconds and a tab before.
bool WriteSession(const Session& session, const std::string& path);
bool ReadSession(const std::string& path, Session& session);
