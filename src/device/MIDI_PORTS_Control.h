#pragma once

#include "device/MIDI_PORTS_IO.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <atomic>
#include <thread>

// The port manager: the lists of MIDI inputs and outputs, the one open input
// and output, and every message that leaves for the device.
class MIDI_PORTS_Control : public juce::Component, public juce::Timer
{
public:
    explicit MIDI_PORTS_Control (MidiBackend& backend);
    ~MIDI_PORTS_Control() override;

    void timerCallback() override;

    void updateDeviceList (bool isInput);
    // Opens entry `index` of a list; an input calls `callback` with what it receives.
    void open_Device (bool isInput, int index, juce::MidiInputCallback* callback);
    void closeDevice (bool isInput, int index);

    // Sends, all dropped while no output is open. Callable from any thread;
    // Send_CC, Send_PitchBend, sendShortMessage and sendBlockOfMessages of
    // short messages neither allocate nor block.
    void Send_CC (int channel, int controller, int value);
    void Send_PitchBend (int channel, int value);
    void Send_SYSEX (juce::MemoryBlock data);
    void sendShortMessage (const juce::uint8* data, int numBytes);
    void sendMessageAt (const juce::uint8* data, int numBytes, double timeMs);
    // Each event leaves at startMs + its sample position / sampleRate.
    void sendBlockOfMessages (const juce::MidiBuffer& buffer, double startMs, double sampleRate);

    MidiBackend& backend;

    int currentOutput = -1;
    int currentInput = -1;
    int currentThird = -1;
    juce::ReferenceCountedArray<MidiDeviceListEntry> midiInputs;
    juce::ReferenceCountedArray<MidiDeviceListEntry> midiOutputs;
    juce::StringArray inputNames;
    juce::StringArray outputNames;
    std::atomic<bool> inputOpen { false };
    std::atomic<bool> outputOpen { false };
    juce::CriticalSection sendLock;
    std::atomic<int> lastPair[4] { 0, 0, 0, 0 };

private:
    void send (const juce::uint8* data, int numBytes, double timeMs);
    // Senders read the output to use through sendTarget; whoever replaces or
    // destroys an output detaches it first and waits for senders in flight.
    void detachOutput();
    void attachOutput();

    std::atomic<MidiBackend::Output*> sendTarget { nullptr };
    std::atomic<int> sendersInside { 0 };

    JUCE_DECLARE_NON_COPYABLE (MIDI_PORTS_Control)
};
