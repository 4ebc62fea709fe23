#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "editor/controls/IvrLabel.h"
#include "editor/controls/RateSlider.h"

// The latency panel of the MIDI page: how early clock, notes and controllers leave against the
// host's audio. On the Logic host the user picks a class of buffer range (and a value for "USER");
// on every other host the slider holds the value for the current sample rate. Each change is
// broadcast; MainComp hands `mode` and `values` to MidiCntrState::SetSyncModes.
class MIDI_Sync : public juce::Component,
                  public juce::ChangeListener,
                  public juce::ChangeBroadcaster
{
public:
    MIDI_Sync();
    ~MIDI_Sync() override;

    // Takes the state's values and sets the face: the Logic host edits the seventh value by mode,
    // any other host the value of `sampleRateIndex`.
    void setUp (int logicHost, int syncMode, int sampleRateIndex, const juce::Array<int>& syncValues);
    static juce::String rateText (int sampleRateIndex);

    void paint (juce::Graphics& g) override;
    void changeListenerCallback (juce::ChangeBroadcaster* source) override;

    IvrLabel rangeLabel;
    IvrLabel rateLabel;
    RateSlider slider { 1000.0f };
    juce::Label sliderCaption;
    int isLogicHost = 0;
    int mode = 0;
    int rateIndex = 0;
    juce::Array<int> values;

private:
    void showSlider (bool show);
    void showModeMenu();
    void chooseMode (int item);

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MIDI_Sync)
};
