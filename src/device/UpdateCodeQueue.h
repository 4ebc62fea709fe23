#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

// Bounded lock-free queue of 32-bit update codes, many producers, many consumers.
// The MIDI, audio and host-parameter threads post codes; the message thread drains them.
// Codes of one producer come out in the order they went in, and no producer ever blocks or
// allocates: when the queue is full (nobody has drained for a long time) the new code is dropped.
class UpdateCodeQueue
{
public:
    explicit UpdateCodeQueue (size_t capacityPowerOfTwo = 1u << 16);

    bool push (uint32_t code) noexcept;
    bool pop (uint32_t& code) noexcept;

    size_t capacity() const noexcept { return mask + 1; }
    size_t droppedCount() const noexcept { return dropped.load (std::memory_order_relaxed); }

private:
    struct Cell
    {
        std::atomic<size_t> sequence;
        uint32_t code;
    };

    std::unique_ptr<Cell[]> cells;
    size_t mask;
    alignas (64) std::atomic<size_t> enqueuePos { 0 };
    alignas (64) std::atomic<size_t> dequeuePos { 0 };
    std::atomic<size_t> dropped { 0 };
};
