#pragma once

#include <cstddef>

// Counts heap allocations made by the calling thread while a ScopedAllocationCount lives.
class ScopedAllocationCount
{
public:
    ScopedAllocationCount();
    ~ScopedAllocationCount();

    size_t count() const;

private:
    size_t start;
};
