#include "device/MidiCntrState.h"
#include "plugin/HandlerComp.h"
#include "plugin/PluginProcessor.h"
#include "sound/AutoBank.h"

#include "ScratchFolder.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
// Records what the host is told about parameters.
struct HostSide : juce::AudioProcessorListener
{
    void audioProcessorParameterChanged (juce::AudioProcessor*, int index, float value) override { changes.push_back ({ index, value }); }
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override {}
    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int index) override { log.push_back ("begin " + std::to_string (index)); }
    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int index) override { log.push_back ("end " + std::to_string (index)); }

    std::vector<std::pair<int, float>> changes;
    std::vector<std::string> log;
};

struct Automation : ::testing::Test
{
    Automation() { drain(); }

    std::vector<unsigned> drain()
    {
        std::vector<unsigned> codes;
        unsigned code = 0;
        while (state().popUpdateCode (code))
            codes.push_back (code);
        return codes;
    }

    MidiCntrState& state() { return processor.midiCntrState; }
    int word (int s) { return state().editBuffer->patchData[s]; }

    ScratchFolder settings;
    DeskerAudioProcessor processor { settings.dir };
};

JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
} // namespace

TEST_F (Automation, NamesOfTheRawMidiParameters)
{
    EXPECT_EQ (processor.getParameterName (57), "CC# 0");
    EXPECT_EQ (processor.getParameterName (58), "MOD WHEEL");
    EXPECT_EQ (processor.getParameterName (64), "VOLUME");
    EXPECT_EQ (processor.getParameterName (89), "BANK");
    EXPECT_EQ (processor.getParameterName (185), "AT# 0");
    EXPECT_EQ (processor.getParameterName (312), "AT# 127");
    EXPECT_EQ (processor.getParameterName (315), "");
    EXPECT_EQ (processor.getParameterName (42), processor.getParameterName (5)); // two "Osc 3 Freq"
}

TEST_F (Automation, DefaultsAndOutOfRange)
{
    EXPECT_FLOAT_EQ (processor.getParameter (64), 100.0f / 127.0f);
    EXPECT_FLOAT_EQ (processor.getParameter (65), 0.0f);
    EXPECT_FLOAT_EQ (processor.getParameter (-1), 0.0f);
    EXPECT_FLOAT_EQ (processor.getParameter (315), 0.0f);
    EXPECT_EQ (processor.getParameterText (315), "");
    processor.setParameter (400, 1.0f); // nothing
    processor.setParameter (3, std::numeric_limits<float>::quiet_NaN());
    EXPECT_TRUE (drain().empty());
}

TEST_F (Automation, SoundParameterTakesTheHighByteAndPostsItsCode)
{
    processor.setParameter (4, 0.0f); // away from the initial program's centre
    drain();
    processor.setParameter (4, 0.5f); // Osc 2 Freq: 255 * 0.5 = 127.5, ties to even: 128
    EXPECT_EQ (word (21), 128 << 8);
    EXPECT_EQ (drain(), (std::vector<unsigned> { 0x400000u + (21u << 8) + 128u }));
    EXPECT_FLOAT_EQ (processor.getParameter (4), 128.0f / 255.0f);

    // The same rounded value again: nothing moves, nothing is posted.
    processor.setParameter (4, 0.501f);
    EXPECT_TRUE (drain().empty());

    // The host text of index 4 is a plain number (the centred rule sits on other indices).
    EXPECT_EQ (processor.getParameterText (4), "128");
    processor.setParameter (21, 0.0f); // Filter Decay shows signed around 128
    EXPECT_EQ (processor.getParameterText (21), "-128");
    processor.setParameter (30, 1.0f); // Wheel Src: knob positions with an empty text
    EXPECT_EQ (processor.getParameterText (30), "");
}

TEST_F (Automation, TouchSurfaceWithoutControllerOnlyMovesTheValue)
{
    state().tsCtrl[0] = 0;
    processor.setParameter (52, 1.0f);
    EXPECT_EQ (state().tsValue[0].load(), 127);
    EXPECT_EQ (drain(), (std::vector<unsigned> { 0x400000u + (69u << 8) + 127u }));
    EXPECT_FLOAT_EQ (processor.getParameter (52), 1.0f);
}

TEST_F (Automation, BankProgramAndWheelParameters)
{
    processor.setParameter (89, 1.0f);
    EXPECT_EQ (processor.hostValues[89].load(), 6);
    EXPECT_EQ (state().bankNumber.load(), 6);
    EXPECT_EQ (processor.getParameterText (89), "G");

    processor.setParameter (89, 0.0f);
    processor.setParameter (56, 4.0f / 127.0f);
    EXPECT_EQ (state().programNumber.load(), 4);
    EXPECT_TRUE (processor.getParameterText (56).startsWith ("A:005 "));
    EXPECT_EQ (processor.getParameterText (56).length(), 6 + 24);

    drain();
    processor.setParameter (313, 1.0f);
    EXPECT_EQ (processor.hostValues[313].load(), 16363);
    EXPECT_EQ (drain(), (std::vector<unsigned> { 0x380000u + ((unsigned) state().midiChannel.load() << 14) + 16363u }));

    processor.setParameter (58, 1.0f); // MOD WHEEL also moves the on-screen wheel
    EXPECT_EQ (drain(), (std::vector<unsigned> { 0x800000u + ((unsigned) state().midiChannel.load() << 14) + (1u << 7) + 127u }));
}

TEST_F (Automation, InstrumentMovesAreOneGestureEndingAfterTheLastMove)
{
    HostSide host;
    processor.addListener (&host);

    for (int v : { 10, 20, 30 })
        state().handler->SendParam (15, (float) v / 255.0f); // Filter Cutoff, a burst
    processor.changeListenerCallback (state().handler.get());

    EXPECT_EQ (host.log, (std::vector<std::string> { "begin 15" }));
    EXPECT_EQ (host.changes.size(), 3u);
    EXPECT_EQ (word (32), 30 << 8);
    EXPECT_TRUE (processor.isTimerRunning());
    EXPECT_EQ (processor.getTimerInterval(), 200);

    state().handler->SendParam (15, 40.0f / 255.0f); // a later move keeps the same gesture open
    processor.changeListenerCallback (state().handler.get());
    EXPECT_EQ (host.log, (std::vector<std::string> { "begin 15" }));

    processor.timerCallback();
    EXPECT_EQ (host.log, (std::vector<std::string> { "begin 15", "end 15" }));
    processor.timerCallback(); // nothing left to end
    EXPECT_EQ (host.log.size(), 2u);

    processor.removeListener (&host);
}

TEST_F (Automation, RawMidiMovesEndTheirGestureAtOnceAndKeepTheTruncation)
{
    HostSide host;
    processor.addListener (&host);

    // A controller 20 of value 0 from the instrument: hostValues stays 0, nothing goes back.
    state().SendVST3_Message (juce::MidiMessage::controllerEvent (1, 20, 0));
    processor.changeListenerCallback (state().handler.get());
    EXPECT_EQ (processor.hostValues[77].load(), 0);
    EXPECT_EQ (host.log, (std::vector<std::string> { "begin 77", "end 77" }));

    // A value above 0 is truncated to 0 first, so setParameter sees a change and acts on it.
    state().SendVST3_Message (juce::MidiMessage::controllerEvent (1, 20, 64));
    processor.changeListenerCallback (state().handler.get());
    EXPECT_EQ (processor.hostValues[77].load(), 64);

    // The wheel at its top reaches the host a little above 1.0.
    state().SendVST3_Message (juce::MidiMessage::pitchWheel (1, 16383));
    processor.changeListenerCallback (state().handler.get());
    ASSERT_FALSE (host.changes.empty());
    EXPECT_GT (host.changes.back().second, 1.0f);
    EXPECT_EQ (processor.hostValues[313].load(), 16383);

    // Another broadcaster is not ours.
    juce::ChangeBroadcaster other;
    processor.changeListenerCallback (&other);
    processor.removeListener (&host);
}

TEST_F (Automation, BankChunkRoundTripsIntoASecondInstance)
{
    const unsigned seed = (unsigned) juce::Time::getMillisecondCounter();
    std::printf ("seed %u\n", seed);
    juce::Random random ((juce::int64) seed);
    auto* data = static_cast<juce::uint8*> (state().editBuffer->bankData.getData());
    for (int i = 0; i < AutoBank::bankBytes; ++i)
        data[i] = (juce::uint8) random.nextInt (256);

    juce::MemoryBlock chunk ("host", 4); // the host's own bytes stay in front
    processor.getStateInformation (chunk);
    ASSERT_EQ (chunk.getSize(), 4u + 17 + 10 + 51200);
    EXPECT_EQ (juce::String::fromUTF8 (static_cast<const char*> (chunk.getData()) + 4, 27), "CorvanePluginBankVersion100");

    ScratchFolder otherSettings;
    DeskerAudioProcessor second { otherSettings.dir };
    second.setStateInformation (static_cast<const char*> (chunk.getData()) + 4, (int) chunk.getSize() - 4);
    EXPECT_EQ (second.midiCntrState.editBuffer->bankData, state().editBuffer->bankData);
    for (int p = 0; p < 128; ++p)
        EXPECT_EQ (second.getProgramName (p), processor.getProgramName (p));
}

TEST_F (Automation, ForeignShortAndOtherVersionChunks)
{
    const auto before = state().editBuffer->bankData;

    juce::MemoryBlock chunk;
    processor.getStateInformation (chunk);
    auto* bytes = static_cast<char*> (chunk.getData());
    std::memset (bytes + 27, 0x11, 51200);

    processor.setStateInformation (chunk.getData(), 1000); // short: ignored, never read past
    EXPECT_EQ (state().editBuffer->bankData, before);

    juce::MemoryBlock programChunk;
    processor.getCurrentProgramStateInformation (programChunk);
    programChunk.setSize (51300, true);
    processor.setStateInformation (programChunk.getData(), (int) programChunk.getSize()); // differs at byte 14
    EXPECT_EQ (state().editBuffer->bankData, before);

    std::memcpy (bytes + 17, "Version999", 10); // the version is not compared
    processor.setStateInformation (chunk.getData(), (int) chunk.getSize());
    EXPECT_EQ (static_cast<const juce::uint8*> (state().editBuffer->bankData.getData())[777], 0x11);

    processor.setStateInformation (nullptr, 0);
    processor.setCurrentProgramStateInformation ("CorvanePlugin", 13);
}

TEST_F (Automation, ProgramChunkFoldsTheEditAndRecallsIt)
{
    processor.setCurrentProgram (7);
    state().editBuffer->patchData.set (32, 200 << 8); // an edit on the panel

    juce::MemoryBlock chunk;
    processor.getCurrentProgramStateInformation (chunk);
    ASSERT_EQ (chunk.getSize(), 21u + 10 + 400);
    EXPECT_EQ (state().editBuffer->getStoredProgram (7)[32], 200 << 8); // folded into the store

    ScratchFolder otherSettings;
    DeskerAudioProcessor second { otherSettings.dir };
    second.setCurrentProgram (3);
    second.setCurrentProgramStateInformation (chunk.getData(), (int) chunk.getSize());
    EXPECT_EQ (second.midiCntrState.editBuffer->getStoredProgram (3)[32], 200 << 8);
    EXPECT_EQ (second.midiCntrState.editBuffer->patchData[32], 200 << 8);
}

TEST_F (Automation, RenamingFromTheHost)
{
    processor.changeProgramName (5, "");
    EXPECT_EQ (processor.getProgramName (5), juce::String().paddedRight (' ', 24));
    EXPECT_EQ (processor.getCurrentProgram(), 5);

    processor.changeProgramName (6, "ABCDEFGHIJKLMNOPQRSTUVWX"); // 24: kept whole
    EXPECT_EQ (processor.getProgramName (6), "ABCDEFGHIJKLMNOPQRSTUVWX");
    processor.changeProgramName (6, "ABCDEFGHIJKLMNOPQRSTUVWXY"); // 25: cut to 23
    EXPECT_EQ (processor.getProgramName (6), "ABCDEFGHIJKLMNOPQRSTUVW ");

    state().updateHostActive = true; // while the slot dialog is open nothing happens
    processor.changeProgramName (6, "Other");
    EXPECT_EQ (processor.getProgramName (6), "ABCDEFGHIJKLMNOPQRSTUVW ");
    EXPECT_EQ (processor.getCurrentProgram(), 6);

    // A program change from the host then only moves the dialog.
    processor.setCurrentProgram (3);
    EXPECT_EQ (processor.getCurrentProgram(), 3);
    juce::uint8 code = 0;
    ASSERT_TRUE (state().hostEvents.pop (code));
    EXPECT_EQ (code, 180);
}

JUCE_END_IGNORE_WARNINGS_GCC_LIKE
