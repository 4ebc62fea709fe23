#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// A check box with an optional caption; a press flips it and broadcasts.
class Check_But : public juce::Component,
                  public juce::ChangeBroadcaster
{
public:
    Check_But();
    ~Check_But() override;

    void mouseDown (const juce::MouseEvent& e) override;
    void mouseUp (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;

    bool checked = false;
    juce::Colour captionColour { 0xffffffff };
    float fontHeight = 13.0f;
    juce::String caption;
    bool showCaption = false;
    bool pressed = false;
    juce::Image imageDown, imageOn, imageOff;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (Check_But)
};
