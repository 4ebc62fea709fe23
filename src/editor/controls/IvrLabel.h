#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// A text in a box that broadcasts when pressed inside it (the tool-bar's channel label).
class IvrLabel : public juce::Component,
                 public juce::ChangeBroadcaster,
                 public juce::SettableTooltipClient
{
public:
    IvrLabel();
    ~IvrLabel() override;

    void mouseDown (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;

    float fontHeight = 11.0f;
    juce::String fontName { "Arial" };
    juce::String text;
    int style = juce::Font::plain;
    int justification = juce::Justification::centred;
    juce::Colour textColour { 0xffffffff };
    // 0 no fill; 1 fill with fillColour; 2 also a 1-pixel border in borderColour.
    int fillLevel = 0;
    juce::Colour fillColour { 0xff000000 };
    juce::Colour borderColour { 0xff9f9f9f };

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (IvrLabel)
};
