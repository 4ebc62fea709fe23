#include "librarian/BankComp.h"

#include "editor/controls/IvrResor.h"
#include "librarian/LibComp.h"

namespace
{
constexpr int buttonWidth = 70;
constexpr int buttonHeight = 24;
} // namespace

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

    for (int bank = 0; bank < 8; ++bank)
    {
        const auto text = bank < 7 ? "BANK " + juce::String::charToString ((juce::juce_wchar) (65 + bank)) : juce::String ("BANK H-XL");
        auto* button = bankButtons.add (new IvrBut (text, bank, 7));
        button->InitializeMe (85, 75 + 32 * bank, buttonWidth, buttonHeight, false);
        addAndMakeVisible (*button);
        button->addChangeListener (this);
    }
    categoryButton.InitializeMe (85, 336, buttonWidth, buttonHeight, false);
    addAndMakeVisible (categoryButton);
    categoryButton.addChangeListener (this);
    buildCommonParts (*this);

    useLoadedDataCheck.caption = "Use Loaded Data";
    useLoadedDataCheck.showCaption = true;
    // The caption has the 70 pixels between the box and "FILE".
    useLoadedDataCheck.fontHeight = 10.0f;
    useLoadedDataCheck.setBounds (52, 21, 100, 15);
    addAndMakeVisible (useLoadedDataCheck);
    useLoadedDataCheck.addChangeListener (this);

    library = std::make_unique<LibComp>();
    addChildComponent (*library);
}

BankComp::~BankComp()
{
    useLoadedDataCheck.removeChangeListener (this);
    for (auto* button : buttons())
        button->removeChangeListener (this);
}

juce::Array<IvrBut*> BankComp::buttons()
{
    juce::Array<IvrBut*> all (bankButtons.begin(), bankButtons.size());
    all.addArray ({ &categoryButton, &fileButton, &midiButton, &presetsButton, &libraryButton });
    return all;
}

void BankComp::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0xff18191d));
    if (background.isValid())
        g.drawImageAt (background, 0, 0);
}

void BankComp::changeListenerCallback (juce::ChangeBroadcaster* source)
{
    if (source == &libraryButton)
    {
        library->setBounds (0, 0, getWidth(), getHeight());
        library->setVisible (true);
        return;
    }

    if (auto index = bankButtons.indexOf (dynamic_cast<IvrBut*> (source)); index >= 0)
    {
        mode = 0;
        value = index;
        actionCode = actionList;
    }
    else if (source == &categoryButton)
    {
        mode = 1;
        value = 0;
        actionCode = actionList;
    }
    else if (source == &useLoadedDataCheck)
    {
        useLoadedData = useLoadedDataCheck.checked;
        actionCode = actionUseLoadedData;
    }
    else if (source == &fileButton)
    {
        actionCode = actionFile;
    }
    else if (source == &midiButton)
    {
        actionCode = actionMidi;
    }
    else if (source == &presetsButton)
    {
        actionCode = actionPresets;
    }
    else
    {
        return;
    }

    sendChangeMessage();
}

void BankComp::setListing (int newMode, int newValue)
{
    shownMode = newMode;
    shownValue = newValue;

    // The button of what is listed stays lit.
    for (int bank = 0; bank < bankButtons.size(); ++bank)
    {
        bankButtons[bank]->toggleState = newMode == 0 && newValue == bank;
        bankButtons[bank]->repaint();
    }
    categoryButton.toggleState = newMode == 1;
    categoryButton.repaint();
}
