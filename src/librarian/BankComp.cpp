#include "librarian/BankComp.h"

#include "editor/controls/IvrResor.h"

BankComp::BankComp()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setOpaque (true);
    background = IvrResor::get ("bankSkin");
}

BankComp::~BankComp() = default;

void BankComp::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0xff18191d));
    if (background.isValid())
        g.drawImageAt (background, 0, 0);
}
