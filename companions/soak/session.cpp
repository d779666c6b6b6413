#include "session.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <random>
#include <string_view>

#include "board/fen.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/notation.h"
#include "board/position.h"
#include "companions/shared/files.h"

namespace {

constexpr const char* Positions[] = {
    "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
    "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
    "8/8/4k3/8/8/3KP3/8/8 w - - 0 1",
    "6k1/8/8/8/8/8/5q2/K7 b - - 98 90",
    "n1n5/PPPk4/8/8/8/8/4Kppp/5N1N b - - 0 1",
    "4k3/8/8/8/8/8/8/4K2R w K - 99 70",
    "7k/5Q2/6K1/8/8/8/8/8 b - - 0 1",
    "QQQQQQQQ/8/8/k7/8/8/8/K6Q b - - 0 1",
};

// A line as it is before its places are filled: %m by a move, %n by a number, %f by a position, %g
// by moves from the starting position on, %t by the directory of the tables, %s by a size that can
// be had: one that cannot ends the engine, as it must.
struct Pattern {
    const char* text;
    int allowed = 0; // milliseconds
};

// Lines that ask, set or play something, in no order. A search that looks at its input answers at
// once whatever its limits are; only what may be over before it looks is given time.
constexpr Pattern UciLines[] = {
    {"uci"},
    {"ucinewgame"},
    {"debug on"},
    {"position startpos"},
    {"position startpos moves %g"},
    {"position startpos moves %g"},
    {"position fen %f"},
    {"position fen %f moves %m %m"},
    {"setoption name Hash value %s"},
    {"setoption name PawnHash value 1"},
    {"setoption name Clear Hash"},
    {"setoption name MultiPV value %n"},
    {"setoption name NalimovCache value 1"},
    {"setoption name NalimovPath value %t"},
    {"setoption name NalimovPath value nowhere"},
    {"setoption name OpeningsBook value Book.tqn"},
    {"setoption name OpeningsBook value nowhere"},
    {"setoption name OwnBook value false"},
    {"setoption name OwnBook value true"},
    {"setoption name Aggressivity value %n"},
    {"setoption name Ponder value true"},
    {"setoption name Move Overhead value %n"},
    {"setoption name UCI_LimitStrength value true"},
    {"setoption name UCI_LimitStrength value false"},
    {"setoption name UCI_Elo value 1%s00"},
    {"go depth 4", 50},
    {"go nodes 2000", 20},
    {"go movetime 30", 30},
    {"go movetime 1", 10},
    {"go wtime 300 btime 300", 50},
    {"go wtime 200 btime 200 winc 20 binc 20 movestogo 2", 50},
    {"go depth 3 searchmoves %m %m", 50},
    {"go infinite"},
    {"go ponder wtime 200 btime 200"},
    {"go mate 1", 50},
    {"ponderhit", 50},
    {"stop"},
    {"stop"},
    {"stop"},
};
constexpr Pattern XboardLines[] = {
    {"xboard"},
    {"protover 2"},
    {"new"},
    {"new\nsd 4"},
    {"sd 4"},
    {"level 40 0:01 0"},
    {"level 0 0:01 0.1"},
    {"time 20"},
    {"otim 20"},
    {"post"},
    {"nopost"},
    {"hard"},
    {"easy"},
    {"force"},
    {"go", 50},
    {"?"},
    {"."},
    {"%m", 50},
    {"%m", 50},
    {"usermove %m", 50},
    {"undo"},
    {"remove"},
    {"analyze"},
    {"exit"},
    {"exit"},
    {"setboard %f"},
    {"edit\n#\nka1\npb7\nc\nkh8\nrd4\n."},
    {"result 1-0 {White mates}"},
    {"result 0-1 {resignation}"},
    {"ping %n"},
    {"memory 1%s"},
    {"egtpath nalimov %t"},
    {"hint"},
    {"white"},
    {"black"},
    {"reset"},
    {"bk"},
    {"draw"},
};
constexpr Pattern ConsoleLines[] = {
    {"brd"},
    {"moves"},
    {"evl"},
    {"eval"},
    {"mvd"},
    {"bkm"},
    {"egtbstat"},
    {"perft 2", 20},
    {"loadfen %f"},
    {"help\nbrd"},
    {"clean", 50},
    {"writevalues"},
    {"reload", 200},
    {"c1 %n"},
    {"m2 %n"},
    {"epdevl positions.epd"},
    {"pgneval"},
    {"fritz"},
    {"strength 1%s00"},
    {"demo", 100},
    {"new"},
    {"save game.pgn"},
    {"load game.pgn"},
};

constexpr const char* Settings[] = {
    "Interface = modern",
    "Interface = classic",
    "TranspositionSizeMb = 1",
    "TranspositionSize = 12",
    "PawnHashSize = 99",
    "EGTBHashSizeMb = 1",
    "EGTBPath = %t",
    "UseEGTB = on",
    "UseBookLearning = on",
    "UseBookWeights = off",
    "Learning = on",
    "UseLearningData = on",
    "LogLearningIntoFile = on",
    "VarietyOfPlay = %n",
    "BookLearningMode = discover",
    "ResignValue = %n",
    "ResignTimes = 1",
    "Pondering = off",
    "MoveOverhead = %n",
    "Aggressivity = 300",
    "nonsense = \"%n",
};

class Maker {
public:
    Maker(uint64_t seed, const std::string& directoryOfTables)
        : random(seed), tables(directoryOfTables) {}

    std::string SettingsText();
    void AddLine(std::vector<SessionLine>& lines);

private:
    int Below(int limit) {
        return int(random() % uint64_t(limit));
    }
    template <size_t Count> const auto& OneOf(const auto(&list)[Count]) {
        return list[Below(int(Count))];
    }
    std::string Moves();
    std::string Filled(std::string_view pattern);
    std::string Spoilt(std::string text);
    SessionLine Line();

    std::mt19937_64 random;
    const std::string& tables;
    int dialect = 0; // spoken just now
};

} // namespace

// Legal moves of a game, mostly a short one.
std::string Maker::Moves() {
    SetStartPosition();
    std::string moves;
    for (int plies = Below(50) == 0 ? 1000 : Below(60); plies > 0; plies--) {
        MoveStackTop = 0;
        const int count = GenerateLegalMoves();
        if (count == 0)
            break;
        const Move move = MoveStack[Below(count)].move;
        moves += MoveText(move) + " ";
        MakeMove(move, true);
    }
    return moves;
}

std::string Maker::Filled(std::string_view pattern) {
    std::string text;
    for (size_t i = 0; i < pattern.size(); i++) {
        if (pattern[i] != '%' || i + 1 == pattern.size()) {
            text += pattern[i];
            continue;
        }
        switch (pattern[++i]) {
        case 'm':
            for (const char c : {'a', '1', 'a', '1'})
                text += char(c + Below(8));
            break;
        case 'n':
            text += std::to_string(Below(8) == 0 ? -1 : Below(6));
            break;
        case 's':
            text += std::to_string(Below(6));
            break;
        case 'f':
            text += OneOf(Positions);
            break;
        case 't':
            text += tables;
            break;
        default:
            text += Moves();
        }
    }
    return text;
}

// Cut, doubled, with bytes changed, or blown up.
std::string Maker::Spoilt(std::string text) {
    const size_t place = text.empty() ? 0 : size_t(Below(int(text.size())));
    switch (Below(6)) {
    case 0:
        return text.substr(0, place);
    case 1:
        return text + text;
    case 2:
        return text.insert(place, size_t(Below(20000)), char(Below(256)));
    case 3:
        return " " + text + " ";
    default:
        for (int changes = Below(4); changes >= 0 && !text.empty(); changes--)
            text[size_t(Below(int(text.size())))] = char(Below(256));
        return text;
    }
}

SessionLine Maker::Line() {
    if (Below(8) == 0)
        dialect = Below(3);
    const Pattern& line = dialect == 0   ? OneOf(UciLines)
                          : dialect == 1 ? OneOf(XboardLines)
                                         : OneOf(ConsoleLines);
    return {Filled(line.text), line.allowed};
}

// What a line has been spoilt to may be any command with any number; those that ask for more than a
// moment's work, end the session, or are answered like its own question, are left out.
static bool IsHarmless(const std::string& text) {
    const size_t begin = text.find_first_not_of(" \t\r");
    if (begin == std::string::npos)
        return true;
    return std::string_view("qpslgmhei").find(char(text[begin] | 0x20)) == std::string_view::npos;
}

void Maker::AddLine(std::vector<SessionLine>& lines) {
    SessionLine made = Line();
    if (Below(10) == 0) {
        std::string spoilt = Spoilt(made.text);
        std::erase(spoilt, '\n');
        if (IsHarmless(spoilt))
            made = {spoilt, 50};
    }
    // Some are several lines that belong together.
    size_t begin = 0;
    for (size_t end; (end = made.text.find('\n', begin)) != std::string::npos; begin = end + 1)
        lines.push_back({made.text.substr(begin, end - begin)});
    lines.push_back({made.text.substr(begin), made.allowed});
}

std::string Maker::SettingsText() {
    std::string text;
    for (int count = Below(12); count > 0; count--)
        text += Filled(OneOf(Settings)) + "\n";
    return text;
}

Session MakeSession(uint64_t seed, int lines, const std::string& tables) {
    Maker maker(seed, tables);
    Session session{maker.SettingsText(), {}};
    while (int(session.lines.size()) < lines)
        maker.AddLine(session.lines);
    return session;
}

bool WriteSession(const Session& session, const std::string& path) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        return false;
    std::string text = session.settings + "\n";
    for (const SessionLine& line : session.lines)
        text += std::to_string(line.allowed) + "\t" + line.text + "\n";
    const bool written = std::fwrite(text.data(), text.size(), 1, file) == 1;
    return std::fclose(file) == 0 && written;
}

bool ReadSession(const std::string& path, Session& session) {
    std::vector<uint8_t> bytes;
    if (ReadWholeFile(path, bytes))
        return false;
    std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const size_t settingsEnd = text.starts_with('\n') ? 0 : text.find("\n\n") + 1;
    session.settings = text.substr(0, settingsEnd);
    text.remove_prefix(std::min(settingsEnd + 1, text.size()));
    session.lines.clear();
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        const size_t tab = line.find('\t');
        SessionLine read;
        if (tab == std::string_view::npos ||
            std::from_chars(line.data(), line.data() + tab, read.allowed).ec != std::errc())
            return false;
        read.text = line.substr(tab + 1);
        session.lines.push_back(read);
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return true;
}
