#include "device/SystemMidiBackend.h"

#include "device/TimedMidiSender.h"

namespace
{
class SystemInput : public MidiBackend::Input
{
public:
    explicit SystemInput (std::unique_ptr<juce::MidiInput> d) : device (std::move (d)) {}
    void start() override { device->start(); }
    void stop() override { device->stop(); }

private:
    std::unique_ptr<juce::MidiInput> device;
};

class SystemOutput : public MidiBackend::Output
{
public:
    explicit SystemOutput (std::unique_ptr<juce::MidiOutput> d)
        : device (std::move (d)),
          sender ([this] (const juce::uint8* data, int numBytes) { device->sendMessageNow (juce::MidiMessage (data, numBytes)); })
    {
    }

    void send (const juce::uint8* data, int numBytes, double timeMs) override { sender.post (data, numBytes, timeMs); }

private:
    std::unique_ptr<juce::MidiOutput> device;
    TimedMidiSender sender; // declared last: its thread stops before the device goes
};
} // namespace

juce::Array<juce::MidiDeviceInfo> SystemMidiBackend::getInputDevices()
{
    return juce::MidiInput::getAvailableDevices();
}

juce::Array<juce::MidiDeviceInfo> SystemMidiBackend::getOutputDevices()
{
    return juce::MidiOutput::getAvailableDevices();
}

std::unique_ptr<MidiBackend::Input> SystemMidiBackend::openInput (const juce::String& identifier, juce::MidiInputCallback* callback)
{
    if (auto device = juce::MidiInput::openDevice (identifier, callback))
        return std::make_unique<SystemInput> (std::move (device));
    return nullptr;
}

std::unique_ptr<MidiBackend::Output> SystemMidiBackend::openOutput (const juce::String& identifier)
{
    if (auto device = juce::MidiOutput::openDevice (identifier))
        return std::make_unique<SystemOutput> (std::move (device));
    return nullptr;
}
