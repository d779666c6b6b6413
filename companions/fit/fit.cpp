#include "fit.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include <Eigen/Cholesky>

namespace {

using Matrix = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
using Vector = Eigen::VectorXd;

// Steps with the same derivatives: the curve of the chances bends, the evaluation is taken as
// straight.
constexpr int STEPS = 3;
// A round must make the error smaller by more than this share of it.
constexpr double LEAST_GAIN = 2e-5;
// Squared error of one position that no evaluation explains, about: what a prior is weighed with.
constexpr double NOISE = 0.08;
// How far neighbouring squares of a table are expected to change apart, centipawns.
constexpr double NEIGHBOUR_PRIOR = 8;

class Clock {
public:
    double Seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }

private:
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

} // namespace

// The score of who gets ten points to one that fits the crew's evaluations best. Golden section:
// between the bounds the error has one minimum.
static double BestTenToOne(Crew& crew) {
    constexpr double section = 0.618034;
    constexpr double closeEnough = 0.5;
    double low = 80;
    double high = 1200;
    const auto error = [&crew](double x) { return Total(crew.Measure(x).training).squares; };
    double left = high - section * (high - low);
    double right = low + section * (high - low);
    double leftError = error(left);
    double rightError = error(right);
    while (high - low > closeEnough) {
        if (leftError < rightError) {
            high = std::exchange(right, left);
            rightError = leftError;
            left = high - section * (high - low);
            leftError = error(left);
        } else {
            low = std::exchange(left, right);
            leftError = rightError;
            right = low + section * (high - low);
            rightError = error(right);
        }
    }
    return (low + high) / 2;
}

// Whoever knows nothing of a number leaves it where it was: a parabola around each start, and one
// between neighbours on the board, so that squares without games follow the others.
static Matrix PriorMatrix(const Unknowns& unknowns, double weight) {
    const auto count = Eigen::Index(unknowns.all.size());
    Matrix prior = Matrix::Zero(count, count);
    const auto tie = [&](size_t a, size_t b) {
        const int i = unknowns.ofMember[a].unknown;
        const int k = unknowns.ofMember[b].unknown;
        const double strength = weight * NOISE / (NEIGHBOUR_PRIOR * NEIGHBOUR_PRIOR);
        prior(i, i) += strength;
        prior(k, k) += strength;
        prior(std::max(i, k), std::min(i, k)) -= strength;
    };
    for (Eigen::Index i = 0; i < count; i++) {
        const ParameterGroup& group = *unknowns.all[size_t(i)].group;
        prior(i, i) += weight * NOISE / (group.prior * group.prior);
    }
    for (const ParameterGroup& group : ParameterGroups()) {
        if (group.kind != ParameterKind::SQUARES || unknowns.ofMember[group.first].unknown < 0)
            continue;
        for (size_t sq = 0; sq < group.count; sq++) {
            if (sq % 8 != 7)
                tie(group.first + sq, group.first + sq + 1);
            if (sq + 8 < group.count)
                tie(group.first + sq, group.first + sq + 8);
        }
    }
    return prior;
}

static std::vector<int32_t> Rounded(const std::vector<int32_t>& members, const Unknowns& unknowns,
                                    const Vector& values) {
    std::vector<int32_t> rounded = members;
    for (size_t i = 0; i < rounded.size(); i++) {
        const MemberUnknown& member = unknowns.ofMember[i];
        if (member.unknown < 0)
            continue;
        const auto value = int32_t(std::lround(values[member.unknown]));
        rounded[i] = member.sign * std::clamp(value, -PARAMETER_LIMIT, PARAMETER_LIMIT);
    }
    return rounded;
}

static Vector ValuesOf(const Unknowns& unknowns, const std::vector<int32_t>& members) {
    Vector values(Eigen::Index(unknowns.all.size()));
    for (size_t i = 0; i < unknowns.all.size(); i++)
        values[Eigen::Index(i)] = members[unknowns.all[i].member];
    return values;
}

// How sure the values are: by how much each may change until the error shows it.
static std::vector<double> Deviations(const Matrix& curvature, double squaresPerPosition) {
    const auto count = curvature.rows();
    const Matrix inverse =
        curvature.selfadjointView<Eigen::Lower>().ldlt().solve(Matrix::Identity(count, count));
    std::vector<double> deviations;
    for (Eigen::Index i = 0; i < count; i++)
        deviations.push_back(std::sqrt(std::max(inverse(i, i), 0.0) * squaresPerPosition));
    return deviations;
}

// The values that the derivatives taken at `from` promise the smallest error for, and in
// `curvature` how sharply the error rises around them.
static Vector Solve(Crew& crew, const Vector& from, const Vector& start, const Matrix& prior,
                    double tenToOne, const FitWatcher& watcher, Matrix& curvature) {
    Vector values = from;
    for (int step = 0; step < STEPS && !watcher.interrupted(); step++) {
        const Vector changes = values - from;
        const NormalEquations sum = crew.Sum({changes.data(), size_t(changes.size())}, tenToOne);
        const Eigen::Map<const Vector> gradient(sum.vector.data(), prior.rows());
        curvature = prior + Eigen::Map<const Matrix>(sum.matrix.data(), prior.rows(), prior.cols());
        const Vector pull = prior.selfadjointView<Eigen::Lower>() * (values - start);
        values -= curvature.selfadjointView<Eigen::Lower>().ldlt().solve(gradient + pull);
    }
    return values;
}

static double HeldOutError(const FitRound& round) {
    const ErrorSum heldOut = Total(round.errors.heldOut);
    // Without held-out games those that are fitted to have to do.
    return heldOut.count > 0 ? heldOut.Mean() : Total(round.errors.training).Mean();
}

FitResult Fit(Crew& crew, const Unknowns& unknowns, const std::vector<int32_t>& start,
              const FitSettings& settings, const FitWatcher& watcher) {
    const Clock clock;
    FitResult result = {start, start, {}, 0, settings.tenToOne, {}};
    crew.Evaluate(start);
    if (result.tenToOne <= 0)
        result.tenToOne = BestTenToOne(crew);
    result.rounds.push_back({0, crew.Measure(result.tenToOne), clock.Seconds()});
    watcher.rounded(result, true);
    const Matrix prior = PriorMatrix(unknowns, settings.prior);
    const Vector origin = ValuesOf(unknowns, start);
    double smallest = HeldOutError(result.rounds[0]);
    Matrix curvature;
    Matrix best; // of the best round
    for (int number = 1; number <= settings.rounds && !watcher.interrupted(); number++) {
        crew.TakeDerivatives(result.best);
        const Vector from = ValuesOf(unknowns, result.best);
        const Vector values = Solve(crew, from, origin, prior, result.tenToOne, watcher, curvature);
        if (watcher.interrupted())
            break;
        const std::vector<int32_t> rounded = Rounded(result.best, unknowns, values);
        crew.Evaluate(rounded);
        result.rounds.push_back({number, crew.Measure(result.tenToOne), clock.Seconds()});
        const double error = HeldOutError(result.rounds.back());
        const double before = smallest;
        if (error < smallest) {
            smallest = error;
            result.best = rounded;
            result.bestRound = result.rounds.size() - 1;
            best = curvature;
        }
        watcher.rounded(result, error < before);
        if (error >= before * (1 - LEAST_GAIN))
            break;
    }
    if (best.size() > 0 && !watcher.interrupted())
        result.deviations = Deviations(best, Total(result.rounds.back().errors.training).Mean());
    return result;
}
