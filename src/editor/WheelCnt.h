#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// A pitch or modulation wheel of the keyboard strip. One pixel of vertical travel is one step of
// 0 to 127, up raises it; a wheel with a spring returns to 64 when the button comes up. Like the
// panel's controls it broadcasts and leaves the sending to MainComp, which reads `position`.
class WheelCnt : public juce::Component,
                 public juce::ChangeBroadcaster
{
public:
    WheelCnt (int start, bool springBack);
    ~WheelCnt() override;

    void setDesignRect (float x, float y, float width, float height);
    // Places the wheel at its design rectangle times the scale, each value truncated.
    void setScale (float newScale);

    // A value from outside (the instrument, the host): moves the picture, sends nothing.
    void setPosition (int newPosition);

    void mouseDown (const juce::MouseEvent& e) override;
    void mouseDrag (const juce::MouseEvent& e) override;
    void mouseUp (const juce::MouseEvent& e) override;
    void mouseWheelMove (const juce::MouseEvent& e, const juce::MouseWheelDetails& wheel) override;
    void paint (juce::Graphics& g) override;

    static constexpr int springPosition = 64;
    static constexpr int numFrames = 35;

    float scale = 1.0f;
    float position = 0.0f;
    const float frameFactor = 34.0f / 127.0f;
    int frame = 0;
    const float minimum = 0.0f;
    const float maximum = 127.0f;
    const bool spring;
    juce::Image modWheelfilmstrip;
    int pressY = 0;
    int positionAtPress = 0;
    juce::Rectangle<float> designRect;

private:
    // Stores a position the user asked for, and tells MainComp when it moved.
    void moveTo (int newPosition);
    // Clamps and shows a position; false when it was there already.
    bool place (int newPosition);
    void paintWithoutStrip (juce::Graphics& g);

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (WheelCnt)
};
