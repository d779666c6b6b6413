// What a score is worth in points.
#pragma once

#include <cmath>

// The chances, 0 to 1, of the side that a score is good for. `tenToOne` is the score of who gets
// ten points to one.
inline double Chances(double score, double tenToOne) {
    return 1 / (1 + std::pow(10.0, -score / tenToOne));
}
