#include "FailingMemory.h"

#include <cstdlib>
#include <new>

namespace testsupport {

long failAt = 0;
bool failOnwards = false;
long allocations = 0;
long living = 0;

} // namespace testsupport

using namespace testsupport;

namespace {

// Not inlined: the compiler would take malloc and delete for a mismatched pair.
[[gnu::noinline]] void* Allocate(std::size_t size) {
    ++allocations;
    if (failAt != 0 && (allocations == failAt || (failOnwards && allocations > failAt)))
        return nullptr;
    void* memory = std::malloc(size == 0 ? 1 : size);
    living += memory != nullptr ? 1 : 0;
    return memory;
}

[[gnu::noinline]] void Release(void* memory) {
    living -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

} // namespace

void* operator new(std::size_t size) {
    void* memory = Allocate(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* memory) noexcept { Release(memory); }
void operator delete(void* memory, std::size_t) noexcept { Release(memory); }
