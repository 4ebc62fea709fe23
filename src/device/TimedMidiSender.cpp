#include "device/TimedMidiSender.h"

#include <algorithm>

TimedMidiSender::TimedMidiSender (Sink s, int capacity)
    : juce::Thread ("MIDI sender"), sink (std::move (s)), fifo (capacity + 1), slots ((size_t) capacity + 1)
{
    pending.reserve ((size_t) capacity);
    startThread (juce::Thread::Priority::high);
}

TimedMidiSender::~TimedMidiSender()
{
    signalThreadShouldExit();
    wake.release();
    stopThread (-1);

    // What never left still owns its copies.
    for (auto& e : pending)
        delete[] e.longData;

    const auto scope = fifo.read (fifo.getNumReady());
    for (int i = 0; i < scope.blockSize1; ++i)
        delete[] slots[(size_t) (scope.startIndex1 + i)].longData;
    for (int i = 0; i < scope.blockSize2; ++i)
        delete[] slots[(size_t) (scope.startIndex2 + i)].longData;
}

bool TimedMidiSender::post (const juce::uint8* data, int numBytes, double timeMs)
{
    if (numBytes <= 0)
        return false;

    juce::uint8* longData = nullptr;
    if (numBytes > 3)
    {
        longData = new juce::uint8[(size_t) numBytes];
        std::copy (data, data + numBytes, longData);
    }

    bool queued = false;
    {
        const juce::SpinLock::ScopedLockType sl (postLock);
        const auto scope = fifo.write (1);
        if (scope.blockSize1 == 1)
        {
            auto& e = slots[(size_t) scope.startIndex1];
            e.timeMs = timeMs;
            e.numBytes = numBytes;
            e.longData = longData;
            if (longData == nullptr)
                std::copy (data, data + numBytes, e.shortData);
            queued = true;
        }
    }

    if (! queued)
    {
        delete[] longData;
        return false;
    }

    wake.release();
    return true;
}

void TimedMidiSender::takeFromQueue()
{
    const int room = (int) (pending.capacity() - pending.size());
    const auto scope = fifo.read (std::min (room, fifo.getNumReady()));

    auto insert = [this] (const Event& e)
    {
        // After every event of the same time: equal times keep hand-over order.
        auto pos = std::upper_bound (pending.begin(), pending.end(), e.timeMs,
                                     [] (double t, const Event& p) { return t < p.timeMs; });
        pending.insert (pos, e);
    };

    for (int i = 0; i < scope.blockSize1; ++i)
        insert (slots[(size_t) (scope.startIndex1 + i)]);
    for (int i = 0; i < scope.blockSize2; ++i)
        insert (slots[(size_t) (scope.startIndex2 + i)]);
}

void TimedMidiSender::sendDue()
{
    const double t = now();
    size_t n = 0;
    while (n < pending.size() && pending[n].timeMs <= t)
    {
        auto& e = pending[n++];
        sink (e.bytes(), e.numBytes);
        delete[] e.longData;
    }
    pending.erase (pending.begin(), pending.begin() + (std::ptrdiff_t) n);
}

void TimedMidiSender::run()
{
    while (! threadShouldExit())
    {
        takeFromQueue();
        sendDue();

        auto waitMs = 100.0;
        if (! pending.empty())
            waitMs = std::clamp (pending.front().timeMs - now(), 0.0, waitMs);

        if (waitMs > 0.0)
            (void) wake.try_acquire_for (std::chrono::duration<double, std::milli> (waitMs));
    }
}
