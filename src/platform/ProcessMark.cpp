#include "platform/ProcessMark.h"

#include <new>
#include <pthread.h>

namespace dbsection {

unsigned ProcessMark::forks = 0;

ProcessMark::ProcessMark() : m_forks(forks) {
    static const bool areCounted = [] {
        if (::pthread_atfork(nullptr, nullptr, [] { ++forks; }) != 0)
            throw std::bad_alloc();
        return true;
    }();
    static_cast<void>(areCounted);
}

} // namespace dbsection
