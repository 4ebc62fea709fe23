#include "editor/controls/IvrLabel.h"

IvrLabel::IvrLabel()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
}

IvrLabel::~IvrLabel() = default;

void IvrLabel::mouseDown (const juce::MouseEvent& e)
{
    if (e.x > 0 && e.y > 0 && e.x < getWidth() && e.y < getHeight())
        sendChangeMessage();
}

void IvrLabel::paint (juce::Graphics& g)
{
    if (fillLevel >= 1)
        g.fillAll (fillColour);

    if (fillLevel >= 2)
    {
        g.setColour (borderColour);
        g.drawRect (getLocalBounds(), 1);
    }

    g.setColour (textColour);
    g.setFont (juce::Font (fontName, fontHeight, style));
    g.drawText (text, getLocalBounds(), juce::Justification (justification), true);
}
