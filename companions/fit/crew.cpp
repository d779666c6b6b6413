#include "crew.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "board/fen.h"
#include "derivatives.h"

// One process, as its parent knows it.
struct Crew::Worker {
    size_t begin; // of its samples
    size_t end;
    pid_t process = -1;
    int line = -1; // to talk to it
};

// Views into the shared memory.
struct Crew::Board {
    std::span<int32_t> members;
    std::span<double> changes;
    double* tenToOne = nullptr;
    // By worker:
    std::vector<Errors*> errors;
    std::vector<double*> squares;
    std::vector<std::span<double>> vectors;
    std::vector<std::span<double>> matrices;
    void* memory = nullptr;
    size_t size = 0;
};

ErrorSum Total(const std::array<ErrorSum, PHASES>& phases) {
    ErrorSum sum;
    for (const ErrorSum& phase : phases)
        sum.Add(phase);
    return sum;
}

namespace {

enum Command : char { EVALUATE = 'E', MEASURE = 'M', DERIVATIVES = 'D', SUM = 'S' };

// What one process does with its share.
class Share {
public:
    Share(const Samples& allSamples, size_t begin, size_t end, const Unknowns& allUnknowns)
        : samples(allSamples), own(std::span(allSamples.all).subspan(begin, end - begin)),
          derivatives(allUnknowns), scores(end - begin) {}

    void Evaluate(std::span<const int32_t> members) {
        SetParameters({members.begin(), members.end()});
        for (size_t i = 0; i < own.size(); i++) {
            LoadFen(samples.Fen(own[i]));
            scores[i] = EvaluateForWhite();
        }
    }

    Errors Measure(double tenToOne) const {
        Errors errors;
        for (size_t i = 0; i < own.size(); i++) {
            const double error = Chances(scores[i], tenToOne) - double(own[i].target);
            auto& phases = own[i].heldOut ? errors.heldOut : errors.training;
            phases[own[i].phase].Add({error * error, 1});
        }
        return errors;
    }

    void TakeDerivatives(std::span<const int32_t> members) {
        SetParameters({members.begin(), members.end()});
        slopes.clear();
        rows.clear();
        for (size_t i = 0; i < own.size(); i++) {
            if (own[i].heldOut)
                continue;
            LoadFen(samples.Fen(own[i]));
            const size_t begin = slopes.size();
            const int32_t score = derivatives.Take(slopes);
            rows.push_back({begin, slopes.size(), float(score), own[i].target});
        }
    }

    double Sum(std::span<const double> changes, double tenToOne, std::span<double> matrix,
               std::span<double> vector) const {
        double squares = 0;
        std::ranges::fill(matrix, 0);
        std::ranges::fill(vector, 0);
        for (const Row& row : rows) {
            const std::span<const Slope> terms(&slopes[row.begin], row.end - row.begin);
            double score = double(row.score);
            for (const Slope& term : terms)
                score += double(term.slope) * changes[term.unknown];
            const double chances = Chances(score, tenToOne);
            const double error = chances - double(row.target);
            const double steepness = chances * (1 - chances) * std::log(10.0) / tenToOne;
            squares += error * error;
            AddRow(terms, steepness, error, matrix, vector);
        }
        return squares;
    }

private:
    struct Row {
        size_t begin; // of its slopes
        size_t end;
        float score;
        float target;
    };

    static void AddRow(std::span<const Slope> terms, double steepness, double error,
                       std::span<double> matrix, std::span<double> vector) {
        for (size_t i = 0; i < terms.size(); i++) {
            const double own = double(terms[i].slope) * steepness;
            vector[terms[i].unknown] += own * error;
            double* const line = matrix.data() + terms[i].unknown * vector.size();
            for (size_t k = 0; k <= i; k++)
                line[terms[k].unknown] += own * steepness * double(terms[k].slope);
        }
    }

    const Samples& samples;
    std::span<const Sample> own;
    Derivatives derivatives;
    std::vector<int32_t> scores;
    std::vector<Slope> slopes;
    std::vector<Row> rows;
};

} // namespace

// Pages that no process has touched take no memory.
void Crew::Map(size_t unknownCount) {
    const size_t numbers = EVAL_PARAMETER_COUNT + unknownCount + 1;
    const size_t each = sizeof(Errors) / sizeof(double) + 1 + unknownCount * (unknownCount + 1);
    board->size = (numbers + workers.size() * each) * sizeof(double);
    board->memory =
        mmap(nullptr, board->size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (board->memory == MAP_FAILED)
        throw std::system_error(errno, std::generic_category(), "shared memory");
    double* next = static_cast<double*>(board->memory);
    const auto take = [&next](size_t count) { return std::exchange(next, next + count); };
    board->members = {reinterpret_cast<int32_t*>(take(EVAL_PARAMETER_COUNT)), EVAL_PARAMETER_COUNT};
    board->changes = {take(unknownCount), unknownCount};
    board->tenToOne = take(1);
    for (size_t i = 0; i < workers.size(); i++) {
        board->errors.push_back(new (take(sizeof(Errors) / sizeof(double))) Errors);
        board->squares.push_back(take(1));
        board->vectors.emplace_back(take(unknownCount), unknownCount);
        board->matrices.emplace_back(take(unknownCount * unknownCount),
                                     unknownCount * unknownCount);
    }
}

// Waits for commands until nobody can give any more.
void Crew::Start(Worker& worker) {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0)
        throw std::system_error(errno, std::generic_category(), "socketpair");
    worker.process = fork();
    if (worker.process < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    worker.line = ends[0];
    if (worker.process != 0) {
        close(ends[1]);
        return;
    }
    // The parent decides what an interruption from the keyboard means.
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGTERM, SIG_IGN);
    for (const Worker& other : workers) {
        if (other.line >= 0)
            close(other.line);
    }
    const auto number = size_t(&worker - workers.data());
    Share share(samples, worker.begin, worker.end, unknowns);
    for (char command; read(ends[1], &command, 1) == 1;) {
        if (command == EVALUATE)
            share.Evaluate(board->members);
        else if (command == MEASURE)
            *board->errors[number] = share.Measure(*board->tenToOne);
        else if (command == DERIVATIVES)
            share.TakeDerivatives(board->members);
        else if (command == SUM)
            *board->squares[number] = share.Sum(board->changes, *board->tenToOne,
                                                board->matrices[number], board->vectors[number]);
        if (write(ends[1], &command, 1) != 1)
            break;
    }
    _exit(0);
}

Crew::Crew(const Samples& allSamples, const Unknowns& allUnknowns, int processes)
    : samples(allSamples), unknowns(allUnknowns), board(std::make_unique<Board>()) {
    const size_t count = std::min(size_t(processes), std::max<size_t>(samples.all.size(), 1));
    for (size_t i = 0; i < count; i++)
        workers.push_back({samples.all.size() * i / count, samples.all.size() * (i + 1) / count});
    Map(unknowns.all.size());
    // A process that is gone shows when it is spoken to.
    std::signal(SIGPIPE, SIG_IGN);
    for (Worker& worker : workers)
        Start(worker);
}

Crew::~Crew() {
    for (const Worker& worker : workers)
        close(worker.line);
    for (const Worker& worker : workers)
        waitpid(worker.process, nullptr, 0);
    munmap(board->memory, board->size);
}

// Has all do the same and waits for them.
void Crew::Order(char command) {
    for (const Worker& worker : workers) {
        if (write(worker.line, &command, 1) != 1)
            throw std::runtime_error("a process of the fit has ended");
    }
    for (const Worker& worker : workers) {
        ssize_t got = 0;
        do {
            got = read(worker.line, &command, 1);
        } while (got < 0 && errno == EINTR);
        if (got != 1)
            throw std::runtime_error("a process of the fit has ended (is the memory full?)");
    }
}

void Crew::SetMembers(std::span<const int32_t> members) {
    std::ranges::copy(members, board->members.begin());
}

void Crew::Evaluate(std::span<const int32_t> members) {
    SetMembers(members);
    Order(EVALUATE);
}

Errors Crew::Measure(double tenToOne) {
    *board->tenToOne = tenToOne;
    Order(MEASURE);
    Errors sum;
    for (const Errors* const errors : board->errors) {
        for (size_t phase = 0; phase < PHASES; phase++) {
            sum.training[phase].Add(errors->training[phase]);
            sum.heldOut[phase].Add(errors->heldOut[phase]);
        }
    }
    return sum;
}

void Crew::TakeDerivatives(std::span<const int32_t> members) {
    SetMembers(members);
    Order(DERIVATIVES);
}

NormalEquations Crew::Sum(std::span<const double> changes, double tenToOne) {
    std::ranges::copy(changes, board->changes.begin());
    *board->tenToOne = tenToOne;
    Order(SUM);
    NormalEquations sum;
    sum.matrix.resize(changes.size() * changes.size());
    sum.vector.resize(changes.size());
    for (size_t i = 0; i < workers.size(); i++) {
        sum.squares += *board->squares[i];
        std::ranges::transform(sum.vector, board->vectors[i], sum.vector.begin(), std::plus{});
        std::ranges::transform(sum.matrix, board->matrices[i], sum.matrix.begin(), std::plus{});
    }
    return sum;
}
