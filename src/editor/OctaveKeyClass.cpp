#include "editor/OctaveKeyClass.h"

#include "editor/controls/IvrResor.h"

namespace
{
// Where each semitone of an octave sits in the picture, in design pixels from the octave's start.
constexpr int semitoneOffsets[12] = { 4, 6, 9, 10, 11, 14, 16, 20, 22, 23, 26, 0 };
// Semitones to add to a white key's index within its octave to get its place in the octave.
constexpr int whiteToSemitone[7] = { 0, 1, 2, 2, 3, 4, 5 };
} // namespace

OctaveKeyClass::OctaveKeyClass()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    uOct127 = IvrResor::get ("uOct127");
    setSize (269, 18);
}

OctaveKeyClass::~OctaveKeyClass() = default;

int OctaveKeyClass::noteAt (float x) const
{
    const float s = scale;
    float p = (x / s - 25.0f * s) / 3.573f; // white keys from the picture's first C
    const int octave = (int) (p / 7.0f);
    const int white = (int) (p - 7.0f * (float) octave);
    if (juce::isPositiveAndBelow (white, 7))
        p += (float) whiteToSemitone[white];
    return juce::jlimit (0, 127, 5 * octave + (int) p);
}

float OctaveKeyClass::noteX (int note) const
{
    return (25.0f + 25.0f * (float) (note / 12) + (float) semitoneOffsets[note % 12]) * scale;
}

void OctaveKeyClass::selectFrom (float x)
{
    const int width = lastNote - firstNote;
    firstNote = noteAt (x);
    lastNote = juce::jmin (127, firstNote + width);
    sendChangeMessage();
    repaint();
}

void OctaveKeyClass::mouseDown (const juce::MouseEvent& e)
{
    selectFrom (e.position.x);
}

void OctaveKeyClass::mouseDrag (const juce::MouseEvent& e)
{
    selectFrom (e.position.x);
}

void OctaveKeyClass::paint (juce::Graphics& g)
{
    const float s = scale;
    if (uOct127.isValid())
        g.drawImage (uOct127, { 0.0f, 0.0f, 269.0f * s, 18.0f * s });

    const float left = noteX (firstNote);
    const float right = noteX (lastNote);
    g.setColour (juce::Colour (0x66000000));
    g.fillRect (0.0f, 0.0f, left, (float) getHeight());
    g.fillRect (right, 0.0f, (float) getWidth() - right, (float) getHeight());
}
