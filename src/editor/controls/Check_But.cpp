#include "editor/controls/Check_But.h"

#include "editor/controls/IvrResor.h"

Check_But::Check_But()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);

    imageDown = IvrResor::get ("ch_dn");
    imageOn = IvrResor::get ("ch_on");
    imageOff = IvrResor::get ("ch_off");
}

Check_But::~Check_But() = default;

void Check_But::mouseDown (const juce::MouseEvent&)
{
    pressed = true;
    checked = ! checked;
    repaint();
    sendChangeMessage();
}

void Check_But::mouseUp (const juce::MouseEvent&)
{
    pressed = false;
    repaint();
}

void Check_But::paint (juce::Graphics& g)
{
    if (showCaption)
    {
        g.setColour (captionColour);
        g.setFont (juce::Font ("Arial", fontHeight, juce::Font::plain));
        g.drawText (caption, 30, 0, 300, 15, juce::Justification::centredLeft, true);
    }

    const auto& image = pressed ? imageDown : (checked ? imageOn : imageOff);
    g.drawImage (image, 2, 2, 20, 11, 0, 0, 20, 11);
}
