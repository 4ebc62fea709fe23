#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include "device/MidiCntrState.h"
#include "plugin/Hn_MidiClock.h"
#include "sound/ParDes.h"

// What the host loads. It makes no sound: the audio passes through, and the work is MIDI between
// the host, this object's MidiCntrState and the instrument.
class DeskerAudioProcessor : public juce::AudioProcessor,
                             public juce::ChangeBroadcaster,
                             public juce::ChangeListener,
                             public juce::Timer
{
public:
    // settingsFolder: where the settings files live, empty for the user's folder; midiBackend:
    // the MIDI devices, null for the system's.
    explicit DeskerAudioProcessor (const juce::File& settingsFolder = {}, MidiBackend* midiBackend = nullptr);

    // A processor that only describes itself, as the LV2 build step needs: it opens no MIDI port
    // of the system (it has virtual devices of its own, none of them present) and touches no file.
    struct Detached {};
    explicit DeskerAudioProcessor (Detached);

    ~DeskerAudioProcessor() override;

    const juce::String getName() const override { return "Corvane Desker"; }

    void prepareToPlay (double sampleRate, int samplesPerBlock) override;
    void releaseResources() override;
    void processBlock (juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi) override;
    using juce::AudioProcessor::processBlock;

    double getTailLengthSeconds() const override { return 0.0; }
    bool acceptsMidi() const override { return true; }
    bool producesMidi() const override { return true; }
    bool isMidiEffect() const override { return false; }

    juce::AudioProcessorEditor* createEditor() override;
    bool hasEditor() const override { return true; }

    int getNumPrograms() override { return 128; }
    int getCurrentProgram() override;
    void setCurrentProgram (int index) override;
    const juce::String getProgramName (int index) override;
    void changeProgramName (int index, const juce::String& newName) override;

    // The host's project chunk is the whole edit-buffer bank; its preset chunk one program.
    void getStateInformation (juce::MemoryBlock& destData) override;
    void setStateInformation (const void* data, int sizeInBytes) override;
    void getCurrentProgramStateInformation (juce::MemoryBlock& destData) override;
    void setCurrentProgramStateInformation (const void* data, int sizeInBytes) override;

    // The legacy parameter interface is the whole of the host's parameter list.
    JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
    int getNumParameters() override { return 315; }
    const juce::String getParameterName (int index) override;
    float getParameter (int index) override;
    // The value of the initial program, so that a host that knows only the declared defaults
    // shows a fresh instance as it is.
    float getParameterDefaultValue (int index) override;
    const juce::String getParameterText (int index) override;
    void setParameter (int index, float value) override;
    // "p" and the index in three digits: LV2 names may not start with a digit, and hosts that sort
    // them keep the parameters in order. The VST3 wrapper keeps the bare index, which saved host
    // projects hold.
    juce::String getParameterID (int index) override;
    const juce::String getInputChannelName (int channelIndex) const override { return juce::String (channelIndex + 1); }
    const juce::String getOutputChannelName (int channelIndex) const override { return juce::String (channelIndex + 1); }
    bool isInputChannelStereoPair (int) const override { return true; }
    bool isOutputChannelStereoPair (int) const override { return true; }
    bool silenceInProducesSilenceOut() const override { return false; }
    JUCE_END_IGNORE_WARNINGS_GCC_LIKE

    // Moves from the instrument reach the host here, on the message thread, inside gestures.
    void changeListenerCallback (juce::ChangeBroadcaster* source) override;
    // Ends the gestures of sound parameters 200 ms after their last move.
    void timerCallback() override;

    // Index of a sample rate in the compensation tables; rates not listed count as 0.
    static int sampleRateIndexFor (int sampleRate);

    // Sample position of a device note that waits for the host, spread over a block of n samples:
    // `first` and `last` are the stamps of the first and last waiting events.
    static int spreadPosition (int stamp, int first, int last, int numSamples);

    // True when a message from the host goes on to the instrument at once; the controllers the
    // instrument reads as sound parameters, bank select and program change go by the state instead.
    static bool sendsToDeviceAtOnce (const juce::uint8* data, int numBytes);

    // Size of the first editor, from the height of the main display's user area (none: smallest).
    static juce::Point<int> editorSizeForDisplayHeight (int userAreaHeight);

    //==============================================================================
    juce::AudioPlayHead::CurrentPositionInfo hostPosition;
    ParDes parDes;
    int editorWidth = 978, editorHeight = 480;
    // The virtual devices of a detached processor; declared before the state, which they outlive.
    std::unique_ptr<MidiBackend> detachedBackend;
    MidiCntrState midiCntrState;
    juce::MemoryBlock gestureOpen;
    juce::Array<juce::uint16> gesturePending;
    // Last values of the raw-MIDI host parameters (56 up), in their own units. Written on the
    // message and host threads, read on any.
    std::array<std::atomic<int>, 1000> hostValues {};
    Hn_MidiClock midiClock;
    juce::MidiBuffer clockBuffer;
    juce::CriticalSection clockLock; // the audio thread's alone

private:
    DeskerAudioProcessor (const juce::File& settingsFolder, MidiBackend* midiBackend, std::unique_ptr<MidiBackend> ownBackend);

    static void resetPosition (juce::AudioPlayHead::CurrentPositionInfo& position);
    void takeSampleRate (int rate);
    void hostMidiToDevice (const juce::MidiMessageMetadata& event);
    void hostMidiToState (const juce::MidiMessageMetadata& event);
    void deviceNotesToHost (juce::MidiBuffer& midi, int numSamples);
    void readPlayHead();
    void runClock (int numSamples);

    // Value of host sound parameter i (below 56) as the host sees it.
    int currentSoundValue (int index) const;
    void setSoundParameter (int index, int value);
    void setMidiParameter (int index, int value);

    // What getParameter gave when construction ended: the initial program and the MIDI
    // parameters' start values.
    std::array<float, 315> initialValues {};

    // One outgoing message at a time, prepared so that sending needs no allocation.
    juce::MidiBuffer sendBuffer;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (DeskerAudioProcessor)
};
