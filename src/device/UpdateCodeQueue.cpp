#include "device/UpdateCodeQueue.h"

#include <cassert>

UpdateCodeQueue::UpdateCodeQueue (size_t capacityPowerOfTwo)
    : cells (new Cell[capacityPowerOfTwo]), mask (capacityPowerOfTwo - 1)
{
    assert (capacityPowerOfTwo >= 2 && (capacityPowerOfTwo & mask) == 0);

    for (size_t i = 0; i < capacityPowerOfTwo; ++i)
        cells[i].sequence.store (i, std::memory_order_relaxed);
}

bool UpdateCodeQueue::push (uint32_t code) noexcept
{
    auto pos = enqueuePos.load (std::memory_order_relaxed);

    for (;;)
    {
        auto& cell = cells[pos & mask];
        const auto seq = cell.sequence.load (std::memory_order_acquire);
        const auto diff = (std::ptrdiff_t) seq - (std::ptrdiff_t) pos;

        if (diff == 0)
        {
            if (enqueuePos.compare_exchange_weak (pos, pos + 1, std::memory_order_relaxed))
            {
                cell.code = code;
                cell.sequence.store (pos + 1, std::memory_order_release);
                return true;
            }
        }
        else if (diff < 0)
        {
            dropped.fetch_add (1, std::memory_order_relaxed);
            return false;
        }
        else
        {
            pos = enqueuePos.load (std::memory_order_relaxed);
        }
    }
}

bool UpdateCodeQueue::pop (uint32_t& code) noexcept
{
    auto pos = dequeuePos.load (std::memory_order_relaxed);

    for (;;)
    {
        auto& cell = cells[pos & mask];
        const auto seq = cell.sequence.load (std::memory_order_acquire);
        const auto diff = (std::ptrdiff_t) seq - (std::ptrdiff_t) (pos + 1);

        if (diff == 0)
        {
            if (dequeuePos.compare_exchange_weak (pos, pos + 1, std::memory_order_relaxed))
            {
                code = cell.code;
                cell.sequence.store (pos + mask + 1, std::memory_order_release);
                return true;
            }
        }
        else if (diff < 0)
        {
            return false;
        }
        else
        {
            pos = dequeuePos.load (std::memory_order_relaxed);
        }
    }
}
