#pragma once

#include <juce_core/juce_core.h>

// A settings folder of the test's own, so that no test touches the user's files. Removed with
// its contents at the end.
struct ScratchFolder
{
    ScratchFolder()
        : dir (juce::File::getSpecialLocation (juce::File::tempDirectory).getChildFile ("desker-test-" + juce::Uuid().toString()))
    {
        dir.createDirectory();
    }

    ~ScratchFolder() { dir.deleteRecursively(); }

    const juce::File dir;
};
