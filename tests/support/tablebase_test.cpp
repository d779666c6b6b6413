#include "support/tablebase_test.h"

#include "board/fen.h"
#include "board/position.h"
#include "tablebase/classes.h"
#include "tablebase/table_index.h"
#include "tablebase/tablebases.h"

const char* const ThreeMenTables = TARQUELIN_SOURCE_DIR "/tests/data/tablebases";

void TablebaseTest::TearDown() {
    CloseTablebases();
    Tablebases = {};
    SetStartPosition();
}

int TablebaseTest::Register(const std::string& pathList) {
    SetEgtbPath(pathList.c_str());
    OpenTablebases();
    AllocateTablebaseCache();
    return LargestTablebase();
}

std::string TablebaseTest::Complaint(const std::string& pathList) {
    return Printed([&] { Register(pathList); });
}

std::string ThreeMenTable(const std::string& name) {
    return FileText(std::string(ThreeMenTables) + "/" + name);
}

int32_t ProbedScore(const char* fen) {
    LoadFen(fen);
    int32_t score = 0;
    return ProbeTablebase(SideToMove, score) ? score : NOT_FOUND;
}

std::string TableWith(const char* fen, Colour side, char entry) {
    LoadFen(fen);
    bool swapped = false;
    const int number = FindTablebaseClass(PieceCount, swapped);
    PrepareIndex(number, side);
    const int ep =
        IsDoubleStep(ChangeSide(SideToMove), LastMove()) ? To(LastMove()) : NO_EN_PASSANT;
    std::string table(TableEntries(number, side), '\0');
    table.at(TableIndex(number, side, CollectTablebaseMen(swapped), ep)) = entry;
    return table;
}
