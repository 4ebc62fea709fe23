#pragma once

#include <juce_audio_devices/juce_audio_devices.h>
#include <juce_gui_basics/juce_gui_basics.h>

#include <atomic>

// The port manager: holds the instrument's MIDI input and output and sends every outgoing
// message. Never shown; a component only by descent.
class MIDI_PORTS_Control : public juce::Component,
                           private juce::Timer
{
public:
    MIDI_PORTS_Control() = default;

    // Hands a block of messages to the open output, to leave at startMs + sample / sampleRate.
    // Dropped while no output is open.
    void sendBlockOfMessages (const juce::MidiBuffer& buffer, double startMs, double sampleRate);

    std::atomic<bool> inputOpen { false };
    std::atomic<bool> outputOpen { false };

private:
    void timerCallback() override { stopTimer(); }

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MIDI_PORTS_Control)
};
