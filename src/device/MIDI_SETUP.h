#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

class Check_But;
class IvrBut;
class IvrCont;
class IvrLabel;
class MIDI_Sync;

// The MIDI page: the ports to the Corvane, the clock and the latency panel. It does no MIDI work of
// its own: each choice sets `command` and `commandValue` and broadcasts, and MainComp::Config_MIDI
// acts on it (201 poll, 203 close, 206 clock, 211 scan, 300 input, 301 third list, 302 output).
class MIDI_Setup : public juce::Component,
                   public juce::ChangeBroadcaster,
                   public juce::ChangeListener
{
public:
    MIDI_Setup();
    ~MIDI_Setup() override;

    // The menus of the hot areas: 300 inputs, 301 the third list (the input names), 302 outputs,
    // 303 the clock source. A list of fewer than two entries opens no menu.
    void PopPorts (int which);

    // The text of a clock source value, empty for a value without one.
    static juce::String ClockSet (int value);

    // Puts the panel's top left corner at (x, y) of the page and its children around it.
    void placePanel (int x, int y);

    // The box of a port list (300 inputs, 302 outputs, 301 the third list), in the page's
    // coordinates: the area that opens its menu.
    juce::Rectangle<int> listArea (int which) const;

    void mouseDown (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;
    void changeListenerCallback (juce::ChangeBroadcaster* source) override;

    int command = 0;
    int commandValue = 0;
    std::unique_ptr<MIDI_Sync> syncPanel;
    std::unique_ptr<IvrLabel> titleLabel;
    bool inputOpenLamp = false;
    bool outputOpenLamp = false;
    juce::StringArray inputList;
    juce::StringArray outputList;
    int inputChoice = 0;
    int thirdChoice = 0;
    int outputChoice = 0;
    std::unique_ptr<Check_But> clockCheck;
    int panelX = 20, panelY = 32, panelWidth = 400, panelHeight = 220;
    std::unique_ptr<IvrCont> clockSource;
    std::unique_ptr<IvrBut> closeButton;
    // Starts a search for the instrument over every pair of ports (command 211).
    std::unique_ptr<IvrBut> scanButton;

private:
    // A clock source value from the control or its menu: its text on the control, and command 303.
    void clockChosen (int value);

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MIDI_Setup)
};
