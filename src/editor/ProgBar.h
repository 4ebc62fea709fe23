#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/controls/IvrBut.h"

// The progress box of a transfer: a bar of 0 to 127 steps of 3 pixels, a label and "CANCEL".
class ProgBar : public juce::Component
{
public:
    ProgBar (int width, int height);
    ~ProgBar() override;

    // Clamps to the range and sizes the fill to 3 pixels a step, 24 high.
    void setValue (int newValue);
    void setText (const juce::String& newText);

    void paint (juce::Graphics& g) override;

    int value = 0;
    int minimum = 0;
    int maximum = 127;
    juce::String text;
    juce::Rectangle<int> box;
    juce::TextButton frameButton, fillButton;
    juce::Label label;
    IvrBut cancelButton { "CANCEL", 1113, 140 };

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ProgBar)
};
