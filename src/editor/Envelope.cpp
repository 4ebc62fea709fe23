#include "editor/Envelope.h"

#include "editor/controls/IvrResor.h"

#include <cmath>

namespace
{
// A drag moves two thirds of a unit a pixel; halves go to the even step.
int dragStep (int pixels)
{
    return (int) std::nearbyint ((float) pixels / 1.5f);
}

// Inside the open interval (centre - half, centre + half).
bool within (float v, float centre, float half)
{
    return v > centre - half && v < centre + half;
}
} // namespace

Envel::Envel (int whichEnvelope) : which (whichEnvelope)
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setBufferedToImage (true);
    background = IvrResor::get ("envBk");
    glass = IvrResor::get ("EnvGlass");
    PaintMeP();
}

Envel::~Envel()
{
    stopTimer();
}

void Envel::PaintMeP()
{
    const float u = xUnit;
    pointX[0] = left;
    pointY[0] = base + top;
    pointX[1] = pointX[0] + attack * u;
    pointY[1] = top;
    pointX[2] = pointX[1] + decay * u;
    pointY[2] = base + top - sustain * u;
    pointX[3] = pointX[2] + sustainWidth * u;
    pointY[3] = pointY[2];
    pointX[4] = pointX[3] + release * u;
    pointY[4] = base + top;

    curve.clear();
    curve.startNewSubPath (pointX[0] * scale, pointY[0] * scale);
    for (int i = 1; i < 5; ++i)
        curve.lineTo (pointX[i] * scale, pointY[i] * scale);
    curve.closeSubPath();
}

int Envel::FindControl (int x, int y) const
{
    const float px = (float) x, py = (float) y, half = 7.0f * scale;

    if (within (px, pointX[1] * scale, half) && within (py, pointY[1] * scale, half))
        return 0;

    // The end's lower limit of y is not scaled.
    if (within (px, pointX[4] * scale, half) && py > pointY[4] - 7.0f && py < pointY[4] * scale + half)
        return 2;

    if (px > (pointX[2] - 7.0f) * scale && px < (pointX[3] + 7.0f) * scale && within (py, pointY[2] * scale, half))
        return 1;

    return -1;
}

void Envel::mouseMove (const juce::MouseEvent& e)
{
    if (FindControl (e.x, e.y) != -1)
        setMouseCursor (juce::MouseCursor::CrosshairCursor);
    else if (auto* parent = getParentComponent())
        setMouseCursor (parent->getMouseCursor());
}

void Envel::mouseDown (const juce::MouseEvent& e)
{
    showReadout = false;
    handle = FindControl (e.x, e.y);
    if (handle == -1)
        return;

    pressX = lastX = e.x;
    pressY = lastY = e.y;
    showReadout = true;
    attackAtPress = attack;
    decayAtPress = decay;
    sustainAtPress = sustain;
    releaseAtPress = release;
    repaint();
    action = 67;
    sendChangeMessage();
}

void Envel::mouseDrag (const juce::MouseEvent& e)
{
    if (handle == -1)
        return;

    // The readout shows only between the press and the first drag.
    showReadout = false;
    attackChanged = decayChanged = sustainChanged = releaseChanged = false;
    readout = " ";
    bool changed = false;

    if (e.x != lastX)
    {
        lastX = e.x;
        const int step = dragStep (e.x - pressX);
        const auto follow = [&] (float& value, float atPress, bool& flag)
        {
            const float next = (float) juce::jlimit (0, timeMaximum, (int) std::nearbyint (atPress + (float) step));
            if (next != value)
            {
                value = next;
                flag = changed = true;
                readout = juce::String ((int) next);
            }
        };

        if (handle == 0)
            follow (attack, attackAtPress, attackChanged);
        else if (handle == 1)
            follow (decay, decayAtPress, decayChanged);
        else
            follow (release, releaseAtPress, releaseChanged);
    }

    if (e.y != lastY && handle == 1)
    {
        lastY = e.y;
        const int step = dragStep (pressY - e.y); // upward raises
        const float next = (float) juce::jlimit (0, sustainMaximum, (int) std::nearbyint (sustainAtPress + (float) step));
        if (next != sustain)
        {
            sustain = next;
            sustainChanged = changed = true;
            readout = readout + " , " + juce::String ((int) next);
        }
    }

    if (! changed)
        return;

    attack = std::trunc (attack);
    decay = std::trunc (decay);
    sustain = std::trunc (sustain);
    release = std::trunc (release);
    PaintMeP();
    repaint();
    action = 1;
    sendChangeMessage();
}

void Envel::mouseUp (const juce::MouseEvent&)
{
    startTimer (100);
}

void Envel::timerCallback()
{
    stopTimer();
    action = 66;
    sendChangeMessage();
}

void Envel::resized()
{
    PaintMeP();
}

void Envel::paint (juce::Graphics& g)
{
    if (background.isValid())
        g.drawImageAt (background, 0, 0);
    else
        g.fillAll (juce::Colour (0xff101010));

    // The screen's dotted graticule.
    g.setColour (juce::Colour (0xffff0a0a));
    for (int y : { 21, 37, 53, 69, 85 })
        for (int x = 23; x <= 266; x += 4)
            g.fillRect (x, y, 1, 1);
    for (int x = 23; x <= 278; x += 16)
        for (int y : { 25, 29, 33, 41, 45, 49, 57, 61, 65, 73, 77, 81 })
            g.fillRect (x, y, 1, 1);

    g.setColour (juce::Colour (0xff5f4405));
    g.fillPath (curve);
    g.setColour (juce::Colour (0xffc9910e));
    g.strokePath (curve, juce::PathStrokeType (1.1f));

    if (showReadout)
    {
        g.setColour (juce::Colours::white);
        g.setFont (juce::Font ("Arial", 11.0f, juce::Font::plain));
        g.drawText (readout, lastX + 5, juce::jmax (15, lastY), 200, 20, juce::Justification::centredLeft, false);
    }

    // The glass over the screen, darkened.
    g.setColour (juce::Colour (0x33000000));
    if (glass.isValid())
        g.drawImage (glass, 21, 19, 254, 80, 0, 0, glass.getWidth(), glass.getHeight());
}
