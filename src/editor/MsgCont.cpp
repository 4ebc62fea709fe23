#include "editor/MsgCont.h"

#include "editor/controls/BoxFrame.h"

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
    BoxFrame::paint (g, getLocalBounds(), box);
}
