#pragma once

#include "device/MidiBackend.h"

// The operating system's MIDI devices, through juce::MidiInput and
// juce::MidiOutput. Outputs send through a TimedMidiSender rather than the
// library's own background sender, which allocates for every message.
class SystemMidiBackend : public MidiBackend
{
public:
    juce::Array<juce::MidiDeviceInfo> getInputDevices() override;
    juce::Array<juce::MidiDeviceInfo> getOutputDevices() override;
    std::unique_ptr<Input> openInput (const juce::String& identifier, juce::MidiInputCallback* callback) override;
    std::unique_ptr<Output> openOutput (const juce::String& identifier) override;
};
