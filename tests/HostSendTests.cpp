#include "device/MIDI_PORTS_Control.h"
#include "plugin/Hn_MidiClock.h"
#include "sound/AutoBank.h"

#include "AllocationCounter.h"
#include "LinkedProcessor.h"

#include <gtest/gtest.h>

namespace
{
using Bytes = std::vector<std::vector<int>>;

juce::AudioPlayHead::PositionInfo playing (double bpm, double ppq)
{
    juce::AudioPlayHead::PositionInfo info;
    info.setBpm (bpm);
    info.setPpqPosition (ppq);
    info.setIsPlaying (true);
    return info;
}

JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
} // namespace

TEST (HostSends, AutomationSendsControllerPairsOnceAndRawMidiAtOnce)
{
    LinkedProcessor linked;
    ASSERT_TRUE (linked.state().portControl->outputOpen);
    auto& p = linked.processor;
    p.setParameter (4, 0.0f); // away from the initial program's centre
    linked.sent();
    linked.drainCodes();

    p.setParameter (4, 0.5f); // Osc 2 Freq: 255 * 0.5 = 127.5 ties to even: 128, sent as 64 on the MSB and 0 on the LSB
    EXPECT_EQ (linked.state().editBuffer->patchData[21], 128 << 8);
    EXPECT_EQ (linked.sentBytes(), (Bytes { { 0xB0, 10, 64 }, { 0xB0, 42, 0 } }));
    EXPECT_EQ (linked.drainCodes(), (std::vector<unsigned> { 0x400000u + (21u << 8) + 128u }));
    EXPECT_EQ (p.getParameterText (4), "128"); // a plain number: the centred rule sits on other indices

    p.setParameter (4, 0.501f); // the same rounded value: nothing at all
    EXPECT_TRUE (linked.sent().empty());
    EXPECT_TRUE (linked.drainCodes().empty());

    linked.state().tsCtrl[0] = 0; // touch surface X with no controller: value and code only
    p.setParameter (52, 1.0f);
    EXPECT_TRUE (linked.sent().empty());
    EXPECT_EQ (linked.state().tsValue[0].load(), 127);
    EXPECT_EQ (linked.drainCodes(), (std::vector<unsigned> { 0x400000u + (69u << 8) + 127u }));

    linked.state().tsCtrl[1] = 12;
    p.setParameter (53, 1.0f);
    EXPECT_EQ (linked.sentBytes(), (Bytes { { 0xB0, 12, 127 } }));

    // Raw MIDI parameters go out at once.
    linked.state().midiChannel = 3;
    p.setParameter (64, 0.0f);         // VOLUME from 100 to 0
    p.setParameter (185 + 60, 1.0f);   // polyphonic pressure of note 60
    p.setParameter (314, 64.0f / 127); // channel pressure
    p.setParameter (313, 8192.0f / 16363.0f);

    const auto sent = linked.sent();
    ASSERT_EQ (sent.size(), 4u);
    const Bytes expected { { 0xB2, 7, 0 }, { 0xA2, 60, 127 }, { 0xD2, 64 }, { 0xE2, 0, 64 } };
    for (size_t i = 0; i < sent.size(); ++i)
    {
        EXPECT_EQ (sent[i].bytes, expected[i]);
        EXPECT_NEAR (sent[i].timeMs, juce::Time::getMillisecondCounterHiRes(), 50.0); // at once, never compensated
    }
}

TEST (HostSends, HostNotesLeaveWithTheCompensationUnlessAtSampleZero)
{
    LinkedProcessor linked (96000.0, 512);
    linked.state().SetSyncModes (401, {}); // 32 ms at 96 kHz
    linked.state().localFlag = false;      // the clock stays silent here

    juce::MidiBuffer midi;
    midi.addEvent (juce::MidiMessage::noteOn (1, 60, (juce::uint8) 100), 0);
    midi.addEvent (juce::MidiMessage::noteOff (1, 60), 96);
    midi.addEvent (juce::MidiMessage::controllerEvent (1, 7, 1), 100); // held back from the device
    const double before = juce::Time::getMillisecondCounter();
    linked.process (midi, 512);

    const auto sent = linked.sent();
    ASSERT_EQ (sent.size(), 2u);
    EXPECT_EQ (sent[0].bytes, (std::vector<int> { 0x90, 60, 100 }));
    EXPECT_NEAR (sent[0].timeMs, before, 5.0);
    EXPECT_EQ (sent[1].bytes, (std::vector<int> { 0x80, 60, 0 }));
    EXPECT_NEAR (sent[1].timeMs - before, 32.0 + 1.0, 5.0); // 96 samples at 96 kHz is 1 ms
}

TEST (HostSends, HostProgramChangeSelectsBankAndProgramOnTheInstrument)
{
    LinkedProcessor linked;
    linked.state().localFlag = false;
    juce::MidiBuffer midi;
    midi.addEvent (juce::MidiMessage::controllerEvent (1, 32, 2), 0);
    midi.addEvent (juce::MidiMessage::programChange (1, 17), 1);
    midi.addEvent (juce::MidiMessage::controllerEvent (1, 32, 99), 2); // no such bank:
    midi.addEvent (juce::MidiMessage::programChange (1, 18), 3);       // the selection is ignored
    linked.process (midi, 64);

    EXPECT_EQ (linked.sentBytes(), (Bytes { { 0xB0, 0, 0 }, { 0xB0, 32, 2 }, { 0xC0, 17 } }));
    EXPECT_EQ (linked.state().editBuffer->patchData, linked.state().banks[2]->getStoredProgram (17));
}

TEST (HostSends, ClockLeavesCompensatedAtItsSampleTimesAndNothingWhenSwitchedOff)
{
    for (auto [mode, rate, compensationMs] : { std::tuple { 401, 96000.0, 32.0 }, std::tuple { 403, 48000.0, 138.0 },
                                               std::tuple { 0, 44100.0, 25.0 } })
    {
        SCOPED_TRACE (mode);
        LinkedProcessor linked (rate, 4000);
        linked.state().SetSyncModes (mode, { 25, 0, 0, 0, 0, 0, 9 });
        juce::MidiBuffer midi;
        ScriptedPlayHead playHead;
        playHead.position = playing (120.0, 0.0);
        linked.processor.setPlayHead (&playHead);
        linked.process (midi, 4000); // reads the play head for the next block
        linked.sent();
        const double start = juce::Time::getMillisecondCounterHiRes();
        linked.process (midi, 4000);

        // A clock every rounded period from the block's start, each sample 1/rate apart; never a Start.
        const int period = Hn_MidiClock::samplesPerClock (120.0, rate);
        std::vector<double> ticks;
        for (auto& s : linked.sent())
        {
            EXPECT_NE (s.bytes[0], 0xFA);
            if (s.bytes == std::vector<int> { 0xF8 })
                ticks.push_back (s.timeMs);
        }
        ASSERT_EQ (ticks.size(), (size_t) (4000 + period - 1) / period);
        EXPECT_NEAR (ticks[0] - start, compensationMs, 5.0);
        for (size_t k = 1; k < ticks.size(); ++k)
            EXPECT_NEAR (ticks[k] - ticks[k - 1], period * 1000.0 / rate, 0.01);

        linked.state().localFlag = false; // "Clock ON/OFF" off: nothing at all
        playHead.position = playing (120.0, 16.0);
        linked.process (midi, 4000);
        linked.process (midi, 4000);
        EXPECT_TRUE (linked.sent().empty());
        linked.processor.setPlayHead (nullptr);
    }
}

TEST (HostSends, NoAllocationWithTheClockRunningNotesSentAndProgramsRecalled)
{
    {
        ScopedAllocationCount probe; // the counter itself must see an allocation
        auto allocated = std::make_unique<int> (1);
        ASSERT_EQ (probe.count(), 1u);
    }
    LinkedProcessor linked (48000.0, 512);
    ScriptedPlayHead playHead;
    linked.processor.setPlayHead (&playHead);
    juce::AudioBuffer<float> audio (2, 512);
    juce::MidiBuffer midi;
    midi.ensureSize (4096);
    double ppq = 0.0;

    auto block = [&] {
        midi.clear();
        midi.addEvent (juce::MidiMessage::noteOn (1, 60, (juce::uint8) 100), 0);
        midi.addEvent (juce::MidiMessage::noteOff (1, 60), 300);
        midi.addEvent (juce::MidiMessage::pitchWheel (1, 9000), 400);
        midi.addEvent (juce::MidiMessage::programChange (1, (int) (ppq * 10) % 2 + 5), 450); // recalls a program
        const juce::ScopedLock sl (linked.state().lock); // notes from the instrument to the host
        linked.state().hostMidi.addEvent (juce::MidiMessage::noteOn (1, 70, (juce::uint8) 80), 100);
        linked.state().hostMidi.addEvent (juce::MidiMessage::noteOff (1, 70), 104);
        playHead.position = playing (130.0, ppq);
        ppq += 512 * 130.0 / 60.0 / 48000.0;
    };

    block();
    linked.processor.processBlock (audio, midi);
    size_t sentCount = 0;
    for (int b = 0; b < 200; ++b)
    {
        block();
        {
            ScopedAllocationCount allocations;
            linked.processor.processBlock (audio, midi);
            ASSERT_EQ (allocations.count(), 0u) << "block " << b;
        }
        sentCount += linked.sent().size();
        linked.drainCodes();
    }
    EXPECT_GT (sentCount, 600u); // notes, wheels and clock ticks did go out
    linked.processor.setPlayHead (nullptr);
}

JUCE_END_IGNORE_WARNINGS_GCC_LIKE
