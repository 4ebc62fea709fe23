#include "editor/ProgBar.h"

ProgBar::ProgBar (int width, int height)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setSize (width, height);
    box = { (width - 400) / 2, (height - 40) / 2, 400, 40 };

    const auto prepare = [this] (juce::TextButton& b, juce::uint32 colour, juce::uint32 onColour)
    {
        b.setColour (juce::TextButton::buttonColourId, juce::Colour (colour));
        b.setColour (juce::TextButton::buttonOnColourId, juce::Colour (onColour));
        b.setWantsKeyboardFocus (false);
        b.setMouseClickGrabsKeyboardFocus (false);
        addAndMakeVisible (b);
    };

    prepare (frameButton, 0xff767681, 0xff9b9ba6);
    frameButton.setBounds (box.getX(), box.getY(), 384, 24);
    prepare (fillButton, 0xff37a6c8, 0xff113f48);
    fillButton.setBounds (box.getX(), box.getY(), 0, 24);

    label.setFont (juce::Font ("Arial", 18.0f, juce::Font::bold));
    label.setJustificationType (juce::Justification::centred);
    label.setColour (juce::Label::textColourId, juce::Colours::white);
    label.setWantsKeyboardFocus (false);
    label.setBounds (box.getX() + 392, box.getY(), 88, 24);
    addAndMakeVisible (label);

    cancelButton.InitializeMe (box.getX() + 319, box.getY() + 40, 60, 24, false);
    addAndMakeVisible (cancelButton);
}

ProgBar::~ProgBar() = default;

void ProgBar::setValue (int newValue)
{
    value = juce::jlimit (minimum, maximum, newValue);
    // Three pixels a step: the last step stops 3 pixels short of the 384 of the frame.
    fillButton.setSize (3 * value, 24);
}

void ProgBar::setText (const juce::String& newText)
{
    text = newText;
    label.setText (text, juce::dontSendNotification);
}

void ProgBar::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0x55000000));
    // The dark box starts 10 pixels left of and above the bar.
    g.setColour (juce::Colour (0xff050606));
    g.fillRoundedRectangle (box.translated (-10, -10).toFloat(), 10.0f);
}
