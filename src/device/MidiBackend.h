#pragma once

#include <juce_audio_devices/juce_audio_devices.h>

#include <memory>

// The road from the port manager to MIDI devices. The plug-in runs on the
// system's devices; tests and tools put virtual devices in their place.
class MidiBackend
{
public:
    // An open input. Messages reach the callback given at opening, between
    // start() and stop().
    class Input
    {
    public:
        virtual ~Input() = default;
        virtual void start() = 0;
        // Returns only when no callback of this input runs any more.
        virtual void stop() = 0;
    };

    // An open output.
    class Output
    {
    public:
        virtual ~Output() = default;
        // Hands one complete message over, to leave at timeMs on the
        // millisecond counter (now or earlier: at once). Callable from any
        // thread; a message of up to three bytes neither allocates nor blocks,
        // as the audio thread sends through here.
        virtual void send (const juce::uint8* data, int numBytes, double timeMs) = 0;
    };

    virtual ~MidiBackend() = default;

    virtual juce::Array<juce::MidiDeviceInfo> getInputDevices() = 0;
    virtual juce::Array<juce::MidiDeviceInfo> getOutputDevices() = 0;

    // Null when the device cannot be opened.
    virtual std::unique_ptr<Input> openInput (const juce::String& identifier, juce::MidiInputCallback* callback) = 0;
    virtual std::unique_ptr<Output> openOutput (const juce::String& identifier) = 0;
};
