#include "Timing.h"

#include <algorithm>
#include <chrono>

namespace sectionbench {
namespace {

double Microseconds(const Action& action, int calls) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < calls; ++i)
        action();
    const std::chrono::duration<double, std::micro> elapsed =
        std::chrono::steady_clock::now() - start;
    return elapsed.count();
}

/// An action with as many calls as make a batch: long for the clock, short for the scheduler.
class Batch {
public:
    explicit Batch(const Action& action) : m_action(action) {
        constexpr double Shortest = 1000;
        m_action(); // the first call pays for what later ones find ready
        while (Microseconds(m_action, m_calls) < Shortest)
            m_calls *= 2;
    }

    double MicrosecondsPerCall() const { return Microseconds(m_action, m_calls) / m_calls; }

private:
    const Action& m_action;
    int m_calls = 1;
};

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// Calls `measure` for a second, but often enough for a median; a few times where that takes long.
template <class Measure>
void Repeat(Measure measure) {
    constexpr int Fewest = 21;
    constexpr int FewestOfLong = 3;
    constexpr std::chrono::seconds Duration(1);
    constexpr std::chrono::seconds Long(10);
    const auto start = std::chrono::steady_clock::now();
    const auto isOver = [start](std::chrono::seconds duration) {
        return std::chrono::steady_clock::now() - start > duration;
    };
    for (int i = 0; i < FewestOfLong || !isOver(i < Fewest ? Long : Duration); ++i)
        measure();
}

} // namespace

Times Compare(const Action& ours, const Action& peer) {
    std::vector<double> ourTimes;
    const Batch ourBatch(ours);
    if (!peer) {
        Repeat([&] { ourTimes.push_back(ourBatch.MicrosecondsPerCall()); });
        return {.ours = Median(std::move(ourTimes))};
    }
    std::vector<double> peerTimes;
    std::vector<double> ratios;
    const Batch peerBatch(peer);
    bool oursFirst = true; // by turns, lest a rhythm of the machine prefer one side
    Repeat([&] {
        if (oursFirst)
            ourTimes.push_back(ourBatch.MicrosecondsPerCall());
        peerTimes.push_back(peerBatch.MicrosecondsPerCall());
        if (!oursFirst)
            ourTimes.push_back(ourBatch.MicrosecondsPerCall());
        oursFirst = !oursFirst;
        ratios.push_back(ourTimes.back() / peerTimes.back());
    });
    return {Median(std::move(ourTimes)), Median(std::move(peerTimes)), Median(std::move(ratios))};
}

} // namespace sectionbench
