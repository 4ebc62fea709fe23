#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// Knob, selector, switch, value box, stepping button or number box bound to one sound parameter.
// A control never changes its own shown value on a mouse move: it stores the requested value and
// an action code and broadcasts; MainComp answers through ValueChanged, the only writer of the
// shown value.
class IvrCont : public juce::Component,
                public juce::ChangeBroadcaster,
                public juce::Timer
{
public:
    IvrCont();
    ~IvrCont() override;

    // Action codes, read by MainComp after a change message.
    enum Action
    {
        actionStep = 1,
        actionToggle = 64,
        actionWheel = 65,
        actionTouchEnded = 66,
        actionTouchBegan = 67,
        actionMenu = 99
    };

    // The range first, then the design rectangle, then InitializeMe (which places the control).
    void setRange (int minimumValue, int maximumValue);
    void setDesignRect (float x, float y, float width, float height);
    void setTextBox (int width, int height);
    void InitializeMe (int parameter, juce::String controlName, int controlKind, int displayCode);

    // Stores the window scale and places the control at its design rectangle times the scale,
    // each value truncated.
    void setScale (float newScale);

    // Clamps, and when the result differs from the shown value stores it with its text, works out
    // the frame and repaints. Sends nothing.
    void ValueChanged (int value, juce::String text);

    // Frame of the filmstrip for a value under this control's kind and range.
    int frameForValue (int value) const;
    // Pixels of travel per step of a drag: 15 for a control with few steps, 1 otherwise.
    static int dragDivisor (int maximumValue);

    void mouseDown (const juce::MouseEvent& e) override;
    void mouseDrag (const juce::MouseEvent& e) override;
    void mouseUp (const juce::MouseEvent& e) override;
    void mouseWheelMove (const juce::MouseEvent& e, const juce::MouseWheelDetails& wheel) override;
    void paint (juce::Graphics& g) override;
    void timerCallback() override;

    int action = 0;
    int description = 0;
    int group = 0;
    int id = 0;
    int minimum = 0;
    int maximum = 0;
    juce::uint32 colour = 0;
    juce::String name;
    juce::Rectangle<float> designRect;
    int requestedValue = 0;
    int currentValue = -1;
    juce::Image filmstrip;
    juce::Image leftCap, rightCap;
    int valueAtPress = 0;
    int textWidth = 0, textHeight = 0;
    int kind = 0;
    juce::String valueText;
    bool dragging = false;
    bool pressed = false;
    int frame = 0;
    int pressY = 0, pressX = 0;
    int range = 0;
    float scale = 1.0f;
    // The value is the high byte of a 16-bit word of the sound (parameters 17 to 45).
    bool highByte = false;

private:
    void requestValue (int value, int actionCode);

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (IvrCont)
};
