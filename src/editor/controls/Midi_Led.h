#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// Lights for 200 ms at every complete SysEx message.
class Midi_Led : public juce::Component,
                 public juce::Timer
{
public:
    Midi_Led();
    ~Midi_Led() override;

    void flash();
    void paint (juce::Graphics& g) override;
    void timerCallback() override;

    float scale = 1.0f;
    bool lit = false;
    juce::Image led;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (Midi_Led)
};
