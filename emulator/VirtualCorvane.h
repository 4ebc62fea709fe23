#pragma once

#include <juce_audio_devices/juce_audio_devices.h>

#include <functional>
#include <vector>

// A model of the instrument as it shows itself on MIDI: seven banks of 128
// programs and an edit buffer, each program held as its 200 parameter words.
// It answers the edit-buffer request and the program request with dumps,
// stores the dumps it receives, recalls programs by bank select and program
// change, follows live controllers, and plays its own panel, keys and program
// buttons. Faults can be switched on to test how the other side copes.
//
// Thread safe: messages may arrive on one thread while another plays the panel.
class VirtualCorvane : public juce::MidiInputCallback
{
public:
    static constexpr int numBanks = 7;
    static constexpr int numPrograms = 128;
    static constexpr int numParameters = 200;

    using Program = juce::Array<unsigned short>;
    using Sink = std::function<void (const juce::MidiMessage&)>;

    struct Faults
    {
        int dropReplies = 0;      // the next n replies are never sent
        bool wrongLength = false; // replies lack their last body byte
        bool late = false;        // replies wait for releaseLateReplies()
        int garbleBytes = 0;      // bytes of each reply overwritten with random values
    };

    explicit VirtualCorvane (int channel = 1, juce::int64 seed = 1);

    // Where the instrument's MIDI out goes.
    void setOutput (Sink sink);
    void setFaults (const Faults& faults);
    // Sends the replies held back by the late fault; returns how many.
    int releaseLateReplies();

    void handleIncomingMidiMessage (juce::MidiInput*, const juce::MidiMessage& message) override;

    // The instrument's own controls. Values are in the parameter's own units
    // (8 bits for 17 to 45).
    void movePanel (int soundParam, int value);
    void playNote (int note, int velocity);
    void selectProgram (int bank, int program);

    // Copies of the state; out-of-range places read as an empty program.
    Program getProgram (int bank, int program) const;
    void setProgram (int bank, int program, const Program& words);
    Program getEditBuffer() const;
    void setEditBuffer (const Program& words);
    int getBank() const;
    int getProgramNumber() const;
    int getRequestsAnswered() const;

    // A recognisable program for tests: every in-range parameter derived from
    // bank, program and seed, with a name that tells its place.
    static Program makeProgram (int bank, int program, juce::int64 seed);
    void fillAllBanks (juce::int64 seed);

    // Frames as the instrument builds them.
    static juce::MemoryBlock editBufferFrame (const Program& words);
    static juce::MemoryBlock programFrame (const Program& words, int program);

private:
    void receiveSysex (const juce::uint8* data, int size);
    void receiveController (int controller, int value);
    void reply (juce::MemoryBlock frame);
    void emit (const juce::MidiMessage& message);
    void setParameter (int soundParam, int value);

    const int channel;
    mutable juce::CriticalSection lock;
    juce::Random random;
    Faults faults;
    Sink output;
    std::vector<Program> banks;
    Program editBuffer;
    int bank = 0;
    int program = 0;
    int pendingParam = -1;
    int pendingMsb = 0;
    int requestsAnswered = 0;
    std::vector<juce::MidiMessage> lateReplies;
};
