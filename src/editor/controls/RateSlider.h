#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// A stepping slider of 200 by 18: an arrow at each end steps the value by one every 100 ms while it
// is held, and the thumb between them follows a drag. It reports every change by a change message.
class RateSlider : public juce::Component,
                   public juce::ChangeBroadcaster,
                   public juce::Timer
{
public:
    // The drag spreads 0 .. `maximumValue` over the track between the arrows.
    explicit RateSlider (float maximumValue);
    ~RateSlider() override;

    // Sets the value silently, limited to 0 .. maximum.
    void setValue (float newValue);

    void paint (juce::Graphics& g) override;
    void mouseDown (const juce::MouseEvent& e) override;
    void mouseDrag (const juce::MouseEvent& e) override;
    void mouseUp (const juce::MouseEvent& e) override;
    void mouseDoubleClick (const juce::MouseEvent& e) override;
    void mouseWheelMove (const juce::MouseEvent& e, const juce::MouseWheelDetails& wheel) override;
    void timerCallback() override;

    // The arrows' zones: x up to leftArrowEnd, and from rightArrowStart on; the track lies between.
    static constexpr int leftArrowEnd = 17;
    static constexpr int rightArrowStart = 183;
    static constexpr int trackStart = 18;
    static constexpr int repeatMs = 100;

    bool leftArrow = false, rightArrow = false, thumb = false;
    float value = 0.0f;
    float maximum;
    float pixelsPerStep;
    int direction = 1;
    int pressX = 0;
    juce::Image upImage, downImage;

private:
    void changeTo (float newValue);

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (RateSlider)
};
