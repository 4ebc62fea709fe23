#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/controls/IvrBut.h"

// The box that asks which of the host's programs the edit buffer goes to. It covers the whole
// editor; the host's program list picks the slot while it is open, and the label follows.
class UpdHostCont : public juce::Component,
                    public juce::ChangeBroadcaster
{
public:
    UpdHostCont (int slot, const juce::String& name);
    ~UpdHostCont() override;

    // Shows `slot` and its name, silently.
    void showProgram (int slot, const juce::String& name);

    void paint (juce::Graphics& g) override;
    void resized() override;

    static constexpr int boxWidth = 500;
    static constexpr int boxHeight = 200;

    // Both report as 999; MainComp tells them apart.
    IvrBut okButton { "OK", 999, 140 };
    IvrBut cancelButton { "CANCEL", 999, 140 };
    juce::Label label;
    int program = 0;
    juce::Rectangle<int> box;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (UpdHostCont)
};
