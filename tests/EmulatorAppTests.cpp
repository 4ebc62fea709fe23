#ifdef CORVANE_EMULATOR_APP

#include <juce_core/juce_core.h>

#include <gtest/gtest.h>

namespace
{
struct Run
{
    int status;
    juce::StringArray lines;
};

Run runApp (const juce::StringArray& arguments)
{
    juce::StringArray command { CORVANE_EMULATOR_APP };
    command.addArray (arguments);
    juce::ChildProcess child;
    EXPECT_TRUE (child.start (command));
    const auto output = child.readAllProcessOutput();
    child.waitForProcessToFinish (30000);
    return { (int) child.getExitCode(), juce::StringArray::fromLines (output.trimEnd()) };
}
} // namespace

TEST (EmulatorApp, WithoutASequencerSaysSoInOneLine)
{
    if (juce::File ("/dev/snd/seq").exists())
        GTEST_SKIP() << "this machine has an ALSA sequencer";

    const auto run = runApp ({});
    EXPECT_EQ (run.status, 1);
    ASSERT_EQ (run.lines.size(), 1) << run.lines.joinIntoString ("\n");
    EXPECT_TRUE (run.lines[0].contains ("no ALSA sequencer"));
}

TEST (EmulatorApp, RefusesBadArguments)
{
    for (const auto& args : { juce::StringArray ("--channel", "17"), juce::StringArray ("--frobnicate"), juce::StringArray ("--seed") })
    {
        const auto run = runApp (args);
        EXPECT_EQ (run.status, 2) << args.joinIntoString (" ");
        EXPECT_EQ (run.lines.size(), 1) << args.joinIntoString (" ");
    }
}

#endif
