#include "librarian/LibComp.h"

#include "editor/controls/IvrResor.h"
#include "librarian/BankComp.h"
#include "sound/AutoBank.h"

LibComp::LibComp()
    : fileButton ("FILE", 890, 7),
      midiButton ("MIDI", 891, 7),
      presetsButton ("PRESETS", 201, 7),
      libraryButton ("LIBRARY", 202, 7)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setOpaque (true);
    background = IvrResor::get ("bankSkin");

    for (int i = 0; i < (int) stores.size(); ++i)
        stores[(size_t) i] = std::make_unique<AutoBank> (i);

    for (int i = 0; i < 32; ++i)
    {
        auto* button = sourceButtons.add (new IvrBut ({}, i, 7));
        button->InitializeMe (85, 75, 70, 24, false);
        addChildComponent (*button);
        button->addChangeListener (this);
    }

    BankComp::buildCommonParts (*this, 54);
}

LibComp::~LibComp()
{
    useLoadedDataCheck.removeChangeListener (this);
    for (auto* button : { &fileButton, &midiButton, &presetsButton, &libraryButton })
        button->removeChangeListener (this);
    for (auto* button : sourceButtons)
        button->removeChangeListener (this);
}

void LibComp::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0xff18191d));
    if (background.isValid())
        g.drawImageAt (background, 0, 0);
    // The library's cyan over the bank window's skin, so the two windows are not mistaken.
    g.fillAll (juce::Colour (0x1c00bbbb));
}

void LibComp::changeListenerCallback (juce::ChangeBroadcaster* source)
{
    if (source == &libraryButton)
        return;

    if (source == &fileButton)
        actionCode = 890;
    else if (source == &midiButton)
        actionCode = 891;
    else if (source == &presetsButton)
        actionCode = 201;
    else if (source == &useLoadedDataCheck)
        actionCode = 206;
    else
    {
        mode = 1;
        actionCode = 200;
    }
    sendChangeMessage();
}
