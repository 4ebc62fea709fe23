#include <juce_gui_basics/juce_gui_basics.h>

#include <gtest/gtest.h>

// Host tests run on a JUCE message thread, as plug-in hosts do.
int main (int argc, char** argv)
{
    ::testing::InitGoogleTest (&argc, argv);
    juce::ScopedJuceInitialiser_GUI juce;
    return RUN_ALL_TESTS();
}
