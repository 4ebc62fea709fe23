#include "editor/MsgCont.h"

MsgCont::MsgCont (const juce::String& text)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);

    label.setText (text, juce::dontSendNotification);
    label.setFont (juce::Font ("Arial", 18.0f, juce::Font::plain));
    label.setJustificationType (juce::Justification::centred);
    label.setColour (juce::Label::textColourId, juce::Colour (0xfffcf5f5));
    label.setColour (juce::Label::backgroundColourId, juce::Colours::transparentBlack);
    label.setWantsKeyboardFocus (false);
    label.setInterceptsMouseClicks (false, false);
    addAndMakeVisible (label);

    okButton.InitializeMe (0, 0, 60, 24, false);
    cancelButton.InitializeMe (0, 0, 60, 24, false);
    addAndMakeVisible (okButton);
    addAndMakeVisible (cancelButton);
}

MsgCont::~MsgCont() = default;

void MsgCont::resized()
{
    box = { (getWidth() - boxWidth) / 2, (getHeight() - boxHeight) / 2, boxWidth, boxHeight };
    label.setBounds (box.getX(), box.getY() + 10, boxWidth, 24);
    okButton.setTopLeftPosition (box.getX() + 368, box.getY() + 64);
    cancelButton.setTopLeftPosition (box.getX() + 280, box.getY() + 64);
}

void MsgCont::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0x55000000));
    juce::DropShadow (juce::Colour (0xaa000000), 10, { 10, 10 }).drawForRectangle (g, box);
    g.setColour (juce::Colours::black);
    g.fillRect (box);
    g.setColour (juce::Colour (0xff777777));
    g.drawRect (box);
}
