#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

class MidiCntrState;

// The search for the Corvane: polls each candidate pair of ports in turn, closes itself when the
// instrument answers, and shows what to check when nothing does. A click stops it.
class MIDI_scan : public juce::Component,
                  public juce::ChangeBroadcaster,
                  public juce::Timer
{
public:
    explicit MIDI_scan (MidiCntrState* controllerState);
    ~MIDI_scan() override;

    void mouseDown (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;
    void timerCallback() override;

    MidiCntrState* state = nullptr;
    bool notConnected = false;
    bool waitingReply = false;
    bool polling = false;
    juce::StringArray warningLines;
    int portCount = 0;
    int triesPerPort = 0;
    int portIndex = 0;
    int tryIndex = 0;
    int panelX = 0, panelY = 0, panelWidth = 0, panelHeight = 0;
    std::unique_ptr<juce::HyperlinkButton> helpLink;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MIDI_scan)
};
