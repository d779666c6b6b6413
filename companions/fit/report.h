// What a fit has done, as one page to look at: curves, heat maps and lists, without anything from
// the network.
#pragma once

#include <string>

#include "fit.h"

struct ReportHead {
    std::string program; // with its version
    uint64_t positions;
    uint64_t games;
    double resultShare; // of the targets, 0..1
};

// The page as HTML with SVG.
std::string WriteReport(const FitResult& result, const Unknowns& unknowns, const ReportHead& head);
