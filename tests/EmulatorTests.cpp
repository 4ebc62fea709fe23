#include "DeviceLinkFixture.h"

namespace
{
struct Emulator : ::testing::Test
{
    VirtualCorvane corvane { 1, 5 };
    std::vector<juce::MidiMessage> out;

    void SetUp() override { corvane.setOutput ([this] (const juce::MidiMessage& m) { out.push_back (m); }); }
    void send (const juce::MidiMessage& m) { corvane.handleIncomingMidiMessage (nullptr, m); }
};
} // namespace

TEST_F (Emulator, StoresDumpsAndRecallsByProgramChange)
{
    const auto sound = VirtualCorvane::makeProgram (0, 0, 77);
    send (raw ({ 0xB0, 32, 2 }));
    send (sysexOf (VirtualCorvane::programFrame (sound, 90)));
    EXPECT_EQ (corvane.getProgram (2, 90), sound);
    send (raw ({ 0xC1, 90 })); // another channel: ignored
    EXPECT_NE (corvane.getEditBuffer(), sound);
    send (raw ({ 0xC0, 90 }));
    EXPECT_TRUE (corvane.getEditBuffer() == sound && corvane.getProgramNumber() == 90);
}

// Dropped, short and late replies are exercised against the plug-in in the link tests.
TEST_F (Emulator, GarbledRepliesKeepTheirFrame)
{
    corvane.setFaults ({ 0, false, false, 40 });
    send (raw ({ 0xF0, 0x04, 0x01, 0x00, 0x05, 0xF7 }));
    ASSERT_EQ (out.size(), 1u);
    EXPECT_NE (juce::MemoryBlock (out[0].getRawData(), (size_t) out[0].getRawDataSize()), VirtualCorvane::editBufferFrame (corvane.getEditBuffer()));
    EXPECT_TRUE (out[0].getRawData()[0] == 0xF0 && out[0].getRawData()[out[0].getRawDataSize() - 1] == 0xF7);
}

#ifdef CORVANE_EMULATOR_APP
TEST (EmulatorApp, RefusesInOneLine)
{
    const bool sequencer = juce::File ("/dev/snd/seq").exists(); // with one, no arguments start it
    for (const auto& [args, status] : { std::pair { juce::StringArray(), 1 }, { juce::StringArray ("--channel", "17"), 2 },
                                        { juce::StringArray ("--frobnicate"), 2 }, { juce::StringArray ("--seed"), 2 } })
    {
        SCOPED_TRACE (args.joinIntoString (" "));
        if (sequencer && args.isEmpty())
            continue;
        juce::StringArray command (CORVANE_EMULATOR_APP);
        command.addArray (args);
        juce::ChildProcess child;
        ASSERT_TRUE (child.start (command));
        const auto lines = juce::StringArray::fromLines (child.readAllProcessOutput().trimEnd());
        child.waitForProcessToFinish (30000);
        EXPECT_EQ ((int) child.getExitCode(), status);
        ASSERT_EQ (lines.size(), 1) << lines.joinIntoString ("\n");
        EXPECT_TRUE (status == 2 || lines[0].contains ("no ALSA sequencer"));
    }
}
#endif
