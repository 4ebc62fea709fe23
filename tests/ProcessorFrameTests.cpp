#include "sound/AutoBank.h"

#include "AllocationCounter.h"
#include "LinkedProcessor.h"

#include <gtest/gtest.h>

namespace
{
struct Frame : ::testing::Test, PlainProcessor
{
    Frame()
    {
        processor.setRateAndBufferSizeDetails (44100.0, 512);
        processor.prepareToPlay (44100.0, 512);
        drainCodes (state());
    }

    std::vector<unsigned> run (juce::MidiBuffer& midi, int numSamples = 512)
    {
        juce::AudioBuffer<float> audio (2, numSamples);
        audio.clear();
        processor.processBlock (audio, midi);
        return drainCodes (state());
    }
};

constexpr unsigned ch (int channel) { return (unsigned) channel << 14; }
} // namespace

TEST (ProcessorStatics, SampleRateIndexAndSpreading)
{
    // The table lists 48100, not 48000: 48000 and any rate not listed take index 0.
    const std::pair<int, int> rates[] = { { 44100, 0 }, { 48000, 0 }, { 48100, 1 }, { 88200, 2 }, { 96000, 3 },
                                          { 176400, 4 }, { 192000, 5 }, { 22050, 0 } };
    for (auto [rate, index] : rates)
        EXPECT_EQ (DeskerAudioProcessor::sampleRateIndexFor (rate), index) << rate;
    // A headless host scanning plug-ins has no display: the first row of the size table.
    EXPECT_EQ (DeskerAudioProcessor::editorSizeForDisplayHeight (0), juce::Point<int> (978, 480));

    // {stamp, first, last, n, expected}: rounding ties to even, limited to n - 1.
    const int spread[][5] = { { 1000, 1000, 1000, 512, 0 }, { 1010, 1000, 1010, 512, 465 }, { 1001, 1000, 1002, 6, 2 },
                              { 1001, 1000, 1003, 10, 2 }, { 1003, 1000, 1003, 10, 8 }, { 1003, 1000, 1003, 1, 0 } };
    for (auto& s : spread)
        EXPECT_EQ (DeskerAudioProcessor::spreadPosition (s[0], s[1], s[2], s[3]), s[4]) << s[0] << " " << s[3];
}

TEST (ProcessorStatics, MessagesHeldBackFromTheDevice)
{
    const std::pair<std::vector<juce::uint8>, bool> table[] = {
        { { 0x90, 60, 100 }, true }, { { 0x90, 60, 0 }, true }, { { 0x80, 60, 0 }, true }, { { 0xC0, 5 }, false },
        { { 0xA0, 60, 5 }, true }, { { 0xD0, 5 }, true }, { { 0xE0, 0, 64 }, true }, { { 0xF8 }, true },
        { { 0xF0, 0x04, 0xF7 }, true }, { { 0xB0, 0, 1 }, false }, { { 0xB0, 3, 1 }, false }, { { 0xB0, 7, 1 }, false },
        { { 0xB0, 31, 1 }, false }, { { 0xB0, 32, 1 }, false }, { { 0xB0, 33, 1 }, false }, { { 0xB0, 88, 1 }, false },
        { { 0xB5, 1, 1 }, true }, { { 0xB5, 2, 1 }, true }, { { 0xB5, 89, 1 }, true }, { { 0xB5, 123, 1 }, true },
        { { 0xB5, 127, 1 }, true } };
    for (auto& [bytes, atOnce] : table)
        EXPECT_EQ (DeskerAudioProcessor::sendsToDeviceAtOnce (bytes.data(), (int) bytes.size()), atOnce)
            << (int) bytes[0] << " " << (int) bytes[1];
}

TEST_F (Frame, HostMidiIsConsumedAndPostsItsCodes)
{
    using M = juce::MidiMessage;
    juce::MidiBuffer midi;
    int at = 0;
    for (const auto& m : { M::noteOn (2, 60, (juce::uint8) 100), M::noteOn (2, 62, (juce::uint8) 90), M::noteOff (2, 60),
                           M::noteOn (2, 62, (juce::uint8) 0), M::noteOn (2, 64, (juce::uint8) 1),
                           M::controllerEvent (1, 0, 5),  // ignored
                           M::controllerEvent (1, 32, 3), // bank select
                           M::controllerEvent (1, 7, 99), // to the state, not the device
                           M::programChange (1, 0),       // equal to the present program
                           M::programChange (1, 9), M::pitchWheel (16, 8192),
                           M::channelPressureChange (1, 40) }) // no code
        midi.addEvent (m, at += 5);

    EXPECT_EQ (run (midi), (std::vector<unsigned> {
        0x840000u + ch (2) + (60u << 7) + 100u, 0x840000u + ch (2) + (62u << 7) + 90u, 0x880000u + ch (2) + 60u,
        0x880000u + ch (2) + 62u, 0x840000u + ch (2) + (64u << 7) + 1u, 0x800000u + ch (1) + (7u << 7) + 99u,
        0x440000u, // program 9 of bank 3 recalled onto the panel
        0x8C0000u + ch (16) + 8192u }));
    EXPECT_TRUE (midi.isEmpty()); // nothing the host sent passes through
    EXPECT_EQ (state().noteHeld[60] + state().noteHeld[62], 0);
    EXPECT_EQ (state().noteHeld[64], 1);
    EXPECT_EQ (state().bankNumber.load(), 3);
    EXPECT_EQ (state().programNumber.load(), 9);
    EXPECT_EQ (state().editBuffer->patchData, state().banks[3]->getStoredProgram (9));

    processor.releaseResources();
    EXPECT_EQ (state().noteHeld[64], 0);

    midi.addEvent (juce::MidiMessage::controllerEvent (4, 123, 0), 0); // all notes off
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
        juce::FloatVectorOperations::fill (audio.getWritePointer (c), 0.5f, 64);
    juce::MidiBuffer midi;
    processor.processBlock (audio, midi);

    EXPECT_FLOAT_EQ (audio.getSample (0, 63), 0.5f);
    EXPECT_FLOAT_EQ (audio.getMagnitude (1, 0, 64), 0.0f);
}

TEST_F (Frame, SampleRateIsTakenFromTheHostEveryBlock)
{
    juce::MidiBuffer midi;
    for (auto [rate, n, index, whole] : { std::tuple { 48100.0, 256, 1, 48100.0 }, { 44100.7, 128, 0, 44100.0 } })
    {
        processor.setRateAndBufferSizeDetails (rate, 256);
        run (midi, n);
        EXPECT_EQ (state().sampleRate.load(), whole);
        EXPECT_EQ (state().sampleRateIndex.load(), index);
        EXPECT_EQ (state().blockSize.load(), n);
    }
}

TEST_F (Frame, PlayHeadSnapshotWithDefaults)
{
    auto expectDefaults = [this] (double bpm, bool playing) {
        EXPECT_EQ (processor.hostPosition.bpm, bpm);
        EXPECT_EQ (processor.hostPosition.isPlaying, playing);
        EXPECT_EQ (processor.hostPosition.timeSigNumerator, 4); // left empty by the host
        EXPECT_EQ (processor.hostPosition.timeSigDenominator, 4);
        EXPECT_EQ (processor.hostPosition.frameRate.getType(), juce::AudioPlayHead::fps24);
    };
    juce::MidiBuffer midi;
    run (midi);
    expectDefaults (120.0, false);

    ScriptedPlayHead playHead;
    playHead.position.emplace();
    playHead.position->setBpm (140.0);
    playHead.position->setIsPlaying (true);
    playHead.position->setPpqPosition (8.5);
    processor.setPlayHead (&playHead);
    run (midi);
    expectDefaults (140.0, true);
    EXPECT_EQ (processor.hostPosition.ppqPosition, 8.5);

    playHead.position = {}; // a play head that gives no position
    run (midi);
    expectDefaults (120.0, false);
    processor.setPlayHead (nullptr);
}
