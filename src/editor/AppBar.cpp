#include "editor/AppBar.h"

#include "editor/controls/IvrResor.h"

namespace
{
struct BarButton
{
    const char* label;
    int id;
    int x;
    int width;
    juce::uint32 textColour;
    const char* tooltip;
};

// The bar's buttons, left to right; the lock LED comes first and is made apart.
const BarButton barButtons[] = {
    { "BANK",     99,  80,  50, 0xffffffff, "Show Corvane preset banks" },
    { "FILE",     75,  138, 50, 0xffffffff, "" },
    { "EDIT",     73,  191, 50, 0xffffffff, "" },
    { "MIDI",     77,  244, 50, 0xffffffff, "MIDI port settings" },
    { "HOST",     729, 302, 50, 0xffabfcfc, "" },
    { "SEND",     701, 355, 50, 0xff8eb5fd, "" },
    { "RECV",     71,  408, 50, 0xff8eb5fd, "Receive current preset from Corvane" },
    { "ADVANCED", 103, 466, 70, 0xffffffff, "Advanced settings" },
    { "WRITE",    969, 544, 50, 0xffffffff, "Write preset to Corvane" },
    { "ABOUT",    968, 602, 50, 0xffffffff, "" },
};
} // namespace

AppBar::AppBar()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    strip = IvrResor::get ("topBar");
}

AppBar::~AppBar()
{
    stopTimer();
}

void AppBar::createControls (juce::ChangeListener* listener)
{
    lockButton = buttons.add (new IvrBut ({}, 99, 8));
    lockButton->InitializeMe (20, 2, 14, 20, false);
    lockButton->toggleState = locked;
    lockButton->setTooltip ("Lock tool bar controls");

    for (const auto& entry : barButtons)
    {
        auto* button = buttons.add (new IvrBut (entry.label, entry.id, 90));
        button->InitializeMe (entry.x, 5, entry.width, 14, false);
        button->textColour = juce::Colour (entry.textColour);
        if (*entry.tooltip != 0)
            button->setTooltip (entry.tooltip);
    }

    // Made and kept, but given no place: it never shows.
    buttons.add (new IvrBut ("PREF", 730, 90));

    for (auto* button : buttons)
    {
        addAndMakeVisible (button);
        button->addChangeListener (listener);
    }

    channelLabel.setBounds (680, 5, 60, 14);
    channelLabel.fontHeight = 11.0f;
    channelLabel.textColour = juce::Colour (0xffffffff);
    channelLabel.fillLevel = 2;
    channelLabel.fillColour = juce::Colour (0xff000000);
    channelLabel.borderColour = juce::Colour (0xff9f9f9f);
    channelLabel.justification = 36;
    channelLabel.setTooltip ("MIDI transmitting channel");
    addAndMakeVisible (channelLabel);
    channelLabel.addChangeListener (listener);
}

void AppBar::setStatus (const juce::String& text)
{
    if (status == text)
        return;
    status = text;
    repaint (755, 0, 300, 23);
}

void AppBar::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0xff18191d));

    if (strip.isValid())
    {
        g.drawImageAt (strip, 0, 0);
        if (getWidth() >= 1540)
            g.drawImageAt (strip, 1530, 0);
    }

    if (status.isNotEmpty())
    {
        g.setColour (juce::Colours::white);
        g.setFont (juce::Font ("Arial", 13.0f, juce::Font::plain));
        g.drawText (status, 755, 0, 300, 23, juce::Justification::centredLeft, true);
    }
}

void AppBar::setControlsVisible (bool shouldBeVisible)
{
    for (auto* button : buttons)
        if (button->id != 730)
            button->setVisible (shouldBeVisible);
    channelLabel.setVisible (shouldBeVisible);
}

void AppBar::mouseEnter (const juce::MouseEvent&)
{
    setControlsVisible (true);
}

void AppBar::mouseExit (const juce::MouseEvent& e)
{
    // Only a move out through the lower edge hides the controls, so that reaching for the host's
    // own menus above does not.
    if (! locked && e.y > getHeight() - 4)
        setControlsVisible (false);
}

void AppBar::mouseDrag (const juce::MouseEvent&)
{
    action = actionDragged;
    sendChangeMessage();
}

void AppBar::timerCallback()
{
    action = actionTick;
    sendChangeMessage();
}
