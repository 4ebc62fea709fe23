#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

// A selector of the span of notes over a picture of the whole MIDI range. KeyBrd builds it and
// listens to it but keeps it out of the tree: the keys stay on their base note.
class OctaveKeyClass : public juce::Component,
                       public juce::ChangeBroadcaster
{
public:
    OctaveKeyClass();
    ~OctaveKeyClass() override;

    // The note of the white key under a point of the picture, 0 to 127.
    int noteAt (float x) const;

    void mouseDown (const juce::MouseEvent& e) override;
    void mouseDrag (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;

    float scale = 1.0f;
    // The selected span, first and last note.
    int firstNote = 5;
    int lastNote = 60;
    juce::Image uOct127;

private:
    // Design pixel of a note's place in the picture, 25 pixels an octave.
    float noteX (int note) const;
    void selectFrom (float x);

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (OctaveKeyClass)
};
