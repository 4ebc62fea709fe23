#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// A small LED with a caption that switches on a press left of x = 20.
class SwitchLED : public juce::Component,
                  public juce::ChangeBroadcaster
{
public:
    SwitchLED();
    ~SwitchLED() override;

    void mouseDown (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;

    juce::String caption;
    bool on = false;
    juce::Colour colour { 0xffffffff };
    float fontHeight = 13.0f;
    juce::Image led;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SwitchLED)
};
