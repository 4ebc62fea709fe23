#include "plugin/MIDI_Sync.h"

MIDI_Sync::MIDI_Sync()
{
    setSize (400, 200);
}

MIDI_Sync::~MIDI_Sync() = default;

void MIDI_Sync::setUp (int logicHost, int syncMode, int sampleRateIndex, const juce::Array<int>& syncValues)
{
    isLogicHost = logicHost;
    mode = syncMode;
    rateIndex = sampleRateIndex;
    values = syncValues;
}

juce::String MIDI_Sync::rateText (int)
{
    return {};
}

void MIDI_Sync::paint (juce::Graphics&) {}

void MIDI_Sync::changeListenerCallback (juce::ChangeBroadcaster*) {}
