#pragma once

#include "device/MidiBackend.h"

#include <limits>
#include <vector>

// Virtual MIDI devices inside the process, for tests and tools.
//
// A source is a device that the system sees as an input: its owner plays into
// it, and every started input opened on it receives what was played. A
// destination is a device that the system sees as an output: what is sent to it
// is logged with its scheduled time and handed to its receiver.
//
// Nothing moves by itself: deliverPending() hands queued messages over on the
// calling thread, in the order of sending, including what the receivers send
// while it runs, until none is left or maxMessages have gone. Scheduled times
// are kept in the log, not waited for.
class InProcessMidiBackend : public MidiBackend
{
public:
    struct TimedMessage
    {
        juce::MidiMessage message;
        double timeMs = 0.0;
    };

    InProcessMidiBackend();
    ~InProcessMidiBackend() override;

    // Both return the new device's identifier. position -1 appends; another
    // position inserts the device there in the list, as a device plugged in.
    juce::String addSource (const juce::String& name, int position = -1);
    juce::String addDestination (const juce::String& name, juce::MidiInputCallback* receiver, int position = -1);
    // Unplugs a device; open ports on it stay but go silent.
    void removeDevice (const juce::String& identifier);

    // Queues a message from a source.
    void sendFromSource (const juce::String& identifier, const juce::MidiMessage& message);

    int deliverPending (int maxMessages = std::numeric_limits<int>::max());

    std::vector<TimedMessage> messagesTo (const juce::String& destination) const;
    void clearLog (const juce::String& destination);

    juce::Array<juce::MidiDeviceInfo> getInputDevices() override;
    juce::Array<juce::MidiDeviceInfo> getOutputDevices() override;
    std::unique_ptr<Input> openInput (const juce::String& identifier, juce::MidiInputCallback* callback) override;
    std::unique_ptr<Output> openOutput (const juce::String& identifier) override;

private:
    struct Device;
    struct Pending;
    class VirtualInput;
    class VirtualOutput;

    Device* find (const juce::String& identifier) const;
    juce::String addDevice (const juce::String& name, bool isSource, juce::MidiInputCallback* receiver, int position);
    void queue (Device* device, const juce::uint8* data, int numBytes, double timeMs);

    juce::CriticalSection lock;          // devices, logs, queue, open inputs
    juce::CriticalSection deliveryLock;  // held while a receiver runs
    std::vector<std::unique_ptr<Device>> devices;
    std::vector<Pending> queued;
    size_t queueHead = 0;
    std::vector<VirtualInput*> openInputs;
    int nextId = 1;
};
