#include "Allocations.h"

#include <malloc.h>

#include <cstdlib>

namespace {
// One thread works, so the count needs no atomics.
qint64 allocations = 0;
} // namespace

// The entry points of the C library, by their second names. What is not replaced here calls none of these.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

Q_DECL_EXPORT void* malloc(std::size_t size) noexcept
{
    ++allocations;
    return __libc_malloc(size);
}

Q_DECL_EXPORT void* calloc(std::size_t count, std::size_t size) noexcept
{
    ++allocations;
    return __libc_calloc(count, size);
}

Q_DECL_EXPORT void* realloc(void* block, std::size_t size) noexcept
{
    ++allocations;
    return __libc_realloc(block, size);
}
}

qint64 Allocations::count()
{
    return allocations;
}

void Allocations::settle()
{
    malloc_trim(0);
}

qint64 Allocations::bytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks) + qint64(info.hblkhd);
}
