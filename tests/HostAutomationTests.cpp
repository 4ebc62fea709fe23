#include "plugin/HandlerComp.h"
#include "sound/AutoBank.h"

#include "HostSide.h"
#include "LinkedProcessor.h"

#include <gtest/gtest.h>

namespace
{
struct Automation : ::testing::Test, PlainProcessor
{
    Automation() { drainCodes (state()); processor.addListener (&host); }
    ~Automation() override { processor.removeListener (&host); }

    std::vector<unsigned> drain() { return drainCodes (state()); }
    int word (int s) { return state().editBuffer->patchData[s]; }
    void fromInstrument (const juce::MidiMessage& m)
    {
        state().SendVST3_Message (m);
        processor.changeListenerCallback (state().handler.get());
    }

    HostSide host;
};

JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
} // namespace

TEST_F (Automation, ValuesTextsAndOutOfRange)
{
    EXPECT_FLOAT_EQ (processor.getParameter (-1) + processor.getParameter (65) + processor.getParameter (315), 0.0f);
    EXPECT_EQ (processor.getParameterText (315) + processor.getParameterName (315), "");
    processor.setParameter (400, 1.0f); // nothing
    processor.setParameter (3, std::numeric_limits<float>::quiet_NaN());
    EXPECT_TRUE (drain().empty());

    processor.setParameter (21, 0.0f); // a host index whose display code is overwritten with the centred rule
    EXPECT_EQ (processor.getParameterText (21), "-128");
    processor.setParameter (30, 1.0f); // Wheel Src: knob positions with an empty text
    EXPECT_EQ (processor.getParameterText (30), "");

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
    const unsigned channel = (unsigned) state().midiChannel.load() << 14;
    processor.setParameter (313, 1.0f);
    EXPECT_EQ (processor.hostValues[313].load(), 16363);
    processor.setParameter (58, 1.0f); // MOD WHEEL also moves the on-screen wheel
    EXPECT_EQ (drain(), (std::vector<unsigned> { 0x380000u + channel + 16363u, 0x800000u + channel + (1u << 7) + 127u }));
}

TEST_F (Automation, InstrumentMovesAreOneGestureEndingAtTheTimer)
{
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
    processor.timerCallback(); // nothing left to end
    EXPECT_EQ (host.log, (std::vector<std::string> { "begin 15", "end 15" }));
}

TEST_F (Automation, RawMidiMovesEndTheirGestureAtOnceAndKeepTheTruncation)
{
    // A controller 20 of value 0 from the instrument: hostValues stays 0, nothing goes back.
    fromInstrument (juce::MidiMessage::controllerEvent (1, 20, 0));
    EXPECT_EQ (processor.hostValues[77].load(), 0);
    EXPECT_EQ (host.log, (std::vector<std::string> { "begin 77", "end 77" }));

    // A value above 0 is truncated to 0 first, so setParameter sees a change and acts on it.
    fromInstrument (juce::MidiMessage::controllerEvent (1, 20, 64));
    EXPECT_EQ (processor.hostValues[77].load(), 64);

    // The wheel at its top reaches the host a little above 1.0.
    fromInstrument (juce::MidiMessage::pitchWheel (1, 16383));
    ASSERT_FALSE (host.changes.empty());
    EXPECT_GT (host.changes.back().second, 1.0f);
    EXPECT_EQ (processor.hostValues[313].load(), 16383);

    juce::ChangeBroadcaster other; // not ours
    processor.changeListenerCallback (&other);
}

TEST_F (Automation, BankChunkRoundTripsAndForeignShortOrOtherVersionChunks)
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
    chunk.removeSection (0, 4);

    PlainProcessor second; // the whole bank, names included, into another instance
    second.processor.setStateInformation (chunk.getData(), (int) chunk.getSize());
    EXPECT_EQ (second.state().editBuffer->bankData, state().editBuffer->bankData);

    juce::MemoryBlock programChunk;
    processor.getCurrentProgramStateInformation (programChunk);
    programChunk.setSize (51300, true);
    const auto before = state().editBuffer->bankData;
    auto* bytes = static_cast<char*> (chunk.getData());
    std::memset (bytes + 27, 0x11, 51200);
    processor.setStateInformation (chunk.getData(), 1000); // short: ignored, never read past
    processor.setStateInformation (programChunk.getData(), (int) programChunk.getSize()); // differs at byte 14
    processor.setStateInformation (nullptr, 0);
    processor.setCurrentProgramStateInformation ("CorvanePlugin", 13);
    EXPECT_EQ (state().editBuffer->bankData, before);

    std::memcpy (bytes + 17, "Version999", 10); // the version is not compared
    processor.setStateInformation (chunk.getData(), (int) chunk.getSize());
    EXPECT_EQ (static_cast<const juce::uint8*> (state().editBuffer->bankData.getData())[777], 0x11);
}

TEST_F (Automation, ProgramChunkFoldsTheEditAndRecallsIt)
{
    processor.setCurrentProgram (7);
    state().editBuffer->patchData.set (32, 200 << 8); // an edit on the panel
    juce::MemoryBlock chunk;
    processor.getCurrentProgramStateInformation (chunk);
    ASSERT_EQ (chunk.getSize(), 21u + 10 + 400);
    EXPECT_EQ (state().editBuffer->getStoredProgram (7)[32], 200 << 8); // folded into the store

    PlainProcessor second;
    second.processor.setCurrentProgram (3);
    second.processor.setCurrentProgramStateInformation (chunk.getData(), (int) chunk.getSize());
    EXPECT_EQ (second.state().editBuffer->getStoredProgram (3)[32], 200 << 8);
    EXPECT_EQ (second.state().editBuffer->patchData[32], 200 << 8);
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

    processor.setCurrentProgram (3); // a program change from the host then only moves the dialog
    EXPECT_EQ (processor.getCurrentProgram(), 3);
    juce::uint8 code = 0;
    ASSERT_TRUE (state().hostEvents.pop (code));
    EXPECT_EQ (code, 180);
}

JUCE_END_IGNORE_WARNINGS_GCC_LIKE
