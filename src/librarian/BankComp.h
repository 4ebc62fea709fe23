#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/controls/Check_But.h"
#include "editor/controls/IvrBut.h"
#include "librarian/IvrGrid.h"

#include <memory>

class LibComp;

// The bank window beside the instrument panel: 500 by 444, never scaled. Its buttons choose what the
// grid lists and open the bank menus; MainComp reads `actionCode` (and `mode`, `value`) after each
// change message: 200 list (mode 0 a bank, mode 1 by category), 201 "PRESETS", 206 the check,
// 890 "FILE", 891 "MIDI".
class BankComp : public juce::Component,
                 public juce::ChangeBroadcaster,
                 public juce::ChangeListener
{
public:
    BankComp();
    ~BankComp() override;

    void paint (juce::Graphics& g) override;
    void changeListenerCallback (juce::ChangeBroadcaster* source) override;

    // Records what the grid lists (Populate's mode and value) and marks it on the buttons.
    void setListing (int mode, int value);

    // What the bank and the library windows share: "FILE", "MIDI", "PRESETS" and "LIBRARY" along the
    // top and the grid, all reporting to `owner`.
    template <typename Owner>
    static void buildCommonParts (Owner& owner)
    {
        const int x[] = { 154, 232, 310, 388 };
        int i = 0;
        for (auto* button : { &owner.fileButton, &owner.midiButton, &owner.presetsButton, &owner.libraryButton })
        {
            button->InitializeMe (x[i++], 18, 70, 24, false);
            owner.addAndMakeVisible (*button);
            button->addChangeListener (&owner);
        }

        owner.grid.setBounds (170, 70, 270, 324);
        owner.grid.Initialize ({ 45, 95, 85, 0 });
        owner.addAndMakeVisible (owner.grid);
    }

    static constexpr int actionList = 200;
    static constexpr int actionPresets = 201;
    static constexpr int actionUseLoadedData = 206;
    static constexpr int actionFile = 890;
    static constexpr int actionMidi = 891;

    IvrGrid grid;
    juce::OwnedArray<IvrBut> bankButtons; // "BANK A" to "BANK G", "BANK H-XL": ids 0 to 7
    IvrBut categoryButton;
    IvrBut fileButton, midiButton, presetsButton, libraryButton;
    Check_But useLoadedDataCheck;
    std::unique_ptr<LibComp> library;

    int actionCode = 0;
    int mode = 0;
    int value = 0;
    // What the grid lists, as Set_Bank_PRG recorded it: the mode and value of its Populate.
    int shownMode = 0;
    int shownValue = 0;
    // Mirrors MainComp's "use loaded data".
    bool useLoadedData = false;
    juce::Image background;

private:
    // Every IvrBut of the window: the bank buttons, then "Category", "FILE", "MIDI", "PRESETS",
    // "LIBRARY".
    juce::Array<IvrBut*> buttons();

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (BankComp)
};
