#include "fuzz/Fuzz.h"

#include <QFile>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>

// Feeds changed seeds to a reader. The order of changes is the same in every run, so that a crash comes back.
//   target COUNT         so many inputs
//   target --seconds N   for so long
//   target --keep N      the first N, each written to fuzz_last_input.bin before it is fed
//   target FILE...       these files

namespace vantrosk {

namespace {

constexpr const char *last_input = "fuzz_last_input.bin";
constexpr qsizetype size_limit = 1 << 16;

class Mutator {
public:
    Mutator() : corpus_(Fuzz_seeds()), pieces_(Fuzz_pieces()) {}

    QByteArray next() {
        QByteArray input = corpus_[below(corpus_.size())];
        for (std::size_t changes = 1 + below(8); changes > 0; --changes)
            change(input);
        input.truncate(size_limit);
        // Inputs that grew from others reach further than single changes do.
        if (below(8) == 0)
            corpus_[seeds_ + below(kept_)] = input;
        return input;
    }

private:
    std::size_t below(std::size_t limit) { return std::size_t(random_()) % limit; }
    qsizetype place_in(const QByteArray &input) { return qsizetype(below(std::size_t(input.size()) + 1)); }

    void change(QByteArray &input) {
        const qsizetype place = place_in(input);
        const auto length = qsizetype(below(16));
        switch (below(6)) {
        case 0:
            input.insert(place, pieces_[below(pieces_.size())]);
            return;
        case 1:
            input.insert(place, static_cast<char>(below(256)));
            return;
        case 2:
            input.remove(place, length);
            return;
        case 3:
            input.insert(place, input.mid(place_in(input), length * 8));
            return;
        case 4:
            input.insert(place, pieces_[below(pieces_.size())].repeated(1 + length * length));
            return;
        default:
            if (place < input.size())
                input[place] = static_cast<char>(below(256));
        }
    }

    static constexpr std::size_t kept_ = 64;
    std::vector<QByteArray> corpus_, pieces_;
    std::size_t seeds_ = grow();
    std::mt19937 random_{1};

    /// Room for kept inputs behind the seeds; the count of seeds.
    std::size_t grow() {
        const std::size_t seeds = corpus_.size();
        for (std::size_t i = 0; i < kept_; ++i)
            corpus_.push_back(corpus_[i % seeds]);
        return seeds;
    }
};

void Keep(const QByteArray &input) {
    QFile file(last_input);
    if (file.open(QIODevice::WriteOnly))
        file.write(input);
}

int Run_files(int count, char **names) {
    for (int i = 0; i < count; ++i) {
        QFile file(names[i]);
        if (!file.open(QIODevice::ReadOnly))
            return EXIT_FAILURE;
        Fuzz_one(file.readAll());
    }
    return EXIT_SUCCESS;
}

int Run_inputs(long long count, std::chrono::seconds time, bool keep) {
    const auto end = std::chrono::steady_clock::now() + time;
    Mutator mutator;
    long long done = 0;
    for (; done < count || (time.count() > 0 && std::chrono::steady_clock::now() < end); ++done) {
        const QByteArray input = mutator.next();
        if (keep)
            Keep(input);
        Fuzz_one(input);
    }
    std::printf("%lld inputs\n", done);
    return EXIT_SUCCESS;
}

} // namespace

} // namespace vantrosk

int main(int count, char **words) {
    using namespace vantrosk;
    const QByteArray first = count > 1 ? words[1] : "1000";
    const int number = count > 2 ? std::atoi(words[2]) : 60;
    if (first == "--seconds")
        return Run_inputs(0, std::chrono::seconds(number), false);
    if (first == "--keep")
        return Run_inputs(number, std::chrono::seconds(0), true);
    bool is_count = false;
    const long long inputs = first.toLongLong(&is_count);
    return is_count ? Run_inputs(inputs, std::chrono::seconds(0), false) : Run_files(count - 1, words + 1);
}
