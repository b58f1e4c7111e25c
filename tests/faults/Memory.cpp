// Allocations that fail on demand: those of C++, and of the database engine.
#include "faults/Injector.h"

#include <cstdlib>
#include <new>
#include <sqlcipher/sqlite3.h>

// NOLINTBEGIN(cppcoreguidelines-no-malloc,misc-new-delete-overloads)

namespace {

using faults::Failure;
using faults::IsDue;

void* New(std::size_t size) {
    void* memory = IsDue(Failure::Memory) ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

sqlite3_mem_methods engineMemory;

void* EngineMalloc(int size) {
    return IsDue(Failure::Memory) ? nullptr : engineMemory.xMalloc(size);
}

void* EngineRealloc(void* memory, int size) {
    return IsDue(Failure::Memory) ? nullptr : engineMemory.xRealloc(memory, size);
}

} // namespace

void* operator new(std::size_t size) { return New(size); }
void* operator new[](std::size_t size) { return New(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

// NOLINTEND(cppcoreguidelines-no-malloc,misc-new-delete-overloads)

void faults::InstallMemoryHooks() {
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &engineMemory);
    sqlite3_mem_methods failing = engineMemory;
    failing.xMalloc = EngineMalloc;
    failing.xRealloc = EngineRealloc;
    sqlite3_config(SQLITE_CONFIG_MALLOC, &failing);
    sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0); // small allocations may fail as well
}
