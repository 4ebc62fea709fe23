#include "librarian/BankComp.h"

#include "editor/controls/IvrResor.h"
#include "librarian/LibComp.h"

BankComp::BankComp()
    : categoryButton ("Category", 8, 7),
      fileButton ("FILE", 890, 7),
      midiButton ("MIDI", 891, 7),
      presetsButton ("PRESETS", 201, 7),
      libraryButton ("LIBRARY", 202, 7)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setOpaque (true);
    background = IvrResor::get ("bankSkin");
    addAndMakeVisible (grid);
    grid.setBounds (170, 70, 270, 324);
    library = std::make_unique<LibComp>();
}

BankComp::~BankComp() = default;

void BankComp::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0xff18191d));
    if (background.isValid())
        g.drawImageAt (background, 0, 0);
}

void BankComp::changeListenerCallback (juce::ChangeBroadcaster*) {}

void BankComp::setListing (int newMode, int newValue)
{
    shownMode = newMode;
    shownValue = newValue;
}
