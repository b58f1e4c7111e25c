#include "faults/Isolated.h"

#include "TestSupport.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>
#include <new>
#include <span>
#include <sys/mman.h>
#include <thread>

// Of the leak detector, where the program runs under it.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" __attribute__((weak)) int __lsan_do_recoverable_leak_check();

namespace faults {
namespace {

constexpr long ExamplesPrinted = 2;

/// Memory that children share with their parent.
template <class Item>
class Shared {
public:
    explicit Shared(std::size_t count) : m_items(Map(count), count) {
        std::uninitialized_default_construct(m_items.begin(), m_items.end());
    }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;
    ~Shared() { ::munmap(m_items.data(), m_items.size_bytes()); }

    Item& operator[](std::size_t index) { return m_items[index]; }

private:
    static Item* Map(std::size_t count) {
        void* memory = ::mmap(nullptr, count * sizeof(Item), PROT_READ | PROT_WRITE,
                              MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED)
            throw std::bad_alloc();
        return static_cast<Item*>(memory);
    }

    std::span<Item> m_items;
};

int Continue(const std::string& subject, const std::function<void(Progress&)>& body,
             Progress& progress) {
    ::alarm(progress.secondsPerTrial);
    body(progress);
    ::alarm(0);
    if (__lsan_do_recoverable_leak_check != nullptr && __lsan_do_recoverable_leak_check() != 0)
        progress.Note(Verdict::Leaked, subject + ": memory was lost");
    progress.isDone = true;
    return 0;
}

} // namespace

bool IsClean(const Tally& tally) {
    return std::all_of(tally.begin() + static_cast<int>(Verdict::Wrong), tally.end(),
                       [](long count) { return count == 0; });
}

void Progress::Note(Verdict verdict, const std::string& story) {
    const auto place = static_cast<std::size_t>(verdict);
    ++tally[place];
    if (verdict < Verdict::Wrong || tally[place] > ExamplesPrinted)
        return;
    std::printf("  %s: %s\n", VerdictNames[place], story.c_str());
    std::fflush(stdout);
}

void Progress::Count(Verdict verdict, const std::string& story) {
    Note(verdict, story);
    ++next;
    ::alarm(secondsPerTrial);
}

Tally RunIsolated(const std::string& subject, const std::function<void(Progress&)>& body,
                  unsigned secondsPerTrial) {
    Shared<Progress> shared(1);
    Progress& progress = shared[0];
    progress.secondsPerTrial = secondsPerTrial;
    for (;;) {
        const int status =
            testsupport::RunInChild([&] { return Continue(subject, body, progress); });
        if (progress.isDone)
            return progress.tally;
        const bool isHung = status == 128 + SIGALRM;
        progress.Count(isHung ? Verdict::Hung : Verdict::Crashed,
                       subject + ", trial " + std::to_string(progress.next) + ", status " +
                           std::to_string(status));
        ::alarm(0);
    }
}

std::vector<Line> RunJobs(const std::vector<Job>& jobs, int minutes, int& skipped) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(minutes);
    Shared<Tally> tallies(jobs.size());
    unsigned running = 0;
    const auto waitForOne = [&] {
        ::wait(nullptr);
        --running;
    };
    skipped = 0;
    for (std::size_t i = 0; i < jobs.size(); ++i) {
        while (running >= std::max(std::thread::hardware_concurrency(), 1U))
            waitForOne();
        if (std::chrono::steady_clock::now() > end) {
            ++skipped;
            continue;
        }
        testsupport::StartChild([&] {
            tallies[i] = jobs[i].run();
            return 0;
        });
        ++running;
    }
    while (running > 0)
        waitForOne();

    std::vector<Line> lines;
    for (std::size_t i = 0; i < jobs.size(); ++i) {
        if (lines.empty() || lines.back().subject != jobs[i].subject)
            lines.push_back({jobs[i].subject});
        std::ranges::transform(lines.back().tally, tallies[i], lines.back().tally.begin(),
                               std::plus());
    }
    return lines;
}

} // namespace faults
