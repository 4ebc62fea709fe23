#pragma once

#include <juce_graphics/juce_graphics.h>

// The look of a box over the panel: the panel darkened, a soft shadow, a black box with a grey border.
struct BoxFrame
{
    static void paint (juce::Graphics& g, juce::Rectangle<int> area, juce::Rectangle<int> box);
};
