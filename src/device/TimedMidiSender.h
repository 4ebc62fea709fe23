#pragma once

#include <juce_core/juce_core.h>

#include <atomic>
#include <functional>
#include <semaphore>
#include <vector>

// Sends timed MIDI from a thread of its own, in time order, keeping the order
// of hand-over among messages of the same time. The hand-over takes a short
// spin lock and copies into preallocated slots, so that the audio thread can
// send notes, clock bytes and controllers without allocating or waiting on the
// sender. Longer messages (SysEx) are copied to the heap by the caller's thread
// and freed by the sender.
class TimedMidiSender : private juce::Thread
{
public:
    using Sink = std::function<void (const juce::uint8* data, int numBytes)>;

    TimedMidiSender (Sink sink, int capacity = 4096);
    ~TimedMidiSender() override;

    // False when the queue is full: the message is dropped.
    bool post (const juce::uint8* data, int numBytes, double timeMs);

    // Current time on the clock that timeMs refers to.
    static double now() { return juce::Time::getMillisecondCounterHiRes(); }

private:
    struct Event
    {
        double timeMs = 0.0;
        int numBytes = 0;
        juce::uint8 shortData[3] {};
        juce::uint8* longData = nullptr;

        const juce::uint8* bytes() const { return longData != nullptr ? longData : shortData; }
    };

    void run() override;
    void takeFromQueue();
    void sendDue();

    Sink sink;
    juce::SpinLock postLock;
    juce::AbstractFifo fifo;
    std::vector<Event> slots;
    std::vector<Event> pending; // time order, capacity fixed
    std::counting_semaphore<> wake { 0 };
};
