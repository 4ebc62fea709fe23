#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// The bank window beside the instrument panel: 500 by 444, never scaled.
class BankComp : public juce::Component,
                 public juce::ChangeBroadcaster
{
public:
    BankComp();
    ~BankComp() override;

    void paint (juce::Graphics& g) override;

    // Mirrors MainComp's "use loaded data".
    bool useLoadedData = false;
    juce::Image background;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (BankComp)
};
