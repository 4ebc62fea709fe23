#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/controls/Check_But.h"
#include "editor/controls/IvrBut.h"
#include "librarian/IvrGridLib.h"

#include <array>
#include <memory>

class AutoBank;

// The library window over the bank window, 500 by 444: its grid, 32 source buttons and eight stores
// of its own. It reports like BankComp: `actionCode` 890, 891, 201, 206, or 200 with `mode` 1.
class LibComp : public juce::Component,
                public juce::ChangeBroadcaster,
                public juce::ChangeListener
{
public:
    LibComp();
    ~LibComp() override;

    void paint (juce::Graphics& g) override;
    void changeListenerCallback (juce::ChangeBroadcaster* source) override;

    IvrGridLib grid;
    juce::OwnedArray<IvrBut> sourceButtons; // 32, hidden
    std::array<std::unique_ptr<AutoBank>, 8> stores;
    IvrBut fileButton, midiButton, presetsButton, libraryButton;
    Check_But useLoadedDataCheck;

    int actionCode = 0;
    int mode = 0;
    juce::Image background;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LibComp)
};
