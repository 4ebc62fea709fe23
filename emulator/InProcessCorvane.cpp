#include "InProcessCorvane.h"

InProcessCorvane::InProcessCorvane (InProcessMidiBackend& b, const juce::String& name, int channel, juce::int64 seed)
    : backend (b), corvane (channel, seed), portName (name)
{
    inputId = backend.addDestination (portName, &corvane);
    outputId = backend.addSource (portName);
    corvane.setOutput ([this] (const juce::MidiMessage& m) { backend.sendFromSource (outputId, m); });
}

InProcessCorvane::~InProcessCorvane()
{
    corvane.setOutput (nullptr);
    backend.removeDevice (inputId);
    backend.removeDevice (outputId);
}
