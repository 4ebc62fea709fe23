#include "editor/controls/Midi_Led.h"

#include "editor/controls/IvrResor.h"

Midi_Led::Midi_Led()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setInterceptsMouseClicks (false, false);
    led = IvrResor::get ("midiLed");
    setSize (8, 8);
}

Midi_Led::~Midi_Led()
{
    stopTimer();
}

void Midi_Led::flash()
{
    stopTimer();
    lit = true;
    startTimer (200);
    repaint();
}

void Midi_Led::timerCallback()
{
    lit = false;
    stopTimer();
    repaint();
}

void Midi_Led::paint (juce::Graphics& g)
{
    if (! lit)
        return;

    g.setColour (juce::Colours::red);
    g.fillEllipse (0.0f, 0.0f, 7.0f, 7.0f);
}
