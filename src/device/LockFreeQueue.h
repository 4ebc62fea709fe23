#pragma once

#include <atomic>
#include <cassert>
#include <cstddef>
#include <memory>

// Bounded lock-free queue for small trivially copyable items, many producers, many consumers.
// Items of one producer come out in the order they went in; no producer ever blocks or allocates.
// When the queue is full (nobody has drained it for a long time) the new item is dropped.
template <typename Item>
class LockFreeQueue
{
public:
    explicit LockFreeQueue (size_t capacityPowerOfTwo = 1u << 16)
        : cells (new Cell[capacityPowerOfTwo]), mask (capacityPowerOfTwo - 1)
    {
        assert (capacityPowerOfTwo >= 2 && (capacityPowerOfTwo & mask) == 0);

        for (size_t i = 0; i < capacityPowerOfTwo; ++i)
            cells[i].sequence.store (i, std::memory_order_relaxed);
    }

    bool push (const Item& item) noexcept
    {
        auto pos = enqueuePos.load (std::memory_order_relaxed);

        for (;;)
        {
            auto& cell = cells[pos & mask];
            const auto diff = (std::ptrdiff_t) cell.sequence.load (std::memory_order_acquire) - (std::ptrdiff_t) pos;

            if (diff == 0)
            {
                if (enqueuePos.compare_exchange_weak (pos, pos + 1, std::memory_order_relaxed))
                {
                    cell.item = item;
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

    bool pop (Item& item) noexcept
    {
        auto pos = dequeuePos.load (std::memory_order_relaxed);

        for (;;)
        {
            auto& cell = cells[pos & mask];
            const auto diff = (std::ptrdiff_t) cell.sequence.load (std::memory_order_acquire) - (std::ptrdiff_t) (pos + 1);

            if (diff == 0)
            {
                if (dequeuePos.compare_exchange_weak (pos, pos + 1, std::memory_order_relaxed))
                {
                    item = cell.item;
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

    size_t capacity() const noexcept { return mask + 1; }
    size_t droppedCount() const noexcept { return dropped.load (std::memory_order_relaxed); }

private:
    struct Cell
    {
        std::atomic<size_t> sequence;
        Item item;
    };

    std::unique_ptr<Cell[]> cells;
    size_t mask;
    alignas (64) std::atomic<size_t> enqueuePos { 0 };
    alignas (64) std::atomic<size_t> dequeuePos { 0 };
    std::atomic<size_t> dropped { 0 };
};
