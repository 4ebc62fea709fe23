#include "AllocationCounter.h"

#include <cstdlib>
#include <new>

namespace
{
thread_local bool counting = false;
thread_local size_t allocations = 0;

void* allocate (std::size_t size)
{
    if (counting)
        ++allocations;

    if (void* p = std::malloc (size == 0 ? 1 : size))
        return p;

    throw std::bad_alloc();
}
} // namespace

void* operator new (std::size_t size) { return allocate (size); }
void* operator new[] (std::size_t size) { return allocate (size); }
// The standard library's temporary buffers (std::stable_sort) use the nothrow forms; they must pair
// with the frees above.
void* operator new (std::size_t size, const std::nothrow_t&) noexcept
{
    try { return allocate (size); } catch (const std::bad_alloc&) { return nullptr; }
}
void* operator new[] (std::size_t size, const std::nothrow_t&) noexcept
{
    try { return allocate (size); } catch (const std::bad_alloc&) { return nullptr; }
}
void operator delete (void* p) noexcept { std::free (p); }
void operator delete[] (void* p) noexcept { std::free (p); }
void operator delete (void* p, std::size_t) noexcept { std::free (p); }
void operator delete[] (void* p, std::size_t) noexcept { std::free (p); }

ScopedAllocationCount::ScopedAllocationCount() : start (allocations) { counting = true; }
ScopedAllocationCount::~ScopedAllocationCount() { counting = false; }
size_t ScopedAllocationCount::count() const { return allocations - start; }
