#pragma once

#include <juce_audio_devices/juce_audio_devices.h>
#include <juce_gui_basics/juce_gui_basics.h>

#include <vector>

class MidiCntrState;

// The search for the Corvane: polls each candidate pair of ports in turn, closes itself when the
// instrument answers, and shows what to check when nothing does. A click stops it.
//
// Pairs are tried one at a time, each with its input and output open alone, so that a reply names
// its pair whatever the backend reports as its source, and only one input thread ever calls the
// state. The remembered pair goes first, then pairs whose input and output share a name, then the
// rest with the output held and the input changing, so that a reply too late for its pair falls on
// a closed input rather than on the next pair.
class MIDI_scan : public juce::Component,
                  public juce::ChangeBroadcaster,
                  public juce::Timer
{
public:
    explicit MIDI_scan (MidiCntrState* controllerState);
    ~MIDI_scan() override;

    // Takes the candidates from the port lists as they stand, opens the first and starts polling,
    // with the panel's top left corner at (x, y) of its parent.
    void startScan (int x, int y);

    void mouseDown (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;
    void timerCallback() override;

    // Where "Host settings" leads: the help section of the README.
    static constexpr const char* helpAddress = "README.md#if-the-instrument-does-not-answer";
    // A tick every 100 ms and three polls a pair: a pair takes 400 ms and a reply has 300 ms from the
    // first poll, so a 4 by 4 scan that finds nothing ends in about 6.5 s.
    static constexpr int tickMs = 100;
    static constexpr int pollsPerPair = 3;
    static constexpr int width = 540;
    // The failure page lists this many pairs, and a count of the others.
    static constexpr int listedPairs = 16;

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
    // One line for each pair tried, in order: the failure page lists them.
    juce::StringArray triedPairs;

private:
    struct Candidate
    {
        juce::MidiDeviceInfo input, output;
    };

    void buildCandidates();
    void openCandidate (int index);
    // Opens the ports of the two lists by index, -1 for none, in place of those open now.
    void openPorts (int input, int output);
    void restorePorts();
    // Keeps the pair that answered open and remembers it in the settings and the ports file.
    void keepFoundPair();

    std::vector<Candidate> candidates;
    juce::MidiDeviceInfo inputBefore, outputBefore;
    bool inputWasOpen = false, outputWasOpen = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MIDI_scan)
};
