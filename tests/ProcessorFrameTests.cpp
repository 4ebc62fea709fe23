#include "plugin/PluginProcessor.h"
#include "sound/AutoBank.h"

#include "AllocationCounter.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
std::vector<unsigned> drain (MidiCntrState& state)
{
    std::vector<unsigned> codes;
    unsigned code = 0;
    while (state.popUpdateCode (code))
        codes.push_back (code);
    return codes;
}

struct Frame : ::testing::Test
{
    Frame()
    {
        processor.setRateAndBufferSizeDetails (44100.0, 512);
        processor.prepareToPlay (44100.0, 512);
        drain (state());
    }

    MidiCntrState& state() { return processor.midiCntrState; }

    std::vector<unsigned> run (juce::MidiBuffer& midi, int numSamples = 512)
    {
        juce::AudioBuffer<float> audio (2, numSamples);
        audio.clear();
        processor.processBlock (audio, midi);
        return drain (state());
    }

    ScratchFolder settings;
    DeskerAudioProcessor processor { settings.dir };
};

constexpr unsigned ch (int channel) { return (unsigned) channel << 14; }

struct ScriptedPlayHead : juce::AudioPlayHead
{
    juce::Optional<PositionInfo> getPosition() const override { return position; }
    juce::Optional<PositionInfo> position;
};
} // namespace

TEST (ProcessorStatics, SampleRateIndex)
{
    EXPECT_EQ (DeskerAudioProcessor::sampleRateIndexFor (44100), 0);
    EXPECT_EQ (DeskerAudioProcessor::sampleRateIndexFor (48000), 0); // the table lists 48100, not 48000
    EXPECT_EQ (DeskerAudioProcessor::sampleRateIndexFor (48100), 1);
    EXPECT_EQ (DeskerAudioProcessor::sampleRateIndexFor (88200), 2);
    EXPECT_EQ (DeskerAudioProcessor::sampleRateIndexFor (96000), 3);
    EXPECT_EQ (DeskerAudioProcessor::sampleRateIndexFor (176400), 4);
    EXPECT_EQ (DeskerAudioProcessor::sampleRateIndexFor (192000), 5);
    EXPECT_EQ (DeskerAudioProcessor::sampleRateIndexFor (22050), 0);
}

TEST (ProcessorStatics, MessagesHeldBackFromTheDevice)
{
    auto sends = [] (std::initializer_list<juce::uint8> bytes) {
        std::vector<juce::uint8> data (bytes);
        return DeskerAudioProcessor::sendsToDeviceAtOnce (data.data(), (int) data.size());
    };

    EXPECT_TRUE (sends ({ 0x90, 60, 100 }));
    EXPECT_TRUE (sends ({ 0x90, 60, 0 }));
    EXPECT_TRUE (sends ({ 0x80, 60, 0 }));
    for (int cc : { 0, 3, 7, 31, 32, 33, 88 })
        EXPECT_FALSE (sends ({ 0xB0, (juce::uint8) cc, 1 })) << cc;
    for (int cc : { 1, 2, 89, 123, 127 })
        EXPECT_TRUE (sends ({ 0xB5, (juce::uint8) cc, 1 })) << cc;
    EXPECT_FALSE (sends ({ 0xC0, 5 }));
    EXPECT_TRUE (sends ({ 0xA0, 60, 5 }));
    EXPECT_TRUE (sends ({ 0xD0, 5 }));
    EXPECT_TRUE (sends ({ 0xE0, 0, 64 }));
    EXPECT_TRUE (sends ({ 0xF8 }));
    EXPECT_TRUE (sends ({ 0xF0, 0x04, 0xF7 }));
}

TEST (ProcessorStatics, EditorSizeFromDisplayHeight)
{
    EXPECT_EQ (DeskerAudioProcessor::editorSizeForDisplayHeight (0), juce::Point<int> (978, 480));
    EXPECT_EQ (DeskerAudioProcessor::editorSizeForDisplayHeight (1029), juce::Point<int> (978, 480));
    EXPECT_EQ (DeskerAudioProcessor::editorSizeForDisplayHeight (1030), juce::Point<int> (1128, 554));
    EXPECT_EQ (DeskerAudioProcessor::editorSizeForDisplayHeight (1289), juce::Point<int> (1279, 628));
    EXPECT_EQ (DeskerAudioProcessor::editorSizeForDisplayHeight (1290), juce::Point<int> (1354, 665));
    EXPECT_EQ (DeskerAudioProcessor::editorSizeForDisplayHeight (1410), juce::Point<int> (1505, 739));
}

TEST (ProcessorStatics, DeviceNotesSpreadOverTheBlock)
{
    EXPECT_EQ (DeskerAudioProcessor::spreadPosition (1000, 1000, 1000, 512), 0);
    EXPECT_EQ (DeskerAudioProcessor::spreadPosition (1010, 1000, 1010, 512), 465);
    EXPECT_EQ (DeskerAudioProcessor::spreadPosition (1001, 1000, 1002, 6), 2);   // 2.0
    EXPECT_EQ (DeskerAudioProcessor::spreadPosition (1001, 1000, 1003, 10), 2);  // 2.5 ties to even
    EXPECT_EQ (DeskerAudioProcessor::spreadPosition (1003, 1000, 1003, 10), 8);  // 7.5 ties to even
    EXPECT_EQ (DeskerAudioProcessor::spreadPosition (1003, 1000, 1003, 1), 0);   // limited to n - 1
}

TEST_F (Frame, HostNotesLightKeysAndPostCodes)
{
    juce::MidiBuffer midi;
    midi.addEvent (juce::MidiMessage::noteOn (2, 60, (juce::uint8) 100), 0);
    midi.addEvent (juce::MidiMessage::noteOn (2, 62, (juce::uint8) 90), 10);
    midi.addEvent (juce::MidiMessage::noteOff (2, 60), 20);
    midi.addEvent (juce::MidiMessage::noteOn (2, 62, (juce::uint8) 0), 30);
    midi.addEvent (juce::MidiMessage::noteOn (2, 64, (juce::uint8) 1), 40);

    const auto codes = run (midi);

    EXPECT_TRUE (midi.isEmpty()); // nothing the host sent passes through
    EXPECT_EQ (codes, (std::vector<unsigned> {
        0x840000u + ch (2) + (60u << 7) + 100u,
        0x840000u + ch (2) + (62u << 7) + 90u,
        0x880000u + ch (2) + 60u,
        0x880000u + ch (2) + 62u,
        0x840000u + ch (2) + (64u << 7) + 1u }));
    EXPECT_EQ (state().noteHeld[60], 0);
    EXPECT_EQ (state().noteHeld[62], 0);
    EXPECT_EQ (state().noteHeld[64], 1);

    processor.releaseResources();
    EXPECT_EQ (state().noteHeld[64], 0);
}

TEST_F (Frame, ControllersProgramsAndWheels)
{
    juce::MidiBuffer midi;
    midi.addEvent (juce::MidiMessage::controllerEvent (1, 0, 5), 0);     // ignored
    midi.addEvent (juce::MidiMessage::controllerEvent (1, 32, 3), 1);    // bank select
    midi.addEvent (juce::MidiMessage::controllerEvent (1, 7, 99), 2);    // to the state, not the device
    midi.addEvent (juce::MidiMessage::programChange (1, 0), 3);          // equal to the present program
    midi.addEvent (juce::MidiMessage::programChange (1, 9), 4);
    midi.addEvent (juce::MidiMessage::pitchWheel (16, 8192), 5);
    midi.addEvent (juce::MidiMessage::channelPressureChange (1, 40), 6); // no code

    const auto codes = run (midi);

    EXPECT_EQ (state().bankNumber.load(), 3);
    EXPECT_EQ (state().programNumber.load(), 9);
    EXPECT_EQ (codes, (std::vector<unsigned> {
        0x800000u + ch (1) + (7u << 7) + 99u,
        0x440000u, // program 9 of bank 3 recalled onto the panel
        0x8C0000u + ch (16) + 8192u }));
    EXPECT_EQ (state().editBuffer->patchData, state().banks[3]->getStoredProgram (9));
}

TEST_F (Frame, AllNotesOffReleasesEveryKey)
{
    juce::MidiBuffer midi;
    midi.addEvent (juce::MidiMessage::controllerEvent (4, 123, 0), 0);
    const auto codes = run (midi);

    ASSERT_EQ (codes.size(), 129u);
    EXPECT_EQ (codes[0], 0x800000u + ch (4) + (123u << 7));
    for (unsigned note = 0; note < 128; ++note)
        EXPECT_EQ (codes[note + 1], 0x880000u + ch (4) + note);
}

TEST_F (Frame, DeviceNotesReachTheHostSpreadOverTheBlock)
{
    {
        const juce::ScopedLock sl (state().lock);
        state().hostMidi.addEvent (juce::MidiMessage::noteOn (1, 60, (juce::uint8) 100), 5000);
        state().hostMidi.addEvent (juce::MidiMessage::noteOn (1, 61, (juce::uint8) 100), 5000);
        state().hostMidi.addEvent (juce::MidiMessage::noteOff (1, 60), 5010);
    }

    juce::MidiBuffer midi;
    midi.addEvent (juce::MidiMessage::noteOn (1, 30, (juce::uint8) 1), 7); // consumed, not echoed
    run (midi, 512);

    std::vector<std::pair<int, int>> seen;
    for (const auto event : midi)
        seen.emplace_back (event.samplePosition, event.getMessage().getNoteNumber());

    EXPECT_EQ (seen, (std::vector<std::pair<int, int>> { { 0, 60 }, { 0, 61 }, { 465, 60 } }));
    EXPECT_TRUE (state().hostMidi.isEmpty());
}

TEST_F (Frame, ExtraOutputChannelsAreClearedInputsKept)
{
    auto layout = processor.getBusesLayout();
    layout.inputBuses.getReference (0) = juce::AudioChannelSet::mono();
    ASSERT_TRUE (processor.setBusesLayout (layout));

    juce::AudioBuffer<float> audio (2, 64);
    for (int c = 0; c < 2; ++c)
        for (int s = 0; s < 64; ++s)
            audio.setSample (c, s, 0.5f);

    juce::MidiBuffer midi;
    processor.processBlock (audio, midi);

    EXPECT_FLOAT_EQ (audio.getSample (0, 63), 0.5f);
    EXPECT_FLOAT_EQ (audio.getMagnitude (1, 0, 64), 0.0f);
}

TEST_F (Frame, SampleRateIsTakenFromTheHostEveryBlock)
{
    juce::MidiBuffer midi;
    processor.setRateAndBufferSizeDetails (48100.0, 256);
    run (midi, 256);
    EXPECT_EQ (state().sampleRateIndex.load(), 1);
    EXPECT_EQ (state().blockSize.load(), 256);

    processor.setRateAndBufferSizeDetails (44100.7, 256);
    run (midi, 128);
    EXPECT_EQ (state().sampleRate.load(), 44100.0);
    EXPECT_EQ (state().sampleRateIndex.load(), 0);
    EXPECT_EQ (state().blockSize.load(), 128);

    processor.prepareToPlay (48000.0, 64);
    EXPECT_EQ (state().sampleRateIndex.load(), 0);
    EXPECT_EQ (state().blockSize.load(), 64);
}

TEST_F (Frame, PlayHeadSnapshotWithDefaults)
{
    juce::MidiBuffer midi;
    run (midi);
    EXPECT_EQ (processor.hostPosition.bpm, 120.0);
    EXPECT_EQ (processor.hostPosition.timeSigNumerator, 4);
    EXPECT_EQ (processor.hostPosition.timeSigDenominator, 4);
    EXPECT_EQ (processor.hostPosition.frameRate.getType(), juce::AudioPlayHead::fps24);
    EXPECT_FALSE (processor.hostPosition.isPlaying);

    ScriptedPlayHead playHead;
    juce::AudioPlayHead::PositionInfo info;
    info.setBpm (140.0);
    info.setIsPlaying (true);
    info.setPpqPosition (8.5);
    playHead.position = info;
    processor.setPlayHead (&playHead);
    run (midi);

    EXPECT_EQ (processor.hostPosition.bpm, 140.0);
    EXPECT_TRUE (processor.hostPosition.isPlaying);
    EXPECT_EQ (processor.hostPosition.ppqPosition, 8.5);
    EXPECT_EQ (processor.hostPosition.timeSigNumerator, 4); // left empty by the host
    EXPECT_EQ (processor.hostPosition.frameRate.getType(), juce::AudioPlayHead::fps24);

    playHead.position = {}; // a play head that gives no position
    run (midi);
    EXPECT_EQ (processor.hostPosition.bpm, 120.0);
    EXPECT_FALSE (processor.hostPosition.isPlaying);
    processor.setPlayHead (nullptr);
}

TEST_F (Frame, NoAllocationOnTheAudioThreadAfterTheFirstBlock)
{
    juce::AudioBuffer<float> audio (2, 512);
    juce::MidiBuffer midi;
    midi.ensureSize (4096);

    auto fill = [&] {
        midi.clear();
        midi.addEvent (juce::MidiMessage::noteOn (1, 60, (juce::uint8) 100), 0);
        midi.addEvent (juce::MidiMessage::controllerEvent (1, 74, 12), 10);
        midi.addEvent (juce::MidiMessage::pitchWheel (1, 9000), 20);
        midi.addEvent (juce::MidiMessage::noteOff (1, 60), 30);
        const juce::ScopedLock sl (state().lock);
        state().hostMidi.addEvent (juce::MidiMessage::noteOn (1, 70, (juce::uint8) 80), 100);
        state().hostMidi.addEvent (juce::MidiMessage::noteOff (1, 70), 104);
    };

    {
        ScopedAllocationCount probe; // the counter itself must see an allocation
        auto allocated = std::make_unique<int> (1);
        ASSERT_EQ (probe.count(), 1u);
    }

    fill();
    processor.processBlock (audio, midi);

    for (int block = 0; block < 50; ++block)
    {
        fill();
        ScopedAllocationCount allocations;
        processor.processBlock (audio, midi);
        ASSERT_EQ (allocations.count(), 0u) << "block " << block;
    }
    drain (state());
}
