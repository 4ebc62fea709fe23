#include "editor/UpdHostCont.h"

#include "editor/controls/BoxFrame.h"

namespace
{
juce::Font arial18() { return juce::Font ("Arial", 18.0f, juce::Font::plain); }
} // namespace

UpdHostCont::UpdHostCont (int slot, const juce::String& name)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);

    label.setFont (arial18());
    label.setJustificationType (juce::Justification::centredLeft);
    label.setColour (juce::Label::textColourId, juce::Colour (0xff64ccea));
    label.setColour (juce::Label::backgroundColourId, juce::Colours::transparentBlack);
    label.setWantsKeyboardFocus (false);
    label.setInterceptsMouseClicks (false, false);
    addAndMakeVisible (label);
    showProgram (slot, name);

    okButton.InitializeMe (0, 0, 60, 24, false);
    cancelButton.InitializeMe (0, 0, 60, 24, false);
    addAndMakeVisible (okButton);
    addAndMakeVisible (cancelButton);
}

UpdHostCont::~UpdHostCont() = default;

void UpdHostCont::showProgram (int slot, const juce::String& name)
{
    program = slot;
    label.setText (juce::String (slot) + ": " + name, juce::dontSendNotification);
}

void UpdHostCont::resized()
{
    box = { (getWidth() - boxWidth) / 2, (getHeight() - boxHeight) / 2, boxWidth, boxHeight };
    label.setBounds (box.getX() + 20, box.getY() + 96, boxWidth - 40, 24);
    okButton.setTopLeftPosition (box.getX() + 368, box.getY() + 164);
    cancelButton.setTopLeftPosition (box.getX() + 280, box.getY() + 164);
}

void UpdHostCont::paint (juce::Graphics& g)
{
    BoxFrame::paint (g, getLocalBounds(), box);

    g.setFont (arial18());
    g.setColour (juce::Colour (0xfffcf5f5));
    g.drawText ("Select the Host FX Program slot to be updated!", box.getX() + 20, box.getY() + 20, boxWidth - 40, 24,
                juce::Justification::centredLeft, true);
    g.drawText ("Current Host FX program:", box.getX() + 20, box.getY() + 68, boxWidth - 40, 24,
                juce::Justification::centredLeft, true);
}
