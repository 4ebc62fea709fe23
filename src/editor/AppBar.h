#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/controls/IvrBut.h"
#include "editor/controls/IvrLabel.h"

// The tool-bar: a strip of flat text buttons, the MIDI channel and the status line. It never
// scales. Its timer paces transfers: each tick broadcasts with action 124.
class AppBar : public juce::Component,
               public juce::ChangeBroadcaster,
               public juce::Timer
{
public:
    AppBar();
    ~AppBar() override;

    // Makes the buttons and the channel label; `listener` hears each of them.
    void createControls (juce::ChangeListener* listener);

    void setStatus (const juce::String& text);

    void paint (juce::Graphics& g) override;
    void mouseEnter (const juce::MouseEvent& e) override;
    void mouseExit (const juce::MouseEvent& e) override;
    void mouseDrag (const juce::MouseEvent& e) override;
    void timerCallback() override;

    static constexpr int actionDragged = 123;
    static constexpr int actionTick = 124;

    juce::OwnedArray<IvrBut> buttons;
    IvrBut* lockButton = nullptr;
    IvrLabel channelLabel;
    juce::String status;
    bool locked = true;
    juce::Image strip;
    int action = 0;

private:
    void setControlsVisible (bool shouldBeVisible);

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (AppBar)
};
