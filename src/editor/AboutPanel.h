#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// The about box, also shown once as a splash. A click, or the end of the splash period, broadcasts;
// MainComp then closes it.
class AboutPanel : public juce::Component,
                   public juce::ChangeBroadcaster,
                   public juce::Timer
{
public:
    AboutPanel();
    ~AboutPanel() override;

    // Closes itself (by broadcasting) after `periodMs`.
    void startSelfClosing (int periodMs);

    void paint (juce::Graphics& g) override;
    void resized() override;
    void mouseDown (const juce::MouseEvent& e) override;
    void timerCallback() override;

    juce::Image picture, logo, title;
    juce::String version { "3.0.2" };
    bool selfClosing = false;
    juce::Point<int> box;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (AboutPanel)
};
