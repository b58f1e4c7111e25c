// Tells a process from the one that it was forked from.
#pragma once

namespace dbsection {

/// The process in which it was made. Asking whether that is the running one costs no system call.
class ProcessMark {
public:
    /// Throws std::bad_alloc where there is no memory to have forks counted.
    ProcessMark();

    bool IsOfThisProcess() const { return m_forks == forks; }

private:
    static unsigned forks; ///< from the first process to this one

    unsigned m_forks;
};

} // namespace dbsection
