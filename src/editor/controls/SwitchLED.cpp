#include "editor/controls/SwitchLED.h"

#include "editor/controls/IvrResor.h"

SwitchLED::SwitchLED()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    led = IvrResor::get ("ledXx");
}

SwitchLED::~SwitchLED() = default;

void SwitchLED::mouseDown (const juce::MouseEvent& e)
{
    // Only the lamp switches; the caption beside it is just text.
    if (e.x >= 20)
        return;

    on = ! on;
    sendChangeMessage();
    repaint();
}

void SwitchLED::paint (juce::Graphics& g)
{
    g.drawImage (led, 0, 5, 14, 9, on ? 15 : 0, 0, 14, 9);

    g.setColour (colour);
    g.setFont (juce::Font ("Arial", fontHeight, juce::Font::plain));
    g.drawText (caption, 20, 0, 140, 18, juce::Justification::centredLeft, true);
}
