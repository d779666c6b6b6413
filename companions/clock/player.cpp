#include "player.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <utility>

#include "companions/shared/print.h"
#include "uci_player.h"
#include "xboard_player.h"

Player::Player(const PlayerSettings& playerSettings, std::string nameOfPlayer, Conversation& all)
    : settings(playerSettings), name(std::move(nameOfPlayer)), conversation(all),
      directory(playerSettings.data) {}

bool Player::Start() {
    std::ofstream(directory.path + "/Tarquelin.ini", std::ios::binary | std::ios::app)
        << "\n"
        << settings.settings;
    const std::string program = std::filesystem::absolute(settings.engine).string();
    if (const int error = process.Start(program, directory.path); error != 0) {
        Note("cannot be started:", std::strerror(error));
        return false;
    }
    pipe = std::make_unique<LinePipe>(process);
    return Greet();
}

void Player::Note(const char* direction, const std::string& line) {
    const auto now = Time::now().time_since_epoch();
    std::string text;
    Print(text, "%10.3f %s %s ",
          double(std::chrono::duration_cast<std::chrono::milliseconds>(now).count()) / 1000,
          name.c_str(), direction);
    conversation.push_back(text + line);
}

bool Player::Send(const std::string& line) {
    Note("<", line);
    return pipe->Send(line + "\n", Time::now() + PATIENCE);
}

std::optional<std::string> Player::Next(Time::time_point deadline) {
    std::optional<std::string> line = pipe->Next(deadline);
    if (line)
        Note(">", *line);
    return line;
}

bool Player::WaitFor(const std::string& beginning) {
    const auto deadline = Time::now() + PATIENCE;
    while (const std::optional<std::string> line = Next(deadline)) {
        if (line->starts_with(beginning))
            return true;
    }
    return false;
}

Player::Time::time_point Player::Deadline(Time::time_point start, const ChessClock& clock) {
    return start + std::chrono::milliseconds(clock.Left()) + PATIENCE;
}

Answer Player::NoLine() const {
    return {pipe->HasEnded() ? Answer::END : Answer::SILENCE, "", 0};
}

int Player::Since(Time::time_point start) {
    return int(std::chrono::ceil<std::chrono::milliseconds>(Time::now() - start).count());
}

std::unique_ptr<Player> MakePlayer(Protocol protocol, const PlayerSettings& settings,
                                   const std::string& name, Conversation& conversation) {
    if (protocol == Protocol::UCI)
        return std::make_unique<UciPlayer>(settings, name, conversation);
    return std::make_unique<XboardPlayer>(settings, name, conversation);
}
