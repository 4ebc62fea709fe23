#include "device/InProcessMidiBackend.h"

#include <array>

namespace
{
constexpr size_t reservedMessages = 1 << 14; // keeps the send path free of allocation in tests
}

struct InProcessMidiBackend::Device
{
    juce::MidiDeviceInfo info;
    bool isSource = false;
    bool present = true;
    juce::MidiInputCallback* receiver = nullptr;
    std::vector<TimedMessage> log;
};

struct InProcessMidiBackend::Pending
{
    Device* device = nullptr;
    juce::MidiMessage message;
};

class InProcessMidiBackend::VirtualInput : public MidiBackend::Input
{
public:
    VirtualInput (InProcessMidiBackend& b, Device* d, juce::MidiInputCallback* c) : backend (b), device (d), callback (c)
    {
        const juce::ScopedLock sl (backend.lock);
        backend.openInputs.push_back (this);
    }

    ~VirtualInput() override
    {
        stop();
        const juce::ScopedLock sl (backend.lock);
        std::erase (backend.openInputs, this);
    }

    void start() override { running = true; }

    void stop() override
    {
        const juce::ScopedLock dl (backend.deliveryLock);
        running = false;
    }

    InProcessMidiBackend& backend;
    Device* const device;
    juce::MidiInputCallback* const callback;
    std::atomic<bool> running { false };
};

class InProcessMidiBackend::VirtualOutput : public MidiBackend::Output
{
public:
    VirtualOutput (InProcessMidiBackend& b, Device* d) : backend (b), device (d) {}

    void send (const juce::uint8* data, int numBytes, double timeMs) override { backend.queue (device, data, numBytes, timeMs); }

private:
    InProcessMidiBackend& backend;
    Device* const device;
};

InProcessMidiBackend::InProcessMidiBackend()
{
    queued.reserve (reservedMessages);
}

InProcessMidiBackend::~InProcessMidiBackend() = default;

juce::String InProcessMidiBackend::addSource (const juce::String& name, int position)
{
    return addDevice (name, true, nullptr, position);
}

juce::String InProcessMidiBackend::addDestination (const juce::String& name, juce::MidiInputCallback* receiver, int position)
{
    return addDevice (name, false, receiver, position);
}

juce::String InProcessMidiBackend::addDevice (const juce::String& name, bool isSource, juce::MidiInputCallback* receiver, int position)
{
    auto d = std::make_unique<Device>();
    d->info = juce::MidiDeviceInfo (name, "inproc-" + juce::String (nextId++));
    d->isSource = isSource;
    d->receiver = receiver;
    d->log.reserve (reservedMessages);
    const auto id = d->info.identifier;

    const juce::ScopedLock sl (lock);
    auto at = devices.end();
    if (position >= 0)
    {
        int seen = 0;
        for (auto it = devices.begin(); it != devices.end(); ++it)
            if ((*it)->present && (*it)->isSource == isSource && seen++ == position)
            {
                at = it;
                break;
            }
    }
    devices.insert (at, std::move (d));
    return id;
}

void InProcessMidiBackend::removeDevice (const juce::String& identifier)
{
    const juce::ScopedLock sl (lock);
    if (auto* d = find (identifier))
        d->present = false; // kept alive: open ports still point at it
}

InProcessMidiBackend::Device* InProcessMidiBackend::find (const juce::String& identifier) const
{
    for (auto& d : devices)
        if (d->present && d->info.identifier == identifier)
            return d.get();
    return nullptr;
}

void InProcessMidiBackend::queue (Device* device, const juce::uint8* data, int numBytes, double timeMs)
{
    if (numBytes <= 0)
        return;

    const juce::MidiMessage m (data, numBytes, timeMs);
    const juce::ScopedLock sl (lock);
    if (! device->present)
        return;
    if (! device->isSource)
        device->log.push_back ({ m, timeMs });
    queued.push_back ({ device, m });
}

void InProcessMidiBackend::sendFromSource (const juce::String& identifier, const juce::MidiMessage& message)
{
    const juce::ScopedLock sl (lock);
    if (auto* d = find (identifier); d != nullptr && d->isSource)
        queue (d, message.getRawData(), message.getRawDataSize(), message.getTimeStamp());
}

int InProcessMidiBackend::deliverPending (int maxMessages)
{
    const juce::ScopedLock dl (deliveryLock);
    int delivered = 0;

    while (delivered < maxMessages)
    {
        Pending p;
        std::array<juce::MidiInputCallback*, 8> receivers {};
        size_t numReceivers = 0;
        {
            const juce::ScopedLock sl (lock);
            if (queueHead >= queued.size())
            {
                queued.clear();
                queueHead = 0;
                return delivered;
            }
            p = std::move (queued[queueHead++]);

            if (! p.device->present)
                continue;
            if (p.device->isSource)
            {
                for (auto* in : openInputs)
                    if (in->device == p.device && in->running && numReceivers < receivers.size())
                        receivers[numReceivers++] = in->callback;
            }
            else if (p.device->receiver != nullptr)
            {
                receivers[numReceivers++] = p.device->receiver;
            }
        }

        for (size_t i = 0; i < numReceivers; ++i)
            receivers[i]->handleIncomingMidiMessage (nullptr, p.message);
        ++delivered;
    }
    return delivered;
}

std::vector<InProcessMidiBackend::TimedMessage> InProcessMidiBackend::messagesTo (const juce::String& destination) const
{
    const juce::ScopedLock sl (lock);
    if (auto* d = find (destination))
        return d->log;
    return {};
}

void InProcessMidiBackend::clearLog (const juce::String& destination)
{
    const juce::ScopedLock sl (lock);
    if (auto* d = find (destination))
        d->log.clear();
}

juce::Array<juce::MidiDeviceInfo> InProcessMidiBackend::getInputDevices()
{
    const juce::ScopedLock sl (lock);
    juce::Array<juce::MidiDeviceInfo> list;
    for (auto& d : devices)
        if (d->present && d->isSource)
            list.add (d->info);
    return list;
}

juce::Array<juce::MidiDeviceInfo> InProcessMidiBackend::getOutputDevices()
{
    const juce::ScopedLock sl (lock);
    juce::Array<juce::MidiDeviceInfo> list;
    for (auto& d : devices)
        if (d->present && ! d->isSource)
            list.add (d->info);
    return list;
}

std::unique_ptr<MidiBackend::Input> InProcessMidiBackend::openInput (const juce::String& identifier, juce::MidiInputCallback* callback)
{
    const juce::ScopedLock sl (lock);
    auto* d = find (identifier);
    if (d == nullptr || ! d->isSource || callback == nullptr)
        return nullptr;
    return std::make_unique<VirtualInput> (*this, d, callback);
}

std::unique_ptr<MidiBackend::Output> InProcessMidiBackend::openOutput (const juce::String& identifier)
{
    const juce::ScopedLock sl (lock);
    auto* d = find (identifier);
    if (d == nullptr || d->isSource)
        return nullptr;
    return std::make_unique<VirtualOutput> (*this, d);
}
