#include "faults/CallTrial.h"
#include "faults/Subjects.h"

#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <sys/file.h>

namespace faults {
namespace {

/// How the database engine locks a file: bytes that stand for states of its users.
constexpr off_t PendingByte = 0x40000000;
constexpr off_t ReservedByte = PendingByte + 1;
constexpr off_t AllBytes = 512;

/// Another process, which locks all files of the current folder on demand.
class LockHolder {
public:
    LockHolder() {
        if (::pipe(m_demands) != 0 || ::pipe(m_answers) != 0)
            throw std::runtime_error("no pipe can be made");
        m_process = testsupport::StartChild([&] { return Serve(); });
    }
    LockHolder(const LockHolder&) = delete;
    LockHolder& operator=(const LockHolder&) = delete;
    ~LockHolder() {
        ::kill(m_process, SIGKILL);
        testsupport::WaitForChild(m_process);
        for (const int end : {m_demands[0], m_demands[1], m_answers[0], m_answers[1]})
            ::close(end);
    }

    enum Demand : char { Exclusive, Writing, ForAWhile, Unlock };

    /// Returns when the locks are there, or gone.
    void Ask(Demand demand) {
        char answer = 0;
        if (::write(m_demands[1], &demand, 1) != 1 || ::read(m_answers[0], &answer, 1) != 1)
            throw std::runtime_error("the lock holder has ended");
    }

private:
    int Serve() {
        Demand demand = Unlock;
        while (::read(m_demands[0], &demand, 1) == 1) {
            Release();
            if (demand != Unlock)
                LockFiles(demand == Writing ? ReservedByte : PendingByte,
                          demand == Writing ? 1 : AllBytes);
            if (::write(m_answers[1], &demand, 1) != 1)
                return 1;
            if (demand == ForAWhile) {
                constexpr useconds_t Microseconds = 100'000; // less than the library waits
                ::usleep(Microseconds);
                Release();
            }
        }
        return 0;
    }

    /// A file that is locked already, by the call that is to be disturbed, stays so.
    void LockFiles(off_t from, off_t count) {
        m_files.push_back(::open(".", O_RDONLY | O_DIRECTORY)); // settings files lock their folder
        ::flock(m_files.back(), LOCK_EX | LOCK_NB);
        for (const auto& entry : std::filesystem::directory_iterator(".")) {
            if (entry.path().extension() != ".db3")
                continue;
            m_files.push_back(::open(entry.path().c_str(), O_RDWR));
            struct flock lock {};
            lock.l_type = F_WRLCK;
            lock.l_whence = SEEK_SET;
            lock.l_start = from;
            lock.l_len = count;
            ::fcntl(m_files.back(), F_SETLK, &lock);
        }
    }

    void Release() {
        for (const int file : m_files)
            ::close(file);
        m_files.clear();
    }

    int m_demands[2] = {};
    int m_answers[2] = {};
    pid_t m_process = 0;
    std::vector<int> m_files;
};

struct Contention {
    const char* name;
    LockHolder::Demand demand;
};

constexpr std::array Contentions{
    Contention{"another process has the files for itself", LockHolder::Exclusive},
    Contention{"another process writes the files", LockHolder::Writing},
    Contention{"another process has the files for 0.1 s", LockHolder::ForAWhile}};

void Continue(const PublicCall& call, const Originals& originals, Progress& progress) {
    World world(originals.folder + "/plain", "");
    LockHolder holder;
    CallTrial trial(call, world);
    while (progress.next < std::ssize(Contentions)) {
        const Contention& contention = Contentions[static_cast<std::size_t>(progress.next)];
        trial.Run({contention.name, [&] { holder.Ask(contention.demand); },
                   [&] { holder.Ask(LockHolder::Unlock); }},
                  progress);
    }
    world.Begin();
}

} // namespace

std::vector<Job> ContentionJobs(const Originals& originals) {
    std::vector<Job> jobs;
    for (const CallGroup& group : CallGroups())
        for (const PublicCall& call : group.calls)
            jobs.push_back({std::string("contention: ") + group.name, [&] {
                                return RunIsolated(call.name, [&](Progress& progress) {
                                    Continue(call, originals, progress);
                                });
                            }});
    return jobs;
}

} // namespace faults
