#include "report.h"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cmath>
#include <cstdlib>
#include <numeric>

#include "companions/shared/print.h"

namespace {

// Of a curve, in pixels.
constexpr double PLOT_WIDTH = 560;
constexpr double PLOT_HEIGHT = 240;
constexpr double MARGIN = 64;
// Of a square of a heat map.
constexpr int CELL = 30;
constexpr size_t LARGEST_CHANGES = 40;

constexpr const char* STYLE =
    "body{font:15px/1.45 sans-serif;margin:2em auto;max-width:64em;padding:0 1em;color:#222}"
    "h1{font-size:1.5em}h2{font-size:1.15em;margin-top:2em}"
    "table{border-collapse:collapse}td,th{padding:.15em .8em;text-align:right;"
    "border-bottom:1px solid #ddd}td:first-child,th:first-child{text-align:left}"
    "svg{font:11px sans-serif;max-width:100%;height:auto}figure{margin:0 1.2em 1.2em 0;"
    "display:inline-block}figcaption{font-size:.9em;margin-bottom:.2em}";

} // namespace

// The errors of a set by round.
using Curve = std::vector<double>;

static void DrawCurve(std::string& page, const Curve& curve, double low, double high,
                      const char* colour, const char* name) {
    const auto x = [&](size_t i) {
        return MARGIN + PLOT_WIDTH * double(i) / double(std::max<size_t>(curve.size() - 1, 1));
    };
    const auto y = [&](double error) { return 10 + PLOT_HEIGHT * (high - error) / (high - low); };
    Print(page, "<polyline fill='none' stroke='%s' stroke-width='2' points='", colour);
    for (size_t i = 0; i < curve.size(); i++)
        Print(page, "%.1f,%.1f ", x(i), y(curve[i]));
    page += "'/>\n";
    for (size_t i = 0; i < curve.size(); i++)
        Print(page, "<circle cx='%.1f' cy='%.1f' r='3' fill='%s'><title>%.6f</title></circle>\n",
              x(i), y(curve[i]), colour, curve[i]);
    Print(page, "<text x='%.1f' y='%.1f' fill='%s'>%s</text>\n", x(curve.size() - 1) + 8,
          y(curve.back()) + 4, colour, name);
}

static void DrawCurves(std::string& page, const std::vector<FitRound>& rounds) {
    Curve training;
    Curve heldOut;
    for (const FitRound& round : rounds) {
        training.push_back(Total(round.errors.training).Mean());
        heldOut.push_back(Total(round.errors.heldOut).Mean());
    }
    const bool hasHeldOut = Total(rounds[0].errors.heldOut).count > 0;
    Curve both = training;
    if (hasHeldOut)
        both.insert(both.end(), heldOut.begin(), heldOut.end());
    const auto [least, most] = std::ranges::minmax(both);
    const double space = std::max((most - least) * 0.08, 1e-6);
    const double low = least - space;
    const double high = most + space;
    Print(page, "<svg viewBox='0 0 %.0f %.0f' width='%.0f' role='img'>\n",
          PLOT_WIDTH + 2.6 * MARGIN, PLOT_HEIGHT + 40, PLOT_WIDTH + 2.6 * MARGIN);
    constexpr int lines = 4;
    for (int i = 0; i <= lines; i++) {
        const double y = 10 + PLOT_HEIGHT * i / lines;
        Print(page, "<line x1='%.0f' x2='%.0f' y1='%.1f' y2='%.1f' stroke='#ddd'/>\n", MARGIN,
              MARGIN + PLOT_WIDTH, y, y);
        Print(page, "<text x='%.0f' y='%.1f' text-anchor='end'>%.5f</text>\n", MARGIN - 6, y + 4,
              high - (high - low) * i / lines);
    }
    for (size_t i = 0; i < rounds.size(); i++) {
        const double share = double(i) / double(std::max<size_t>(rounds.size() - 1, 1));
        Print(page, "<text x='%.1f' y='%.0f' text-anchor='middle'>%d</text>\n",
              MARGIN + PLOT_WIDTH * share, PLOT_HEIGHT + 28, rounds[i].number);
    }
    DrawCurve(page, training, low, high, "#1f5fa8", "training");
    if (hasHeldOut)
        DrawCurve(page, heldOut, low, high, "#c0521e", "held out");
    page += "</svg>\n";
}

static double PhaseError(const FitRound& round, int phase) {
    const ErrorSum& heldOut = round.errors.heldOut[size_t(phase)];
    return heldOut.count > 0 ? heldOut.Mean() : round.errors.training[size_t(phase)].Mean();
}

static void ListPhases(std::string& page, const FitResult& result) {
    page += "<table><tr><th>phase</th><th>positions</th><th>before</th><th>after</th>"
            "<th>change</th></tr>\n";
    for (int phase = 0; phase < PHASES; phase++) {
        const Errors& errors = result.rounds[0].errors;
        const int64_t positions =
            errors.training[size_t(phase)].count + errors.heldOut[size_t(phase)].count;
        const double before = PhaseError(result.rounds.front(), phase);
        const double after = PhaseError(result.rounds[result.bestRound], phase);
        Print(page,
              "<tr><td>%s</td><td>%" PRId64
              "</td><td>%.5f</td><td>%.5f</td><td>%+.1f %%</td></tr>\n",
              PhaseName(phase), positions, before, after,
              before > 0 ? 100 * (after / before - 1) : 0);
    }
    page += "</table>\n";
}

// Blue for what is good for the man's side, red for what is bad; white for nothing.
static std::string ColourOf(double value, double most) {
    const double share = std::clamp(std::abs(value) / std::max(most, 1.0), 0.0, 1.0);
    const auto fade = [share](int full) { return int(std::lround(255 - share * (255 - full))); };
    std::string colour;
    if (value >= 0)
        Print(colour, "#%02x%02x%02x", fade(60), fade(125), fade(190));
    else
        Print(colour, "#%02x%02x%02x", fade(205), fade(85), fade(60));
    return colour;
}

// A board from its own side: rank 8 on top.
static void DrawSquares(std::string& page, const char* caption, std::span<const int32_t> values,
                        double most) {
    Print(page, "<figure><figcaption>%s</figcaption><svg viewBox='0 0 %d %d' width='%d'>\n",
          caption, 8 * CELL, 8 * CELL, 8 * CELL);
    for (int sq = 0; sq < 64; sq++) {
        const int x = sq % 8 * CELL;
        const int y = (7 - sq / 8) * CELL;
        const int32_t value = values[size_t(sq)];
        Print(page, "<rect x='%d' y='%d' width='%d' height='%d' fill='%s'/>", x, y, CELL, CELL,
              ColourOf(value, most).c_str());
        Print(page, "<text x='%d' y='%d' text-anchor='middle'>%d</text>\n", x + CELL / 2,
              y + CELL / 2 + 4, value);
    }
    page += "</svg></figure>\n";
}

static void DrawTables(std::string& page, const FitResult& result) {
    for (const ParameterGroup& group : ParameterGroups()) {
        if (group.kind != ParameterKind::SQUARES)
            continue;
        const std::span before(&result.start[group.first], group.count);
        const std::span after(&result.best[group.first], group.count);
        std::array<int32_t, 64> change;
        double most = 0;
        for (size_t sq = 0; sq < change.size(); sq++) {
            change[sq] = after[sq] - before[sq];
            most = std::max({most, std::abs(double(before[sq])), std::abs(double(after[sq]))});
        }
        Print(page, "<h3>%s</h3>\n", group.name);
        DrawSquares(page, "before", before, most);
        DrawSquares(page, "after", after, most);
        DrawSquares(page, "change", change, most / 2);
    }
}

// Numbers of the set, by their places among the unknowns.
static void ListNumbers(std::string& page, const FitResult& result, const Unknowns& unknowns,
                        std::span<const size_t> places) {
    page += "<table><tr><th>parameter</th><th>before</th><th>after</th><th>&plusmn;</th>"
            "<th>change</th></tr>\n";
    for (const size_t place : places) {
        const Unknown& unknown = unknowns.all[place];
        const double deviation = result.deviations.empty() ? 0 : result.deviations[place];
        const int32_t before = result.start[unknown.member];
        const int32_t after = result.best[unknown.member];
        Print(page, "<tr><td>%s</td><td>%d</td><td>%d</td><td>%.1f</td><td>%+d</td></tr>\n",
              NameOf(unknown).c_str(), before, after, deviation, after - before);
    }
    page += "</table>\n";
}

// As multiples of what was expected, so that a change of one in a weight of many squares is not
// below one of ten in a rare bonus.
static void ListLargestChanges(std::string& page, const FitResult& result,
                               const Unknowns& unknowns) {
    std::vector<size_t> places(unknowns.all.size());
    std::iota(places.begin(), places.end(), 0);
    std::ranges::stable_sort(places, {}, [&](size_t place) {
        const Unknown& unknown = unknowns.all[place];
        return -std::abs(result.best[unknown.member] - result.start[unknown.member]) /
               unknown.group->prior;
    });
    places.resize(std::min(places.size(), LARGEST_CHANGES));
    ListNumbers(page, result, unknowns, places);
}

// All but the tables that are shown as boards and the cells of the imbalance.
static void ListScalars(std::string& page, const FitResult& result, const Unknowns& unknowns) {
    std::vector<size_t> places;
    for (size_t i = 0; i < unknowns.all.size(); i++) {
        const ParameterKind kind = unknowns.all[i].group->kind;
        if (kind != ParameterKind::SQUARES && kind != ParameterKind::IMBALANCE_TABLE)
            places.push_back(i);
    }
    ListNumbers(page, result, unknowns, places);
}

std::string WriteReport(const FitResult& result, const Unknowns& unknowns, const ReportHead& head) {
    std::string page = "<!DOCTYPE html>\n<html lang='en'><head><meta charset='utf-8'>"
                       "<meta name='viewport' content='width=device-width'>"
                       "<title>Fit of the evaluation</title><style>";
    page += STYLE;
    page += "</style></head><body>\n<h1>Fit of the evaluation</h1>\n";
    Print(page,
          "<p>%s: %llu positions of %llu games, %zu unknowns, %.0f seconds. Targets: %.0f %% "
          "results, %.0f %% scores. %.0f centipawns make ten points to one.</p>\n",
          head.program.c_str(), static_cast<unsigned long long>(head.positions),
          static_cast<unsigned long long>(head.games), unknowns.all.size(),
          result.rounds.back().seconds, 100 * head.resultShare, 100 * (1 - head.resultShare),
          result.tenToOne);
    page += "<h2>Mean squared error by round</h2>\n";
    DrawCurves(page, result.rounds);
    page += "<h2>Error by phase of the game (held out)</h2>\n";
    ListPhases(page, result);
    page += "<h2>Largest changes</h2>\n";
    ListLargestChanges(page, result, unknowns);
    page += "<h2>Piece-square tables, centipawns</h2>\n";
    DrawTables(page, result);
    page += "<h2>All other numbers</h2>\n";
    ListScalars(page, result, unknowns);
    page += "</body></html>\n";
    return page;
}
