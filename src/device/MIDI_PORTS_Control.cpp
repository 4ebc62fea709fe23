#include "device/MIDI_PORTS_Control.h"

void MIDI_PORTS_Control::sendBlockOfMessages (const juce::MidiBuffer&, double, double)
{
    if (! outputOpen)
        return;
}
