// Failures on demand: of the allocations and the system calls of the code under test.
//
//     faults::Expect({faults::Failure::Memory, 17}); // the 17th allocation fails
//     const int count = faults::Under([] { return SectionDBInterface::GetSectionCount(1, 1); });
//
// Memory is that of the library, of the database engine and, where the library calls it, of the
// cryptography; system calls are those on files, of all three. Events are counted and fail inside
// Under only.
#pragma once

namespace faults {

enum class Failure {
    Memory,
    InputOutput,   ///< EIO, of any system call
    DiskFull,      ///< ENOSPC, of those that write
    ShortTransfer, ///< half of what is to be read or written
    Death,         ///< the process is killed at a system call
};

/// Which of the events that the failure can strike fails: one, counted from 1, or all from it on,
/// but for the removal of files: what cannot be removed at all cannot be cleaned up either.
struct Plan {
    Failure failure = Failure::Memory;
    long first = 0; ///< 0: none, they are only counted
    bool lasting = false;
};

/// To be called before anything else allocates: makes the engine's allocations fail too.
void InstallMemoryHooks();

/// The same of the cryptography's.
void InstallCipherHooks();

/// Sets the plan and begins to count anew.
void Expect(const Plan& plan);

/// The events counted since Expect.
long Events();

/// Whether the event that happens now is one that fails. The hooks ask it once an event.
bool IsDue(Failure failure);

/// Whether failures are of that kind.
bool Strikes(Failure failure);

/// Whether failures last.
bool IsLasting();

class Armed {
public:
    Armed();
    Armed(const Armed&) = delete;
    Armed& operator=(const Armed&) = delete;
    ~Armed();
};

/// The host's own code, called from code under test, has memory and files of its own.
class Unarmed {
public:
    Unarmed();
    Unarmed(const Unarmed&) = delete;
    Unarmed& operator=(const Unarmed&) = delete;
    ~Unarmed();

private:
    bool m_wasArmed;
};

template <class Body>
auto Under(Body body) {
    const Armed armed;
    return body();
}

} // namespace faults
