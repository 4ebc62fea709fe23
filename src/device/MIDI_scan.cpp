#include "device/MIDI_scan.h"

#include "device/MidiCntrState.h"

MIDI_scan::MIDI_scan (MidiCntrState* controllerState) : state (controllerState) {}

MIDI_scan::~MIDI_scan()
{
    stopTimer();
}

void MIDI_scan::mouseDown (const juce::MouseEvent&)
{
    stopTimer();
    sendChangeMessage();
}

void MIDI_scan::paint (juce::Graphics&) {}

void MIDI_scan::timerCallback() {}
