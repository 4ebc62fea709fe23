#pragma once

#include "device/MidiBackend.h"

// One MIDI device of a list, with the port that is open on it, if any.
class MidiDeviceListEntry : public juce::ReferenceCountedObject
{
public:
    using Ptr = juce::ReferenceCountedObjectPtr<MidiDeviceListEntry>;

    explicit MidiDeviceListEntry (const juce::MidiDeviceInfo& info) : deviceInfo (info) {}

    juce::MidiDeviceInfo deviceInfo;
    std::unique_ptr<MidiBackend::Input> inDevice;
    std::unique_ptr<MidiBackend::Output> outDevice; // declared last: destroyed before the input
};
