#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

#include <memory>

// Turns the host's transport into a MIDI clock for the instrument: clock ticks, Continue, Stop and
// Song Position Pointer, placed at sample positions of one block. Start is never used: a start
// from anywhere is a pointer followed by Continue on the next sixteenth note.
// Audio thread only; allocates nothing after construction.
class Hn_MidiClock
{
public:
    Hn_MidiClock();
    ~Hn_MidiClock();

    // Follows the transport over one block of `numSamples` at `sampleRate`, appending the
    // messages due in it to `clockBuffer`.
    void runBlock (const juce::AudioPlayHead::CurrentPositionInfo& position, double sampleRate, int numSamples,
                   juce::MidiBuffer& clockBuffer);

    // Samples between ticks: 24 per quarter note, rounded to whole samples (ties to even).
    static int samplesPerClock (double bpm, double sampleRate);

    bool enabled = true;
    bool wasPlaying = false;
    double lastPpq = -999.0; // far away, so that the first block resynchronises the instrument
    double toleranceSeconds = 0.001;
    double nextSixteenth = 0.0;
    bool stopAtLoopEnd = true;
    juce::uint8 pending = 0; // bit 1: Continue due at nextSixteenth; bit 0: loop-end Stop sent
    int offsetSamples = 0;

    std::unique_ptr<juce::MidiMessage> msgClock, msgContinue, msgStop, msgSongPosition;

private:
    void addPointer (int sixteenths, juce::MidiBuffer& clockBuffer);

    JUCE_DECLARE_NON_COPYABLE (Hn_MidiClock)
};
