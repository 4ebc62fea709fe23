#pragma once

#include "VirtualCorvane.h"
#include "device/InProcessMidiBackend.h"

// A virtual Corvane plugged into an in-process MIDI backend: it shows up as
// one input and one output of the given name.
class InProcessCorvane
{
public:
    InProcessCorvane (InProcessMidiBackend& backend, const juce::String& portName = "Corvane", int channel = 1, juce::int64 seed = 1);
    ~InProcessCorvane();

    InProcessMidiBackend& backend;
    VirtualCorvane corvane;
    const juce::String portName;
    juce::String inputId;  // what the system opens as an output to reach the instrument
    juce::String outputId; // what the system opens as an input to hear it

    JUCE_DECLARE_NON_COPYABLE (InProcessCorvane)
};
